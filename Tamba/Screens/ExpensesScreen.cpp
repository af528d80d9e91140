#include "Tamba/Screens/ExpensesScreen.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Screens/ExpenseInspector.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/EmptyState.h"
#include "Tamba/Widgets/ListParts.h"
#include "Tamba/Widgets/PeriodPicker.h"
#include "Tamba/Widgets/RowDelegate.h"
#include "Tamba/Widgets/WhenSeen.h"
#include "TambaCore/Documents/Expenses.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace tamba {
namespace {

// The order of the columns, which is also how wide windows have to be for them.
enum Column { date, vendor, category, amount, tax, method, receipt, status };

}  // namespace

std::vector<ExpensesScreen::Model::Column> ExpensesScreen::columns() {
    const auto text = [](std::string ExpenseRow::* member) {
        return [member](const ExpenseRow& row, int role) -> QVariant {
            return role == Qt::DisplayRole ? toQt(row.*member) : QVariant();
        };
    };
    const auto quiet = [](std::string ExpenseRow::* member) {
        return [member](const ExpenseRow& row, int role) -> QVariant {
            if (role == Qt::DisplayRole) return toQt(row.*member);
            return role == Qt::ForegroundRole ? QVariant(Colors::current().muted) : QVariant();
        };
    };
    return {
        {tr("Date"), Qt::AlignLeft, quiet(&ExpenseRow::date)},
        {tr("Vendor"), Qt::AlignLeft,
         [](const ExpenseRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return row.vendor.empty() ? tr("No vendor") : toQt(row.vendor);
             if (role == Qt::ForegroundRole && row.vendor.empty()) return Colors::current().muted;
             if (role == RowDelegate::Strong) return !row.vendor.empty();
             if (role == Qt::ToolTipRole) return toQt(row.vendor);
             return {};
         }},
        {tr("Category"), Qt::AlignLeft,
         [](const ExpenseRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return toQt(row.category);
             if (row.category.empty()) return {};
             if (role == RowDelegate::Glyph) return Icons::ofCategory(row.symbol);
             if (role == RowDelegate::GlyphColor) return Icons::colorOf(row.colorHex);
             return {};
         }},
        {tr("Amount"), Qt::AlignRight, text(&ExpenseRow::amount)},
        {tr("Tax"), Qt::AlignRight, quiet(&ExpenseRow::tax)},
        {tr("Method"), Qt::AlignLeft, quiet(&ExpenseRow::method)},
        {QString(), Qt::AlignCenter,
         [](const ExpenseRow& row, int role) -> QVariant {
             if (!row.receipt) return {};
             if (role == RowDelegate::Glyph) return QStringLiteral("category-clip");
             if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) return tr("Has a receipt");
             return {};
         }},
        {tr("Status"), Qt::AlignLeft,
         [](const ExpenseRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return toQt(row.status);
             if (role == RowDelegate::Pill) return static_cast<int>(row.tone);
             if (role == RowDelegate::Glyph) return row.glyph.empty() ? QVariant() : toQt(row.glyph);
             if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) return toQt(row.hint);
             return {};
         }},
    };
}

