#include "Tamba/Screens/BankScreen.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Screens/SuggestionsPane.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/EmptyState.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/ListParts.h"
#include "Tamba/Widgets/PeriodPicker.h"
#include "Tamba/Widgets/RowDelegate.h"
#include "Tamba/Widgets/WhenSeen.h"

#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace tamba {
namespace {

enum Column { date, name, amount, matched, status };

}  // namespace

std::vector<BankScreen::Model::Column> BankScreen::columns() const {
    return {
        {tr("Date"), Qt::AlignLeft,
         [](const BankRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return toQt(row.date);
             return {};
         }},
        {tr("Line"), Qt::AlignLeft,
         [this](const BankRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return toQt(row.name);
             if (role == RowDelegate::Strong) return true;
             if (role == RowDelegate::Second) return toQt(row.narration);
             if (role == RowDelegate::Folded && narrow_) return toQt(row.date);
             if (role == Qt::ToolTipRole) return toQt(row.narration.empty() ? row.name : row.narration);
             if (role == Qt::AccessibleTextRole) return toQt(row.name + ", " + row.narration);
             return {};
         }},
        {tr("Amount"), Qt::AlignRight,
         [](const BankRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return toQt(row.amount);
             if (role == Qt::ForegroundRole && row.in) return Colors::current().success;
             if (role == RowDelegate::Second) return toQt(row.balance);
             if (role == Qt::AccessibleTextRole) return toQt(row.amount + ", " + row.balance);
             return {};
         }},
        {tr("Matched to"), Qt::AlignLeft,
         [](const BankRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return toQt(row.matched);
             if (role == RowDelegate::Second) return toQt(row.rest);
             if (role == Qt::AccessibleTextRole && !row.rest.empty()) return toQt(row.matched + ", " + row.rest);
             return {};
         }},
        {tr("Status"), Qt::AlignLeft,
         [](const BankRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return toQt(row.status);
             if (role == Qt::ToolTipRole) return toQt(row.rest.empty() ? row.status : row.rest);
             if (role == RowDelegate::Pill) return static_cast<int>(row.tone);
             return {};
         }},
    };
}

