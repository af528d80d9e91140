#include "Tamba/Sheets/Settings/NumberingPage.h"

#include "Tamba/QtText.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Documents/Numbering.h"
#include "TambaCore/Documents/Standing.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <charconv>

namespace tamba {

NumberingPage::NumberingPage(const Library& library, Day today, QWidget* parent)
    : SettingsPage(parent), library_(library), today_(today) {
    auto* box = new QWidget(this);
    series_ = new QVBoxLayout(box);
    series_->setContentsMargins(0, 0, 0, 0);
    series_->setSpacing(6);
    form.addRow(box);
    for (const NumberSeries& series : library.series) add(series);

    auto* foot = new QWidget(this);
    auto* columns = new QHBoxLayout(foot);
    columns->setContentsMargins(0, 6, 0, 0);
    columns->setSpacing(8);
    auto* more = Controls::button(tr("Add a Series for"), "addSeries", Controls::Kind::plain, foot);
    kind_ = makeChoice(foot);
    Controls::name(*kind_, "seriesKind", tr("Kind of document"));
    for (const DocKind kind : {DocKind::invoice, DocKind::estimate, DocKind::creditNote})
        kind_->addItem(Translations::shown(Books::title(kind)), static_cast<int>(kind));
    columns->addWidget(more);
    columns->addWidget(kind_);
    columns->addStretch(1);
    form.addRow(foot);
    connect(more, &QPushButton::clicked, this, &NumberingPage::addNew);

    form.section(tr("How numbers are made"));
    auto* words = Controls::label({}, "caption", this);
    words->setObjectName(QStringLiteral("numberingText"));
    words->setText(Controls::wrapped(
        tr("Tokens: {FY} 26-27, {YYYY}, {YY}, {MM}, and {###} for the counter (one # per digit). With a year token the "
           "count restarts each year. Drafts get a number only when issued, and issued documents can only be voided, "
           "so the series never has gaps."),
        *words, 520));
    form.addRow(words);
    refresh();
}

void NumberingPage::add(const NumberSeries& series) {
    const QString n = QString::number(rows_.size() + 1);
    Row row{series, new QWidget(this), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr};
    row.form = new Form(*row.box, 128);
    row.box->setLayout(row.form);
    row.form->setNoteWidth(400);
    row.form->section(Translations::shown(Books::title(series.kind)));
    row.name = row.form->line(tr("Name"), "seriesName", series.name);
    auto* box = new QWidget(row.box);
    auto* columns = new QHBoxLayout(box);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(10);
    row.pattern = new QLineEdit(toQt(series.pattern), box);
    row.start = new QLineEdit(box);
    row.start->setFixedWidth(80);
    const std::pair<QLineEdit*, QString> fields[] = {
        {row.name, tr("Name of a series")}, {row.pattern, tr("Pattern")}, {row.start, tr("Next counter")}};
    const char* names[] = {"seriesName", "pattern", "start"};
    for (std::size_t i = 0; i < std::size(fields); ++i) {
        fields[i].first->setObjectName(QString::fromLatin1(names[i]) + n);
        fields[i].first->setAccessibleName(fields[i].second);
        connect(fields[i].first, &QLineEdit::textChanged, this, &NumberingPage::refresh);
    }
    columns->addWidget(row.pattern, 1);
    columns->addWidget(Controls::label(tr("next counter"), "field", box));
    columns->addWidget(row.start);
    row.form->row(tr("Pattern"), box);
    row.preview = row.form->note(QStringLiteral(" "));
    row.preview->setObjectName(QStringLiteral("preview") + n);
    row.remove = Controls::button(tr("Remove This Series"), "removeSeries", Controls::Kind::link, row.box);
    connect(row.remove, &QPushButton::clicked, this, [this, id = series.id] { remove(id); });
    row.form->addRow(QString(), row.remove);
    series_->addWidget(row.box);
    rows_.push_back(row);
}

void NumberingPage::addNew() {
    const auto kind = static_cast<DocKind>(kind_->currentData().toInt());
    add({UUID::random(), kind, "", "", {}, {}});
    refresh();
    rows_.back().name->setFocus();
}

void NumberingPage::remove(const UUID& id) {
    const auto row = std::find_if(rows_.begin(), rows_.end(), [&](const Row& each) { return each.series.id == id; });
    if (row == rows_.end()) return;
    // Its own button is still at work.
    row->box->hide();
    row->box->deleteLater();
    removed_.push_back(id);
    rows_.erase(row);
    refresh();
}

std::optional<std::int64_t> NumberingPage::startOf(const Row& row) {
    const std::string text = toStd(row.start->text().trimmed());
    std::int64_t counter = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), counter);
    if (error != std::errc() || end != text.data() + text.size() || counter < 1 || counter > 999'999'999) return {};
    return counter;
}

void NumberingPage::refresh() {
    Library now = library_;
    store(now);
    for (const Row& row : rows_) {
        const bool bad = !row.start->text().trimmed().isEmpty() && !startOf(row);
        Controls::markProblem(*row.start, bad ? tr("Enter a number from 1 to 999,999,999.") : QString());
        Controls::markProblem(*row.name,
                              row.name->text().trimmed().isEmpty() ? tr("A series needs a name.") : QString());
        const std::size_t index = indexOf(now.series, row.series.id);
        const bool unfinished = index == now.series.size();
        row.form->setRowVisible(row.remove, unfinished || Numbering::isRemovable(now, row.series.id));
        if (unfinished) {
            row.form->setNote(*row.preview, tr("Enter a name, and a pattern such as A/{FY}/{###}."));
            continue;
        }
        const NumberSeries& series = now.series[index];
        const auto next = Numbering::next(now, series, today_);
        row.start->setPlaceholderText(toQt(std::to_string(next.counter)));
        QString text = tr("Next: %1").arg(toQt(next.number));
        const auto problem = Numbering::problem(now, series, today_);
        if (problem) text += QLatin1Char(' ') + toQt(*problem);
        row.form->setNote(*row.preview, text, problem ? "problem" : "caption");
        Controls::markProblem(*row.pattern, problem ? toQt(*problem) : QString());
    }
    emit edited();
}

bool NumberingPage::isGood() const {
    return std::all_of(rows_.begin(), rows_.end(), [](const Row& row) {
        return !row.name->text().trimmed().isEmpty() && !row.pattern->text().trimmed().isEmpty() &&
               (row.start->text().trimmed().isEmpty() || startOf(row));
    });
}

void NumberingPage::store(Library& library) const {
    for (const Row& row : rows_) {
        const std::string name = toStd(row.name->text().trimmed()), pattern = toStd(row.pattern->text().trimmed());
        std::size_t index = indexOf(library.series, row.series.id);
        if (name.empty() || pattern.empty()) continue;
        if (index == library.series.size()) library.series.append(row.series);
        if (library.series[index].pattern != pattern || library.series[index].name != name)
            library.series.update(index, [&](NumberSeries& series) {
                series.pattern = pattern;
                series.name = name;
            });
        if (const auto start = startOf(row))
            library = Numbering::startAt(std::move(library), row.series.id, today_, *start);
    }
    for (const UUID& id : removed_) library = Numbering::remove(std::move(library), id);
}

}  // namespace tamba