ExpensesScreen::ExpensesScreen(AppModel& model, Prompts& prompts, QWidget* parent)
    : QWidget(parent), model_(model), prompts_(prompts), rows_(columns()) {
    setObjectName(QStringLiteral("expensesScreen"));
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    QWidget* header = makeHeader();
    makeTable();
    const auto body = ListParts::body(header, table_, footer_ = makeFooter(), this);
    pages_ = body.pages;
    empty_ = body.empty;
    columns->addLayout(body.column, 1);
    inspector_ = new ExpenseInspector(model_, prompts_, this);
    columns->addWidget(inspector_);

    connect(period_, &PeriodPicker::chosen, this, &ExpensesScreen::refresh);
    connect(search_, &QLineEdit::textChanged, this, &ExpensesScreen::refresh);
    connect(addReceipts_, &QPushButton::clicked, this, &ExpensesScreen::addReceiptsChosen);
    connect(newExpense_, &QPushButton::clicked, this, &ExpensesScreen::newExpense);
    connect(empty_, &EmptyState::actionChosen, this, [this] {
        if (model_.library().expenses.empty()) return void(emit addReceiptsChosen());
        search_->clear();
        period_->choose(Span::all, model_.today());
        showList(ExpenseList::all);
    });
    connect(empty_, &EmptyState::otherChosen, this, &ExpensesScreen::sampleChosen);
    connect(inspector_, &ExpenseInspector::deleteChosen, this, &ExpensesScreen::deleteSelected);
    connect(inspector_, &ExpenseInspector::recurringChosen, this, &ExpensesScreen::recurringChosen);
    connect(inspector_, &ExpenseInspector::categoryChosen, this, &ExpensesScreen::setCategory);
    seen_ = new WhenSeen(*this, model_, [this] { refresh(); });
    connect(&model_, &AppModel::changed, seen_, &WhenSeen::refresh);
    connect(&model_, &AppModel::opened, this, [this] {
        {
            const QSignalBlocker quietSearch(search_), quietPeriod(period_);
            search_->clear();
            period_->choose(Span::all, model_.today());
        }
        filter_.list = ExpenseList::all;
        emit listChanged(filter_.list);
        seen_->refreshThen([this] {
            if (rows_.rowCount() > 0) table_->selectRow(0);
            // Keys go to the list, or to the one thing to do in an empty book.
            if (rows_.rowCount() > 0)
                table_->setFocus();
            else
                empty_->setFocus();
        });
    });
    setFocusProxy(table_);
    refresh();
}

QWidget* ExpensesScreen::makeHeader() {
    const auto [header, top, tools] = ListParts::header(ListParts::Heading::title, this);
    title_ = Controls::label(tr("Expenses"), "title", header);
    title_->setObjectName(QStringLiteral("screenTitle"));
    addReceipts_ = Controls::button(tr("Add Receipts…"), "addReceipts", Controls::Kind::plain, header);
    newExpense_ = Controls::button(tr("New Expense"), "newExpense", Controls::Kind::primary, header);
    newExpense_->setToolTip(tr("New expense (Ctrl+N)"));
    top->addWidget(title_, 1);
    top->addWidget(addReceipts_);
    top->addWidget(newExpense_);
    search_ =
        ListParts::search("search", tr("Search expenses"), tr("Search vendor, amount, notes, receipt text"), header);
    period_ = new PeriodPicker(model_.today(), 4, header);
    tools->addWidget(search_, 1);
    tools->addWidget(period_);
    return header;
}

QWidget* ExpensesScreen::makeFooter() {
    const auto [footer, layout] = ListParts::footer(this);
    count_ = Controls::label({}, "field", footer);
    leftOut_ = Controls::label({}, "field", footer);
    leftOut_->setMinimumWidth(0);
    leftOut_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    tax_ = Controls::label({}, "field", footer);
    total_ = new QLabel(footer);
    total_->setObjectName(QStringLiteral("total"));
    total_->setFont(Style::textFont(14, QFont::DemiBold));
    layout->addWidget(count_);
    layout->addWidget(leftOut_, 1);
    layout->addWidget(tax_);
    layout->addWidget(total_);
    return footer;
}

void ExpensesScreen::makeTable() {
    table_ = ListParts::table(rows_, "expenses", tr("Expenses"),
                              {.rowHeight = RowDelegate::rowHeight,
                               .stretched = Column::vendor,
                               .sorted = Column::date,
                               .order = Qt::DescendingOrder,
                               .selection = QAbstractItemView::ExtendedSelection},
                              this);
    keepSelection(*table_, rows_);
    ListParts::setHabits(*table_, {.open = [this] { inspector_->focusVendor(); },
                                   .remove = [this] { deleteSelected(); },
                                   .fillMenu = [this](QMenu& menu) { fillMenu(menu); },
                                   .sort = [this](int column) { sortBy(column); }});
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ExpensesScreen::refreshInspector);
}