BankScreen::BankScreen(AppModel& model, Prompts& prompts, QWidget* parent)
    : QWidget(parent), model_(model), prompts_(prompts), rows_(columns()) {
    setObjectName(QStringLiteral("bankScreen"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(makeHeader());
    auto* columns = new QHBoxLayout;
    columns->setSpacing(0);
    makeTable();
    const auto body = ListParts::body(nullptr, table_, footer_ = makeFooter(), this);
    pages_ = body.pages;
    empty_ = body.empty;
    columns->addLayout(body.column, 1);
    pane_ = new SuggestionsPane(model_, prompts_, this);
    columns->addWidget(pane_);
    rows->addLayout(columns, 1);
    makeConnections();
    fillAccounts();
    refresh();
}

QWidget* BankScreen::makeHeader() {
    const auto [header, top, tools] = ListParts::header(ListParts::Heading::tabs, this);
    lists_ = new QTabBar(header);
    Controls::name(*lists_, "bankLists", tr("Which bank lines"));
    lists_->setDrawBase(false);
    lists_->setExpanding(false);
    lists_->setElideMode(Qt::ElideNone);
    for (const BankList list : allBankLists) lists_->addTab(Translations::shown(title(list)));
    import_ = Controls::button(tr("Import Statement…"), "importStatement", Controls::Kind::plain, header);
    obvious_ = Controls::button(tr("Match the Obvious Ones"), "matchObvious", Controls::Kind::primary, header);
    obvious_->setToolTip(tr("Match every line that has one clear counterpart (F5)"));
    top->addWidget(lists_, 1, Qt::AlignLeft);
    top->addWidget(import_);
    top->addWidget(obvious_);
    search_ = ListParts::search("bankSearch", tr("Search bank lines"), tr("Search name, narration, amount"), header);
    account_ = makeChoice(header);
    Controls::name(*account_, "bankAccount", tr("Account"));
    account_->setFixedWidth(160);
    accounts_ = Controls::iconButton(QStringLiteral("more"), tr("Add or rename accounts"), "bankAccounts", header);
    period_ = new PeriodPicker(model_.today(), 4, header);
    tools->addWidget(search_, 1);
    auto* account = new QHBoxLayout;
    account->setSpacing(2);
    account->addWidget(account_);
    account->addWidget(accounts_);
    tools->addLayout(account);
    tools->addWidget(period_);
    return header;
}

QWidget* BankScreen::makeFooter() {
    const auto [footer, layout] = ListParts::footer(this);
    count_ = Controls::label({}, "field", footer);
    count_->setObjectName(QStringLiteral("bankCount"));
    in_ = Controls::label({}, "field", footer);
    out_ = Controls::label({}, "field", footer);
    layout->addWidget(count_);
    layout->addStretch(1);
    layout->addWidget(in_);
    layout->addWidget(out_);
    return footer;
}

void BankScreen::makeTable() {
    table_ = ListParts::table(rows_, "bankLines", tr("Bank lines"),
                              {.rowHeight = RowDelegate::tallRowHeight,
                               .stretched = Column::name,
                               .sorted = Column::date,
                               .order = Qt::DescendingOrder},
                              this);
    keepSelection(*table_, rows_);
    ListParts::setHabits(*table_, {.fillMenu = [this](QMenu& menu) { fillMenu(menu); },
                                   .sort = [this](int column) { sortBy(column); },
                                   .ordered = Column::matched});
    table_->installEventFilter(this);
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &BankScreen::selectionChanged);
}

void BankScreen::fillMenu(QMenu& menu) {
    if (!selected()) return;
    pane_->fillMenu(menu);
    menu.addSeparator();
    menu.addAction(tr("Copy"), this, [this] { ListParts::copyRows(*table_); });
}

void BankScreen::makeConnections() {
    connect(lists_, &QTabBar::currentChanged, this, [this](int index) { showList(allBankLists[index]); });
    connect(import_, &QPushButton::clicked, this, &BankScreen::importChosen);
    connect(obvious_, &QPushButton::clicked, this, &BankScreen::matchObvious);
    connect(search_, &QLineEdit::textChanged, this, &BankScreen::refresh);
    connect(account_, &QComboBox::activated, this, &BankScreen::refresh);
    connect(accounts_, &QToolButton::clicked, this, &BankScreen::accountMenu);
    connect(period_, &PeriodPicker::chosen, this, &BankScreen::refresh);
    connect(empty_, &EmptyState::actionChosen, this, [this] {
        if (model_.library().transactions.empty()) return void(emit importChosen());
        clearFilters();
        if (filter_.list != BankList::open || openLines(model_.library()) == 0) showList(BankList::all);
    });
    connect(pane_, &SuggestionsPane::settled, this, &BankScreen::selectNextOpen);
    connect(pane_, &SuggestionsPane::keysReturned, this, [this] { table_->setFocus(); });
    connect(search_, &QLineEdit::returnPressed, this, [this] { table_->setFocus(); });
    connect(pane_, &SuggestionsPane::expenseChosen, this, &BankScreen::expenseChosen);
    connect(pane_, &SuggestionsPane::documentChosen, this, &BankScreen::documentChosen);
    seen_ = new WhenSeen(*this, model_, [this] { refresh(); });
    connect(&model_, &AppModel::changed, this, [this](const Library& before, const Library& after) {
        if (before.accounts != after.accounts) fillAccounts();
        seen_->refresh();
    });
    connect(&model_, &AppModel::opened, this, [this] {
        lastRow_ = 0;
        fillAccounts();
        seen_->refreshThen([this] {
            clearFilters();
            showList(BankList::open);
        });
    });
}

void BankScreen::showList(BankList list) {
    filter_.list = list;
    {
        const QSignalBlocker quiet(lists_);
        lists_->setCurrentIndex(static_cast<int>(list));
    }
    refresh();
}

void BankScreen::fillAccounts() {
    const QVariant chosen = account_->currentData();
    account_->clear();
    account_->addItem(tr("All accounts"), QString());
    for (const BankAccount& account : model_.library().accounts)
        account_->addItem(toQt(account.name), toQt(account.id.text()));
    chooseData(*account_, chosen.toString());
}

const BankAccount* BankScreen::chosenAccount() const {
    const auto id = UUID::parse(toStd(account_->currentData().toString()));
    return id ? tamba::find(model_.library().accounts, *id) : nullptr;
}

void BankScreen::refresh() {
    if (filling_) return;
    const Library& library = model_.library();
    period_->setYearStart(library.fyStart());
    filter_.days = period_->days();
    filter_.search = toStd(search_->text());
    const BankAccount* account = chosenAccount();
    filter_.account = account ? std::optional(account->id) : std::nullopt;

    BankTable table = listing_.table(library, filter_);
    for (std::size_t i = 0; i < std::size(allBankLists); ++i)
        lists_->setTabText(
            static_cast<int>(i),
            QStringLiteral("%1  %2").arg(Translations::shown(title(allBankLists[i]))).arg(table.counts[i]));
    const bool none = table.rows.empty();
    {
        const QScopedValueRollback guard(filling_, true);
        rows_.setRows(std::move(table.rows));
        const auto shown = pane_->line();
        if (shown && rows_.rowOf(*shown))
            selectIds(*table_, rows_, {*shown});
        else if (!none)  // the line after the one that left the list is in its place now
            selectIds(*table_, rows_, {rows_.id(std::min(lastRow_, rows_.rowCount() - 1))});
    }
    if (none) pane_->setLine({});
    selectionChanged();
    count_->setText(toQt(table.count));
    in_->setText(table.in.empty() ? QString() : tr("In %1").arg(toQt(table.in)));
    out_->setText(table.out.empty() ? QString() : tr("Out %1").arg(toQt(table.out)));
    const bool any = !library.transactions.empty();
    obvious_->setEnabled(openLines(library) > 0);
    footer_->setVisible(any);
    pane_->setVisible(any);
    pages_->setCurrentWidget(none ? static_cast<QWidget*>(empty_) : table_);
    if (none) refreshEmptyState();
    arrange();
}

void BankScreen::refreshEmptyState() {
    const Library& library = model_.library();
    if (library.transactions.empty())
        return empty_->set(QStringLiteral("category-bank"), tr("Bring in your bank statement"),
                           tr("Download it from your bank’s site as CSV, Excel or OFX; every line is then matched with "
                              "an expense or an invoice."),
                           tr("Import Statement…"), {});
    if (filter_.list == BankList::open && openLines(library) == 0)
        return empty_->set(QStringLiteral("done"), tr("Everything is matched."),
                           tr("New lines appear here when you import the next statement."), tr("Show All Lines"), {});
    empty_->set(QStringLiteral("search"), tr("Nothing here"),
                tr("No bank line fits this list, search, account and period."), tr("Show All Lines"), {});
}

void BankScreen::clearFilters() {
    {
        const QScopedValueRollback guard(filling_, true);
        search_->clear();
        account_->setCurrentIndex(0);
        period_->choose(Span::all, model_.today());
    }
    refresh();
}

void BankScreen::selectionChanged() {
    if (filling_) return;
    const auto ids = selectedIds(*table_, rows_);
    if (ids.empty()) return;
    lastRow_ = rows_.rowOf(ids.front()).value_or(0);
    pane_->setLine(ids.front());
}

void BankScreen::select(const UUID& line) {
    const BankTransaction* wanted = tamba::find(model_.library().transactions, line);
    if (!wanted) return;
    seen_->catchUp();
    if (!rows_.rowOf(line)) clearFilters();
    if (!rows_.rowOf(line)) showList(BankList::all);
    selectIds(*table_, rows_, {line});
}

std::optional<UUID> BankScreen::selected() const { return pane_->line(); }

void BankScreen::selectNextOpen(const UUID& after) {
    table_->setFocus();  // a click on a suggestion has taken it
    const auto row = rows_.rowOf(after);
    if (!row) return;  // it has left the list, and the next is selected already
    const int count = rows_.rowCount();
    for (int step = 1; step < count; ++step) {
        const int next = (*row + step) % count;
        if (rows_.rows()[static_cast<std::size_t>(next)].open) return selectIds(*table_, rows_, {rows_.id(next)});
    }
}

void BankScreen::matchObvious() {
    int count = 0;
    const bool done = model_.perform(tr("Match the Obvious Ones"), [&count](Library library, Day) {
        Bank::AutoMatched result = Bank::autoMatch(std::move(library));
        count = result.count;
        return result.library;
    });
    if (!done) return;
    if (count == 0)
        emit noticed(openLines(model_.library()) == 0 ? tr("Everything is matched.")
                                                      : tr("Nothing is obvious: look through the open lines."));
    else
        emit matched(count == 1 ? tr("1 line matched") : tr("%1 lines matched").arg(count));
}

void BankScreen::addAccount() {
    const auto account =
        prompts_.bankAccount(model_.library(), BankAccount::make({}, model_.library().business.homeCurrency));
    if (!account) return;
    const bool done = model_.perform(tr("Add Account"), [&account](Library library, Day) {
        library.accounts.append(*account);
        return library;
    });
    if (!done) return;
    chooseData(*account_, toQt(account->id.text()));
    refresh();
}

void BankScreen::renameAccount() {
    const BankAccount* chosen = chosenAccount();
    if (!chosen && model_.library().accounts.size() == 1) chosen = &model_.library().accounts[0];
    if (!chosen) return void(emit noticed(tr("Choose the account first.")));
    const auto account = prompts_.bankAccount(model_.library(), *chosen);
    if (!account) return;
    model_.perform(tr("Change Account"), [&account](Library library, Day) {
        const std::size_t index = indexOf(library.accounts, account->id);
        if (index < library.accounts.size())
            library.accounts.update(index, [&account](BankAccount& present) {
                present.name = account->name;
                present.currency = account->currency;
            });
        return library;
    });
}

void BankScreen::accountMenu() {
    QMenu menu(this);
    menu.addAction(Icons::icon(QStringLiteral("plus"), &Colors::muted), tr("Add Account…"), this,
                   &BankScreen::addAccount);
    menu.addAction(tr("Change This Account…"), this, &BankScreen::renameAccount);
    menu.exec(accounts_->mapToGlobal(QPoint(0, accounts_->height())));
}

void BankScreen::deleteSelected() {
    emit noticed(tr("Bank lines are not deleted: set aside the ones that belong to nothing."));
}

void BankScreen::focusSearch() { ListParts::beginSearch(*search_); }

void BankScreen::sortBy(int column) {
    if (column > Column::amount)
        return table_->horizontalHeader()->setSortIndicator(
            static_cast<int>(filter_.order), filter_.ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    static constexpr BankOrder orders[] = {BankOrder::date, BankOrder::name, BankOrder::amount};
    const BankOrder order = orders[column];
    // Figures and dates begin with the largest, words with A.
    ListParts::orderBy(*table_, column, filter_, order, order == BankOrder::name);
    refresh();
}

bool BankScreen::takeKey(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    return modifiers == Qt::NoModifier && !event.isAutoRepeat() && pane_->takeKey(event.key());
}

void BankScreen::keyPressEvent(QKeyEvent* event) {
    if (!takeKey(*event)) QWidget::keyPressEvent(event);
}

bool BankScreen::eventFilter(QObject* watched, QEvent* event) {
    // Before the table looks for a row that begins with the letter.
    if (watched == table_ && event->type() == QEvent::KeyPress && takeKey(*static_cast<QKeyEvent*>(event))) return true;
    return QWidget::eventFilter(watched, event);
}

void BankScreen::resizeEvent(QResizeEvent*) { arrange(); }

void BankScreen::showEvent(QShowEvent*) {
    refresh();
    // The keys are for the lines at once.
    table_->setFocus();
}

void BankScreen::arrange() {
    const int room = width() - (pane_->isHidden() ? 0 : pane_->width());
    // No open line is matched to anything.
    const bool anyMatched = filter_.list == BankList::matched || filter_.list == BankList::all;
    const bool several = filter_.list == BankList::all;
    const int matchedWidth = room >= 900 ? 260 : 190;
    const ListParts::Width widths[] = {{Column::status, several ? 124 : 0},
                                       {Column::matched, anyMatched ? matchedWidth : 0},
                                       {Column::date, 104},
                                       {Column::amount, 150}};
    // What gives way first where the line itself would get too little room.
    static constexpr ListParts::Width steps[] = {
        {Column::status, 0}, {Column::matched, 0}, {Column::date, 0}, {Column::amount, 0}};
    ListParts::fitColumns(*table_, room, 200, widths, steps);
    narrow_ = table_->isColumnHidden(Column::date);
    // The tabs need the room.
    obvious_->setText(width() < 860 ? tr("Match Obvious") : tr("Match the Obvious Ones"));
    import_->setText(width() < 860 ? tr("Import…") : tr("Import Statement…"));
}

}  // namespace tamba
