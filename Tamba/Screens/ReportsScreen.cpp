#include "Tamba/Screens/ReportsScreen.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Rows/Sentences.h"
#include "Tamba/Screens/RecordsPane.h"
#include "Tamba/Screens/ReportView.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/ListParts.h"
#include "Tamba/Widgets/PeriodPicker.h"
#include "Tamba/Widgets/Segments.h"
#include "Tamba/Widgets/TableView.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QThread>
#include <QVBoxLayout>

#include <algorithm>

namespace tamba {
namespace {

/// Above this many records a report may take longer than a frame of the screen.
constexpr std::size_t large = 1'500;
constexpr int listWidth = 176, paneWidth = 340, narrow = 980, wideForPane = 860;

const std::vector<int>& compositionRates() {
    static const std::vector<int> rates{600, 500, 100};
    return rates;
}

}  // namespace

ReportsScreen::ReportsScreen(AppModel& model, ReportFiles& files, QWidget* parent)
    : QWidget(parent), model_(model), files_(files) {
    setObjectName(QStringLiteral("reportsScreen"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(makeHeader());
    auto* columns = new QHBoxLayout;
    columns->setSpacing(0);
    makeList();
    columns->addWidget(list_);
    body_ = new QWidget(this);
    auto* middle = new QVBoxLayout(body_);
    middle->setContentsMargins(0, 0, 0, 0);
    middle->setSpacing(0);
    view_ = new ReportView(body_);
    middle->addWidget(view_, 1);
    columns->addWidget(body_, 1);
    pane_ = new RecordsPane(this);
    pane_->hide();
    columns->addWidget(pane_);
    rows->addLayout(columns, 1);

    connect(view_, &ReportView::recordsChosen, this, &ReportsScreen::showRecords);
    connect(view_, &ReportView::documentChosen, this, &ReportsScreen::documentChosen);
    connect(view_, &ReportView::expenseChosen, this, &ReportsScreen::expenseChosen);
    connect(view_, &ReportView::openLinesChosen, this, &ReportsScreen::openLinesChosen);
    connect(view_, &ReportView::printChosen, this, &ReportsScreen::print);
    connect(view_, &ReportView::saveChosen, save_, &QPushButton::click);
    connect(pane_, &RecordsPane::documentChosen, this, &ReportsScreen::documentChosen);
    connect(pane_, &RecordsPane::expenseChosen, this, &ReportsScreen::expenseChosen);
    connect(pane_, &RecordsPane::closed, this, &ReportsScreen::closeRecords);
    connect(&model_, &AppModel::changed, this, [this](const Library& before, const Library& after) {
        if (before.business != after.business) fillList();
        refresh();
    });
    connect(&model_, &AppModel::dayChanged, this, &ReportsScreen::refresh);
    connect(&model_, &AppModel::opened, this, [this] {
        choices_.clear();
        fillList();
        showReport(ReportKind::profit);
    });
    connectFiles();
    setFocusProxy(list_);
    fillList();
    showReport(ReportKind::profit);
}

ReportsScreen::~ReportsScreen() {
    // Threads call back.
    for (QThread* thread : findChildren<QThread*>()) thread->wait();
}

QWidget* ReportsScreen::makeHeader() {
    const auto [header, top, tools] = ListParts::header(ListParts::Heading::title, this);
    title_ = Controls::label({}, "title", header);
    title_->setObjectName(QStringLiteral("reportTitle"));
    copy_ = Controls::iconButton(QStringLiteral("copy"), tr("Copy the table (Ctrl+C)"), "copyReport", header);
    print_ = Controls::iconButton(QStringLiteral("print"), tr("Print (Ctrl+P)"), "printReport", header);
    save_ = Controls::button({}, "saveReport", Controls::Kind::plain, header);
    portal_ = Controls::button(tr("Save the Portal’s File…"), "savePortalFile", Controls::Kind::primary, header);
    // Where there is no room for the list.
    narrowList_ = makeChoice(header);
    Controls::name(*narrowList_, "narrowReports", tr("Report"));
    narrowList_->setMinimumWidth(170);
    top->addWidget(title_);
    top->addWidget(narrowList_);
    top->addStretch(1);
    top->addWidget(copy_);
    top->addWidget(print_);
    top->addWidget(save_);
    top->addWidget(portal_);
    period_ = new PeriodPicker(model_.today(), model_.library().fyStart(), header);
    basis_ = new Segments({{Translations::shown(tamba::title(IncomeBasis::accrual)), "basisAccrual"},
                           {Translations::shown(tamba::title(IncomeBasis::cash)), "basisCash"}},
                          header);
    rate_ = makeChoice(header);
    Controls::name(*rate_, "compositionRate", tr("Rate of the scheme"));
    rate_->setMinimumWidth(160);
    rate_->addItem(tr("6% · services"));
    rate_->addItem(tr("5% · restaurants"));
    rate_->addItem(tr("1% · goods"));
    asOf_ = Controls::label({}, "field", header);
    tools->addWidget(asOf_);
    tools->addWidget(period_);
    tools->addWidget(basis_);
    tools->addWidget(rate_);
    tools->addStretch(1);

    connect(copy_, &QToolButton::clicked, this, [this] {
        if (const TableView* table = view_->currentTable()) table->copy();
    });
    connect(print_, &QToolButton::clicked, this, &ReportsScreen::print);
    connect(save_, &QPushButton::clicked, this, [this] {
        if (page()) files_.saveTables(*page());
    });
    connect(portal_, &QPushButton::clicked, this, [this] {
        if (page()) files_.savePortalFile(*page());
    });
    connect(period_, &PeriodPicker::chosen, this, [this] {
        ReportChoice choice = choice_;
        choice.span = period_->span();
        choice.day = period_->day();
        choose(choice);
    });
    connect(basis_, &Segments::chosen, this, [this](int index) {
        ReportChoice choice = choice_;
        choice.basis = allIncomeBases().at(static_cast<std::size_t>(index));
        choose(choice);
    });
    connect(rate_, &QComboBox::activated, this, [this](int index) {
        ReportChoice choice = choice_;
        choice.compositionBP = compositionRates().at(static_cast<std::size_t>(index));
        choose(choice);
    });
    return header;
}

void ReportsScreen::makeList() {
    list_ = new QListWidget(this);
    Controls::name(*list_, "reportList", tr("Reports"));
    list_->setFixedWidth(listWidth);
    list_->setIconSize(QSize(17, 17));
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const auto choose = [this](int row) {
        const auto kinds = reportsFor(model_.library().business);
        if (row >= 0 && row < static_cast<int>(kinds.size())) showReport(kinds[static_cast<std::size_t>(row)]);
    };
    connect(list_, &QListWidget::currentRowChanged, this, choose);
    connect(narrowList_, &QComboBox::activated, this, choose);
}

void ReportsScreen::connectFiles() {
    connect(view_, &ReportView::bundleChosen, this, [this] {
        files_.makeBundle(choice_.day.financialYear(yearStartOf(ReportKind::yearEnd, model_.library())));
    });
    connect(view_, &ReportView::journalChosen, &files_, &ReportFiles::saveJournal);
    connect(view_, &ReportView::booksChosen, this, [this] { files_.saveBooks(choice_); });
}

void ReportsScreen::fillList() {
    const QSignalBlocker quiet(list_), still(narrowList_);
    list_->clear();
    narrowList_->clear();
    const auto kinds = reportsFor(model_.library().business);
    for (const ReportKind kind : kinds) {
        list_->addItem(new QListWidgetItem(Icons::icon(toQt(icon(kind)), &Colors::muted),
                                           Translations::shown(tamba::title(kind))));
        narrowList_->addItem(Translations::shown(tamba::title(kind)));
    }
    if (std::find(kinds.begin(), kinds.end(), choice_.kind) == kinds.end()) return showReport(kinds.front());
    refreshHeader();
}

void ReportsScreen::showReport(ReportKind kind) {
    const auto kept = choices_.find(kind);
    choose(kept == choices_.end() ? firstChoice(kind, model_.today()) : kept->second);
}

void ReportsScreen::choose(const ReportChoice& choice, const std::optional<Day>& month) {
    choice_ = choice;
    choices_[choice.kind] = choice;
    month_ = month;
    closeRecords();
    refreshHeader();
    refresh();
}

void ReportsScreen::showMonth(const Day& month) {
    choose(firstChoice(ReportKind::profit, month), month.firstOfMonth());
}

const ReportPage* ReportsScreen::page() const { return ready_ ? &view_->page() : nullptr; }

void ReportsScreen::print() {
    if (page()) files_.print(*page());
}

void ReportsScreen::refreshHeader() {
    const auto kinds = reportsFor(model_.library().business);
    const int row = static_cast<int>(std::find(kinds.begin(), kinds.end(), choice_.kind) - kinds.begin());
    {
        const QSignalBlocker quiet(list_), still(narrowList_);
        list_->setCurrentRow(row);
        narrowList_->setCurrentIndex(row);
    }
    title_->setText(Translations::shown(tamba::title(choice_.kind)));
    const std::vector<Span> spans = spansOf(choice_.kind);
    {
        const QSignalBlocker quiet(period_);
        period_->setYearStart(yearStartOf(choice_.kind, model_.library()));
        period_->offer(spans);
        period_->choose(choice_.span, choice_.day);
    }
    period_->setVisible(!spans.empty());
    asOf_->setText(tr("As of %1").arg(toQt(Sentences::months(model_.today().formatted("d MMMM yyyy")))));
    asOf_->setVisible(spans.empty());
    basis_->setVisible(choice_.kind == ReportKind::profit);
    basis_->choose(static_cast<int>(choice_.basis));
    rate_->setVisible(choice_.kind == ReportKind::composition);
    const auto& rates = compositionRates();
    rate_->setCurrentIndex(
        static_cast<int>(std::find(rates.begin(), rates.end(), choice_.compositionBP) - rates.begin()));
    const bool isYearEnd = choice_.kind == ReportKind::yearEnd;
    for (QWidget* widget : {static_cast<QWidget*>(copy_), static_cast<QWidget*>(print_), static_cast<QWidget*>(save_)})
        widget->setVisible(!isYearEnd);
    portal_->setVisible(choice_.kind == ReportKind::outward || choice_.kind == ReportKind::summary);
    save_->setText(portal_->isVisibleTo(this) ? tr("Save Tables as CSV…") : tr("Save as CSV…"));
    arrange();
}

void ReportsScreen::refresh() {
    stale_ = true;
    if (isVisible()) compute();
}

void ReportsScreen::compute() {
    stale_ = false;
    const Library& library = model_.library();
    const int turn = ++turn_;
    if (library.documents.size() + library.expenses.size() <= large)
        return take(reportPage(library, choice_, model_.today()));
    if (!ready_ || view_->page().choice != choice_) {
        ready_ = false;
        view_->showBusy();
    }
    auto* thread = QThread::create([this, turn, library, choice = choice_, today = model_.today()] {
        auto made = std::make_shared<const ReportPage>(reportPage(library, choice, today));
        QMetaObject::invokeMethod(
            this,
            [this, turn, made] {
                if (turn == turn_) take(*made);
            },
            Qt::QueuedConnection);
    });
    thread->setParent(this);
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

void ReportsScreen::take(const ReportPage& page) {
    // What is looked at stays under the eye while nothing of it has changed.
    if (!ready_ || page != view_->page()) view_->show(page, model_.library());
    ready_ = true;
    const bool any = !page.tables.empty() && !page.empty;
    for (QWidget* widget : {static_cast<QWidget*>(copy_), static_cast<QWidget*>(print_), static_cast<QWidget*>(save_),
                            static_cast<QWidget*>(portal_)})
        widget->setEnabled(any);
    if (records_) pane_->show(model_.library(), *records_);
    if (const auto month = std::exchange(month_, {}))
        for (std::size_t i = 0; i < page.months.size(); ++i)
            if (page.months[i].month == *month) showRecords(recordsOf(page, page.tables.front(), i, 0));
}

void ReportsScreen::showRecords(const ReportRecords& records) {
    if (records.size() == 0) return;
    records_ = records;
    pane_->show(model_.library(), records);
    arrange();
    pane_->takeKeys();
}

void ReportsScreen::closeRecords() {
    const bool hadKeys = pane_->isAncestorOf(focusWidget());
    records_.reset();
    pane_->hide();
    arrange();
    if (!hadKeys) return;
    if (TableView* table = view_->currentTable())
        table->setFocus();
    else
        list_->setFocus();
}

void ReportsScreen::resizeEvent(QResizeEvent*) { arrange(); }

void ReportsScreen::showEvent(QShowEvent*) {
    if (stale_) compute();
}

void ReportsScreen::arrange() {
    const bool isNarrow = width() < narrow;
    list_->setVisible(!isNarrow);
    narrowList_->setVisible(isNarrow);
    title_->setVisible(!isNarrow);
    // Without room for both, the records stand in the place of the report until they are closed.
    const bool beside = width() - (isNarrow ? 0 : listWidth) >= wideForPane;
    body_->setVisible(!records_ || beside);
    if (beside)
        pane_->setFixedWidth(paneWidth);
    else {
        pane_->setMinimumWidth(0);
        pane_->setMaximumWidth(QWIDGETSIZE_MAX);
    }
}

}  // namespace tamba