void ExpensesScreen::showList(ExpenseList list) {
    filter_.list = list;
    emit listChanged(list);
    refresh();
}

void ExpensesScreen::showWhole(ExpenseList list) {
    {
        const QSignalBlocker quietSearch(search_), quietPeriod(period_);
        search_->clear();
        period_->choose(Span::all, model_.today());
    }
    showList(list);
    if (selected().empty() && rows_.rowCount() > 0) table_->selectRow(0);
}

void ExpensesScreen::refresh() {
    const Library& library = model_.library();
    period_->setYearStart(library.fyStart());
    filter_.days = period_->days();
    filter_.search = toStd(search_->text());
    title_->setText(Translations::shown(title(filter_.list)));
    ExpenseTable table = listing_.table(library, filter_);
    const bool none = table.rows.empty();
    rows_.setRows(std::move(table.rows));
    count_->setText(toQt(table.count));
    leftOut_->setText(toQt(table.leftOut));
    tax_->setText(tr("Input tax %1").arg(toQt(table.tax)));
    total_->setText(toQt(table.total));
    pages_->setCurrentWidget(none ? static_cast<QWidget*>(empty_) : table_);
    footer_->setVisible(!library.expenses.empty());
    inspector_->setVisible(!library.expenses.empty());
    if (library.expenses.empty())
        empty_->set(QStringLiteral("receipt-add"), tr("Start with the receipts on your desk"),
                    tr("Drop photos, PDFs or saved e-mails anywhere on this window, and each becomes an expense."),
                    tr("Add Receipts…"), tr("Explore the Sample Books"));
    else if (none)
        empty_->set(QStringLiteral("search"), tr("Nothing here"), tr("No expense fits this search, period and list."),
                    tr("Show All Expenses"), {});
    refreshInspector();
    arrange();
}

void ExpensesScreen::refreshInspector() { inspector_->show(selected()); }

std::vector<UUID> ExpensesScreen::selected() const { return selectedIds(*table_, rows_); }

bool ExpensesScreen::isEditing() const {
    return inspector_->isAncestorOf(focusWidget()) && inspector_->hasUnsavedText();
}

void ExpensesScreen::select(const std::vector<UUID>& ids) {
    seen_->catchUp();
    const auto shown = [&] {
        return std::all_of(ids.begin(), ids.end(), [this](const UUID& id) { return rows_.rowOf(id).has_value(); });
    };
    if (!shown()) {
        search_->clear();
        period_->choose(Span::all, model_.today());
        showList(ExpenseList::all);
    }
    selectIds(*table_, rows_, ids);
    refreshInspector();
}

void ExpensesScreen::newExpense() {
    const Expense blank = Expense::make(model_.today());
    const bool done = model_.perform(tr("New Expense"), [blank](Library library, Day) {
        Expense expense = blank;
        expense.currency = library.home().code;
        return Expenses::add(std::move(library), std::move(expense));
    });
    if (!done) return;
    select({blank.id});
    inspector_->focusVendor();
}

void ExpensesScreen::newMileageTrip() {
    const auto trip = prompts_.mileage(model_.library(), model_.today());
    if (!trip) return;
    Expense blank = Expense::make(trip->date);
    blank.vendor = trip->purpose;
    const bool done = model_.perform(tr("New Mileage Trip"), [blank, trip](Library library, Day) {
        Expense expense = Expenses::mileage(library, blank, trip->distanceMilli, library.business.mileageRateMinor);
        for (const Category& category : library.categories)
            if (category.symbol == "road.lanes") expense.categoryID = category.id;
        return Expenses::add(std::move(library), std::move(expense));
    });
    if (done) select({blank.id});
}

