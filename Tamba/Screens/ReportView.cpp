#include "Tamba/Screens/ReportView.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Rows/Sentences.h"
#include "Tamba/Screens/YearEndCard.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/BarChart.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/EmptyState.h"
#include "Tamba/Widgets/ShareBars.h"
#include "Tamba/Widgets/TableView.h"

#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace tamba {
namespace {

constexpr std::size_t mostBars = 10, mostRemarks = 6;

QColor colorOf(const ShareBar& bar, const Colors& colors) {
    if (!bar.colorHex.empty()) return colors.readable(Icons::colorOf(bar.colorHex));
    return bar.tone == Tone::warning ? colors.warning : bar.tone == Tone::danger ? colors.danger : colors.accent;
}

QLabel* wrapping(const QString& text, const char* role, QWidget* parent) {
    QLabel* label = Controls::label(text, role, parent);
    label->setWordWrap(true);
    return label;
}

}  // namespace

ReportView::ReportView(QWidget* parent) : QScrollArea(parent) {
    setObjectName(QStringLiteral("reportView"));
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &ReportView::placeTitles);
    begin();
}

void ReportView::begin() {
    tables_.clear();
    content_ = new QWidget;
    content_->setObjectName(QStringLiteral("desk"));
    rows_ = new QVBoxLayout(content_);
    rows_->setContentsMargins(20, 18, 20, 24);
    rows_->setSpacing(16);
    setWidget(content_);
}

void ReportView::placeTitles() {
    const int seen = verticalScrollBar()->value();
    for (TableView* table : tables_) table->lowerTitles(seen - table->mapTo(content_, QPoint()).y());
}

void ReportView::showBusy() {
    begin();
    page_ = {};
    rows_->addWidget(Controls::label(tr("Adding up…"), "field", content_), 0, Qt::AlignHCenter);
    rows_->addStretch(1);
}

void ReportView::show(const ReportPage& page, const Library& library) {
    const int position = page.choice == page_.choice ? verticalScrollBar()->value() : 0;
    begin();
    page_ = page;
    if (page_.choice.kind == ReportKind::yearEnd) addYearEnd(library);
    addRemarks();
    if (page_.empty && page_.choice.kind != ReportKind::yearEnd) {
        auto* empty = new EmptyState(content_);
        const bool owed = page_.choice.kind == ReportKind::owed;
        empty->set(QStringLiteral("reports"), owed ? tr("Nobody owes you anything") : tr("Nothing in this time"),
                   owed ? tr("Every invoice you have sent is paid.")
                        : tr("Choose another period above, or add what belongs here."),
                   {}, {});
        rows_->addWidget(empty, 1);
    } else {
        if (!page_.months.empty()) addChart(library);
        if (!page_.shares.empty()) addShares();
        for (const Table& table : page_.tables) addTable(table);
        if (!page_.advice.empty()) addNote(page_.advice, *rows_);
        rows_->addStretch(1);
    }
    content_->show();
    verticalScrollBar()->setValue(position);
}

TableView* ReportView::currentTable() const {
    for (TableView* table : tables_)
        if (table->hasFocus()) return table;
    return tables_.empty() ? nullptr : tables_.front();
}

QVBoxLayout* ReportView::addCard(const QString& title) {
    auto* card = new QFrame(content_);
    card->setObjectName(QStringLiteral("card"));
    auto* layout = new QVBoxLayout(card);
    layout->setContentsMargins(16, 12, 16, 14);
    layout->setSpacing(8);
    if (!title.isEmpty()) {
        auto* label = new QLabel(title, card);
        label->setFont(Style::titleFont(14));
        layout->addWidget(label);
    }
    rows_->addWidget(card);
    return layout;
}

void ReportView::addNote(const std::string& sentence, QVBoxLayout& to) {
    // What a remark says already is not said twice.
    for (const ReportRemark& remark : page_.remarks)
        if (remark.note == sentence) return;
    to.addWidget(wrapping(toQt(Sentences::shown(sentence)), "field", content_));
}

void ReportView::addRemarks() {
    const bool scheme = page_.choice.kind == ReportKind::composition;
    addRemarkGroup(scheme ? tr("Not allowed under the scheme") : tr("The portal will refuse this"), "danger",
                   Tone::danger);
    addRemarkGroup(tr("Worth a look"), "warning", Tone::warning);
}

void ReportView::addRemarkGroup(const QString& title, const char* pill, Tone tone) {
    std::vector<QWidget*> lines;
    for (std::size_t i = 0; i < page_.remarks.size(); ++i)
        if (page_.remarks[i].tone == tone) lines.push_back(remarkLine(i));
    if (lines.empty()) return;
    QVBoxLayout* card = addCard();
    auto* head = new QLabel(title, content_);
    head->setObjectName(QStringLiteral("pill"));
    head->setProperty("pill", QString::fromLatin1(pill));
    card->addWidget(head, 0, Qt::AlignLeft);
    for (QWidget* line : lines) card->addWidget(line);
    if (lines.size() <= mostRemarks) return;
    const std::vector<QWidget*> rest(lines.begin() + mostRemarks, lines.end());
    for (QWidget* line : rest) line->hide();
    auto* more = Controls::button(tr("Show %1 more").arg(rest.size()), "moreRemarks", Controls::Kind::link, content_);
    card->addWidget(more, 0, Qt::AlignLeft);
    connect(more, &QPushButton::clicked, this, [rest, more] {
        for (QWidget* line : rest) line->show();
        more->hide();
    });
}

