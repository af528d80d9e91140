#include "Tamba/Sheets/Settings/NumberingPage.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Documents/Numbering.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>
#include <charconv>

namespace tamba {

NumberingPage::NumberingPage(const Library& library, Day today, QWidget* parent)
    : SettingsPage(parent), library_(library), today_(today) {
    int n = 0;
    for (const NumberSeries& series : library.series) {
        ++n;
        form.section(toQt(series.name));
        Row row{series.id, nullptr, nullptr, nullptr};
        auto* box = new QWidget(this);
        auto* columns = new QHBoxLayout(box);
        columns->setContentsMargins(0, 0, 0, 0);
        columns->setSpacing(10);
        const QString name = toQt(series.name);
        row.pattern = new QLineEdit(toQt(series.pattern), box);
        row.pattern->setObjectName(QStringLiteral("pattern%1").arg(n));
        row.pattern->setAccessibleName(tr("Pattern of %1").arg(name));
        row.start = new QLineEdit(box);
        row.start->setObjectName(QStringLiteral("start%1").arg(n));
        row.start->setAccessibleName(tr("Next counter of %1").arg(name));
        row.start->setFixedWidth(80);
        columns->addWidget(row.pattern, 1);
        columns->addWidget(Controls::label(tr("next counter"), "field", box));
        columns->addWidget(row.start);
        form.row(tr("Pattern"), box);
        row.preview = form.note(QStringLiteral(" "));
        row.preview->setObjectName(QStringLiteral("preview%1").arg(n));
        rows_.push_back(row);
        for (QLineEdit* field : {row.pattern, row.start})
            connect(field, &QLineEdit::textChanged, this, &NumberingPage::refresh);
    }
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
        const NumberSeries& series = now.series[indexOf(now.series, row.id)];
        const auto next = Numbering::next(now, series, today_);
        row.start->setPlaceholderText(toQt(std::to_string(next.counter)));
        QString text = tr("Next: %1").arg(toQt(next.number));
        const auto problem = Numbering::problem(now, series, today_);
        if (problem) text += QLatin1Char(' ') + toQt(*problem);
        form.setNote(*row.preview, text, problem ? "problem" : "caption");
        Controls::markProblem(*row.pattern, problem ? toQt(*problem) : QString());
        const bool bad = !row.start->text().trimmed().isEmpty() && !startOf(row);
        Controls::markProblem(*row.start, bad ? tr("Enter a number from 1 to 999,999,999.") : QString());
    }
    emit edited();
}

bool NumberingPage::isGood() const {
    return std::all_of(rows_.begin(), rows_.end(), [](const Row& row) {
        return !row.pattern->text().trimmed().isEmpty() && (row.start->text().trimmed().isEmpty() || startOf(row));
    });
}

void NumberingPage::store(Library& library) const {
    for (const Row& row : rows_) {
        const std::size_t index = indexOf(library.series, row.id);
        if (index == library.series.size()) continue;
        const std::string pattern = toStd(row.pattern->text().trimmed());
        if (library.series[index].pattern != pattern && !pattern.empty())
            library.series.update(index, [&](NumberSeries& series) { series.pattern = pattern; });
        if (const auto start = startOf(row)) library = Numbering::startAt(std::move(library), row.id, today_, *start);
    }
}

}  // namespace tamba