void ExpensesScreen::deleteSelected() {
    const std::vector<UUID> ids = selected();
    if (ids.empty()) return;
    const int row = rows_.rowOf(ids.front()).value_or(0);
    const QString title = ids.size() == 1 ? tr("Delete Expense") : tr("Delete %1 Expenses").arg(ids.size());
    const bool done = model_.perform(title, [ids](Library library, Day) {
        for (const UUID& id : ids) library = Expenses::remove(std::move(library), id);
        return library;
    });
    if (!done) return;
    if (rows_.rowCount() > 0) table_->selectRow(std::min(row, rows_.rowCount() - 1));
    emit removed(ids.size() == 1 ? tr("Expense deleted") : tr("%1 expenses deleted").arg(ids.size()));
}

void ExpensesScreen::setCategory(const std::optional<UUID>& category) {
    model_.perform(tr("Set Category"), [ids = selected(), category](Library library, Day) {
        for (const UUID& id : ids)
            if (const Expense* expense = library.expense(id))
                library = Expenses::replace(library, Expenses::withCategory(library, *expense, category));
        return library;
    });
}

void ExpensesScreen::focusSearch() { ListParts::beginSearch(*search_); }

void ExpensesScreen::sortBy(int column) {
    static constexpr ExpenseOrder orders[] = {ExpenseOrder::date,   ExpenseOrder::vendor, ExpenseOrder::category,
                                              ExpenseOrder::amount, ExpenseOrder::tax,    ExpenseOrder::method,
                                              ExpenseOrder::date,   ExpenseOrder::status};
    if (column == Column::receipt) return;
    const ExpenseOrder order = orders[column];
    // Figures and dates begin with the largest, words with A.
    const bool figures = order == ExpenseOrder::date || order == ExpenseOrder::amount || order == ExpenseOrder::tax;
    ListParts::orderBy(*table_, column, filter_, order, !figures);
    refresh();
}

void ExpensesScreen::looksRight() { inspector_->looksRight(); }

void ExpensesScreen::fillMenu(QMenu& menu) {
    if (selected().empty()) return;
    QMenu* categories = menu.addMenu(tr("Category"));
    for (const Category& category : model_.library().categories)
        categories->addAction(Icons::categoryIcon(category.symbol, category.colorHex), toQt(category.name), this,
                              [this, id = category.id] { setCategory(id); });
    inspector_->fillMenu(menu);
    menu.addAction(tr("Looks Right"), this, &ExpensesScreen::looksRight);
    menu.addAction(tr("Copy"), this, [this] { ListParts::copyRows(*table_); });
    menu.addSeparator();
    menu.addAction(Icons::icon(QStringLiteral("trash"), &Colors::danger), tr("Delete"), this,
                   &ExpensesScreen::deleteSelected);
}

void ExpensesScreen::resizeEvent(QResizeEvent*) { arrange(); }

void ExpensesScreen::arrange() {
    // Wide windows have the receipt beside its fields, narrow ones above them.
    inspector_->setBeside(width() >= 1180);
    const int room = width() - (inspector_->isVisibleTo(this) ? inspector_->width() : 0);
    // What gives way first where the vendor's name would get too little room; a category keeps its glyph for longer.
    static constexpr ListParts::Width widths[] = {{Column::date, 104},  {Column::category, 186}, {Column::amount, 124},
                                                  {Column::tax, 104},   {Column::method, 110},   {Column::receipt, 36},
                                                  {Column::status, 112}};
    static constexpr ListParts::Width steps[] = {{Column::method, 0},  {Column::tax, 0},     {Column::category, 42},
                                                 {Column::receipt, 0}, {Column::status, 40}, {Column::category, 0}};
    ListParts::fitColumns(*table_, room, 208, widths, steps);
    // A glyph needs no title.
    rows_.setTitle(Column::category, table_->columnWidth(Column::category) < 60 ? QString() : tr("Category"));
    rows_.setTitle(Column::status, table_->columnWidth(Column::status) < 60 ? QString() : tr("Status"));
    tax_->setVisible(room >= 480);
    addReceipts_->setVisible(room >= 380);
}

}  // namespace tamba