QWidget* ReportView::remarkLine(std::size_t index) {
    const ReportRemark& remark = page_.remarks[index];
    QString text = toQt(remark.sentence).toHtmlEscaped();
    const std::size_t count = remark.records.size() + remark.lines;
    if (count > 0) text += QStringLiteral(" <a href=\"#\">%1</a>").arg(count == 1 ? tr("Open") : tr("Show them"));
    QLabel* line = wrapping(text, "remark", content_);
    line->setTextFormat(Qt::RichText);
    line->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(line, &QLabel::linkActivated, this, [this, index] {
        const ReportRecords& records = page_.remarks.at(index).records;
        if (page_.remarks.at(index).lines > 0) return emit openLinesChosen();
        if (records.size() > 1) return emit recordsChosen(records);
        if (!records.documentIDs.empty()) return emit documentChosen(records.documentIDs.front());
        emit expenseChosen(records.expenseIDs.front());
    });
    return line;
}

void ReportView::addYearEnd(const Library& library) {
    auto* card = new YearEndCard(toQt(titleOf(Span::year, page_.choice.day, library.fyStart())), content_);
    rows_->addWidget(card);
    connect(card, &YearEndCard::bundleChosen, this, &ReportView::bundleChosen);
    connect(card, &YearEndCard::journalChosen, this, &ReportView::journalChosen);
    connect(card, &YearEndCard::booksChosen, this, &ReportView::booksChosen);
}

void ReportView::addChart(const Library& library) {
    auto* chart = new BarChart(content_);
    Controls::name(*chart, "reportChart", tr("Income and spending by month"));
    std::vector<BarChart::Group> groups;
    for (const MonthRow& row : page_.months)
        groups.push_back({toQt(Sentences::months(row.month.formatted("MMM"))),
                          toQt(Sentences::months(row.month.formatted("MMMM yyyy"))),
                          {row.income, row.expenses}});
    chart->set({{tr("Income"), &Colors::accent}, {tr("Spending"), &Colors::faint}}, std::move(groups), library.home());
    chart->setFixedHeight(230);
    addCard()->addWidget(chart);
    connect(chart, &BarChart::chosen, this, [this](int month, int series) {
        emit recordsChosen(recordsOf(page_, static_cast<std::size_t>(month), static_cast<std::size_t>(series)));
    });
}

void ReportView::addShares() {
    const Colors colors = Colors::current();
    std::vector<ShareBars::Bar> bars;
    for (const ShareBar& share : page_.shares) {
        if (bars.size() == mostBars) break;
        bars.push_back({toQt(share.label), toQt(share.figure), colorOf(share, colors), share.amount});
    }
    auto* widget = new ShareBars(content_);
    Controls::name(*widget, "reportShares", toQt(Sentences::shown(page_.tables.front().title)));
    widget->set(std::move(bars));
    addCard()->addWidget(widget);
    connect(widget, &ShareBars::chosen, this,
            [this](int bar) { emit recordsChosen(page_.shares.at(static_cast<std::size_t>(bar)).records); });
}

void ReportView::addTable(const Table& table) {
    QVBoxLayout* card = addCard(toQt(Sentences::shown(table.title)));
    card->setContentsMargins(1, 12, 1, 10);
    card->setSpacing(4);
    // As far in as the texts of the rows.
    constexpr int indent = 11;
    card->itemAt(0)->widget()->setContentsMargins(indent, 0, indent, 0);
    QLabel* subtitle = wrapping(toQt(Sentences::shown(table.subtitle)), "field", content_);
    subtitle->setContentsMargins(indent, 0, indent, 4);
    card->addWidget(subtitle);
    if (table.rows.empty()) {
        auto* none = Controls::label(tr("Nothing in this time."), "field", content_);
        none->setContentsMargins(indent, 4, indent, 4);
        card->addWidget(none);
    } else {
        auto* view = new TableView(content_);
        view->setObjectName(QStringLiteral("reportTable%1").arg(tables_.size()));
        view->setTable(table);
        card->addWidget(view);
        tables_.push_back(view);
        connect(view, &TableView::chosen, this, [this, view](int row, int column) {
            emit recordsChosen(
                recordsOf(page_, view->table(), static_cast<std::size_t>(row), static_cast<std::size_t>(column)));
        });
        connect(view, &TableView::moved, this, [this, view](const QRect& cell) {
            const QPoint at = view->mapTo(content_, cell.center());
            ensureVisible(at.x(), at.y(), 0, 60);
        });
        connect(view, &TableView::printChosen, this, &ReportView::printChosen);
        connect(view, &TableView::saveChosen, this, &ReportView::saveChosen);
    }
    if (table.notes.empty()) return;
    auto* notes = new QVBoxLayout;
    notes->setContentsMargins(indent, 4, indent, 0);
    notes->setSpacing(4);
    card->addLayout(notes);
    for (const std::string& note : table.notes) addNote(note, *notes);
}

void ReportView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    content_->setMaximumWidth(viewport()->width());
    placeTitles();
}

}  // namespace tamba
