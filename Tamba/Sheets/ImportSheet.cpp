#include "Tamba/Sheets/ImportSheet.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Rows/Sentences.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/ColumnChoices.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/Overlays.h"
#include "Tamba/Widgets/RowDelegate.h"
#include "TambaCore/Base/Text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QShortcut>
#include <QTabBar>
#include <QTableView>

#include <algorithm>

namespace tamba {

using BankImport::Columns;
using BankImport::Role;

namespace {

enum Column { rowNumber, date, narration, moneyOut, moneyIn, balance, why, anyway };

const QString newAccountData = QStringLiteral("new");

QString counted(std::size_t count, const QString& one, const QString& many) {
    return count == 1 ? one : many.arg(count);
}

/// A tick in its box and the words beside it.
class TickDelegate : public RowDelegate {
public:
    using RowDelegate::RowDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        RowDelegate::paint(painter, option, index);
        const Colors colors = Colors::current();
        const bool on = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        const QRectF box(option.rect.left() + 12, option.rect.center().y() - 7, 15, 15);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(on ? colors.accent : colors.strongBorder);
        painter->setBrush(on ? colors.accent : colors.surface);
        painter->drawRoundedRect(box, 4, 4);
        if (on) Icons::paint(*painter, box.adjusted(1, 1, -1, -1), QStringLiteral("check"), colors.onAccent);
        painter->setPen(colors.text);
        painter->drawText(QRectF(option.rect).adjusted(36, 0, -4, 0), Qt::AlignVCenter, QObject::tr("Add anyway"));
        painter->restore();
    }
};

}  // namespace

/// The rows of the file as they stand in it. Those that gave no line are muted.
class ImportSheet::FileModel : public QAbstractTableModel {
public:
    FileModel(const BankImport::Table& table, std::size_t width, std::optional<std::size_t> header, QObject* parent)
        : QAbstractTableModel(parent), table_(table), width_(static_cast<int>(width)), header_(header) {}

    void setUsed(std::vector<std::size_t> rows) {
        used_ = std::move(rows);
        std::sort(used_.begin(), used_.end());
        if (rowCount({}) > 0) emit dataChanged(index(0, 0), index(rowCount({}) - 1, width_ - 1), {Qt::ForegroundRole});
    }
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(table_.rows.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : width_; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const auto at = static_cast<std::size_t>(index.row());
        const BankImport::Table::Row& row = table_.rows[at];
        const auto column = static_cast<std::size_t>(index.column());
        if ((role == Qt::DisplayRole || role == Qt::ToolTipRole) && column < row.cells.size())
            return toQt(row.cells[column]);
        if (role == RowDelegate::Strong) return header_ == at;
        if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
        if (role == Qt::ForegroundRole && header_ != at && !std::binary_search(used_.begin(), used_.end(), row.number))
            return Colors::current().muted;
        return {};
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Horizontal || role != Qt::DisplayRole) return {};
        return QString::number(table_.rows[static_cast<std::size_t>(section)].number);
    }

private:
    const BankImport::Table& table_;
    int width_;
    std::optional<std::size_t> header_;
    std::vector<std::size_t> used_;  // sorted
};

std::vector<ImportSheet::Model::Column> ImportSheet::columns() {
    const auto text = [](std::string ImportRow::* member, QColor Colors::* ink = &Colors::text) {
        return [member, ink](const ImportRow& row, int role) -> QVariant {
            if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return toQt(row.*member);
            return role == Qt::ForegroundRole ? QVariant(Colors::current().*ink) : QVariant();
        };
    };
    return {{tr("Row"), Qt::AlignRight, text(&ImportRow::row, &Colors::muted)},
            {tr("Date"), Qt::AlignLeft, text(&ImportRow::date)},
            {tr("Narration"), Qt::AlignLeft, text(&ImportRow::text)},
            {tr("Money out"), Qt::AlignRight, text(&ImportRow::moneyOut)},
            {tr("Money in"), Qt::AlignRight, text(&ImportRow::moneyIn)},
            {tr("Balance"), Qt::AlignRight, text(&ImportRow::balance, &Colors::muted)},
            {tr("Why"), Qt::AlignLeft, text(&ImportRow::why, &Colors::muted)},
            {{}, Qt::AlignLeft, [](const ImportRow& row, int role) -> QVariant {
                 if (role == Qt::CheckStateRole) return row.anyway ? Qt::Checked : Qt::Unchecked;
                 if (role == Qt::AccessibleTextRole) return row.anyway ? tr("Added anyway") : tr("Left out");
                 return {};
             }}};
}

ImportSheet::ImportSheet(QWidget* parent, const Library& library, StatementFile file, std::string_view kept)
    : Sheet(parent, Icon::none, tr("Import Statement"), {}),
      library_(library),
      file_(std::move(file)),
      reading_{.columns = file_.columns, .order = library.business.receiptDateOrder, .account = {}},
      newAccount_(BankAccount::make({}, library.business.homeCurrency)),
      width_(file_.width()),
      rows_(columns()) {
    if (library_.accounts.size() == 1) reading_.account = library_.accounts[0].id;
    if (!kept.empty()) reading_ = recalled(reading_, kept, file_, library_);
    auto* name = Controls::label(toQt(file_.name), "field", this);
    name->setText(name->fontMetrics().elidedText(toQt(file_.name), Qt::ElideMiddle, 900));
    body().addWidget(name);
    body().addWidget(makeAccount());
    body().addWidget(makeDates());
    if (file_.table) makeFile();
    makeList();
    strip_ = new ActivityStrip(this);
    body().addWidget(strip_);
    import_ = addButtons(tr("Import"), tr("Cancel"));
    setMinimumSize(820, 560);
    resize(1080, file_.table ? 760 : 600);
    fillAccounts();
    connect(strip_, &ActivityStrip::cancelled, this, &ImportSheet::giveUpReading);
    connect(account_, &QComboBox::currentIndexChanged, this, &ImportSheet::accountChosen);
    connect(currency_, &QComboBox::currentIndexChanged, this, &ImportSheet::reread);
    connect(name_, &QLineEdit::textChanged, this, &ImportSheet::refreshButton);
    connect(order_, &QComboBox::activated, this, [this] {
        reading_.order = static_cast<DateOrder>(order_->currentData().toInt());
        reread();
    });
    reread();
    focusFirst();
}

void ImportSheet::focusFirst() {
    if (!account())
        (name_->isHidden() ? static_cast<QWidget*>(account_) : name_)->setFocus();
    else
        (import_->isEnabled() ? static_cast<QWidget*>(import_) : account_)->setFocus();
}

QWidget* ImportSheet::makeAccount() {
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    account_ = makeChoice(box);
    Controls::name(*account_, "importAccount", tr("Account"));
    account_->setPlaceholderText(tr("Choose the account…"));
    account_->setMinimumWidth(240);
    name_ = new QLineEdit(box);
    Controls::name(*name_, "importAccountName", tr("Name of the new account"));
    name_->setPlaceholderText(tr("Name of the account, such as HDFC Current"));
    name_->setMinimumWidth(300);
    currency_ = makeChoice(box);
    Controls::name(*currency_, "importCurrency", tr("Currency of the new account"));
    currency_->setMinimumWidth(200);
    fillCurrencies(*currency_, library_.business.homeCurrency);
    chooseData(*currency_, toQt(library_.business.homeCurrency));
    auto* label = Controls::label(tr("Account"), "field", box);
    label->setFixedWidth(64);
    row->addWidget(label);
    row->addWidget(account_);
    row->addWidget(name_);
    row->addWidget(currency_);
    row->addStretch(1);
    return box;
}

QWidget* ImportSheet::makeDates() {
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    order_ = makeChoice(box);
    Controls::name(*order_, "importOrder", tr("How the dates are written"));
    order_->setMinimumWidth(240);
    order_->addItem(tr("Day first (31/12/2026)"), static_cast<int>(DateOrder::dmy));
    order_->addItem(tr("Month first (12/31/2026)"), static_cast<int>(DateOrder::mdy));
    order_->addItem(tr("Year first (2026/12/31)"), static_cast<int>(DateOrder::ymd));
    orderReason_ = Controls::label({}, "field", box);
    orderReason_->setObjectName(QStringLiteral("importOrderReason"));
    orderReason_->setWordWrap(true);
    auto* label = Controls::label(tr("Dates"), "field", box);
    label->setFixedWidth(64);
    row->addWidget(label);
    row->addWidget(order_);
    row->addWidget(orderReason_, 1);
    return box;
}

void ImportSheet::makeFile() {
    const int width = static_cast<int>(width_);
    auto* view = new QTableView(this);
    Controls::name(*view, "importFile", tr("The file as it was read"));
    fileModel_ = new FileModel(*file_.table, width_, file_.columns.header, view);
    choices_ = new ColumnChoices(view);
    view->setHorizontalHeader(choices_);
    view->setModel(fileModel_);
    view->setItemDelegate(new RowDelegate(view));
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setFocusPolicy(Qt::TabFocus);
    view->setTabKeyNavigation(false);
    view->installEventFilter(this);
    view->setShowGrid(false);
    view->setWordWrap(false);
    view->setFrameShape(QFrame::NoFrame);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->verticalHeader()->setDefaultSectionSize(28);
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    view->setCornerButtonEnabled(false);
    view->setMinimumHeight(130);
    choices_->setSectionResizeMode(QHeaderView::Interactive);
    const std::size_t first = file_.columns.header.value_or(0);
    for (int column = 0; column < width; ++column) {
        int wanted = 136;
        for (std::size_t i = first; i < std::min(first + 40, file_.table->rows.size()); ++i) {
            const auto& cells = file_.table->rows[i].cells;
            // What the bank writes below its table is not in columns.
            if (std::count(cells.begin(), cells.end(), std::string()) * 2 > std::ssize(cells)) continue;
            if (static_cast<std::size_t>(column) < cells.size())
                wanted = std::max(wanted, 32 + view->fontMetrics().horizontalAdvance(
                                                   toQt(cells[static_cast<std::size_t>(column)]).left(60)));
        }
        view->setColumnWidth(column, std::min(wanted, 300));
    }
    choices_->setCount(width, [](QComboBox& choice, int column) {
        choice.setObjectName(QStringLiteral("columnUse%1").arg(column));
        choice.setAccessibleName(tr("What column %1 is").arg(column + 1));
        for (const ColumnUse use : allColumnUses())
            choice.addItem(Translations::shown(title(use)), static_cast<int>(use));
        choice.setMaxVisibleItems(20);
    });
    connect(choices_, &ColumnChoices::chosen, this, &ImportSheet::use);
    connect(choices_, &ColumnChoices::focused, view,
            [this, view](int column) { view->scrollTo(fileModel_->index(view->rowAt(0), column)); });
    view->scrollTo(fileModel_->index(static_cast<int>(first), 0), QAbstractItemView::PositionAtTop);
    body().addWidget(view, 4);
    positive_ = new QCheckBox(tr("Charges are printed as positive amounts"), this);
    Controls::name(*positive_, "importPositive", positive_->text());
    positive_->setChecked(reading_.columns.signs == Columns::Signs::turned);
    connect(positive_, &QCheckBox::toggled, this, [this](bool on) {
        reading_.columns.signs = on ? Columns::Signs::turned : Columns::Signs::asPrinted;
        reread();
    });
    body().addWidget(positive_);
}

void ImportSheet::makeList() {
    notes_ = Controls::label({}, "field", this);
    notes_->setObjectName(QStringLiteral("importNotes"));
    notes_->setWordWrap(true);
    body().addWidget(notes_);
    summary_ = new QLabel(this);
    summary_->setObjectName(QStringLiteral("importSummary"));
    summary_->setWordWrap(true);
    body().addWidget(summary_);
    lists_ = new QTabBar(this);
    Controls::name(*lists_, "importLists", tr("Which rows are shown"));
    lists_->setDrawBase(false);
    lists_->setExpanding(false);
    for (int i = 0; i < 4; ++i) lists_->addTab({});
    connect(lists_, &QTabBar::currentChanged, this, &ImportSheet::refreshList);
    body().addWidget(lists_);
    view_ = new QTableView(this);
    Controls::name(*view_, "importLines", tr("Lines"));
    view_->setModel(&rows_);
    view_->setItemDelegate(new RowDelegate(view_));
    view_->setItemDelegateForColumn(anyway, new TickDelegate(view_));
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setShowGrid(false);
    view_->setWordWrap(false);
    view_->setTabKeyNavigation(false);
    view_->installEventFilter(this);
    view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->verticalHeader()->hide();
    view_->verticalHeader()->setDefaultSectionSize(30);
    QHeaderView* header = view_->horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionsClickable(false);
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionResizeMode(narration, QHeaderView::Stretch);
    header->setFixedHeight(30);
    for (const auto& [column, width] : {std::pair(rowNumber, 60),
                                        {date, 116},
                                        {moneyOut, 126},
                                        {moneyIn, 126},
                                        {balance, 136},
                                        {why, 300},
                                        {anyway, 130}})
        view_->setColumnWidth(column, width);
    view_->setMinimumHeight(120);
    connect(view_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == anyway) toggle(index);
    });
    auto* space = new QShortcut(Qt::Key_Space, view_, {}, {}, Qt::WidgetShortcut);
    connect(space, &QShortcut::activated, this, [this] { toggle(view_->currentIndex()); });
    body().addWidget(view_, 5);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    proofGlyph_ = new QLabel(this);
    proof_ = new QLabel(this);
    proof_->setObjectName(QStringLiteral("importProof"));
    row->addWidget(proofGlyph_);
    row->addWidget(proof_, 1);
    body().addLayout(row);
}

void ImportSheet::fillAccounts() {
    for (const BankAccount& account : library_.accounts)
        account_->addItem(account.currency == library_.business.homeCurrency
                              ? toQt(account.name)
                              : tr("%1 · %2").arg(toQt(account.name), toQt(account.currency)),
                          toQt(account.id.text()));
    account_->addItem(tr("New account…"), newAccountData);
    account_->setCurrentIndex(reading_.account            ? account_->findData(toQt(reading_.account->text()))
                              : library_.accounts.empty() ? 0
                                                          : -1);
    name_->setVisible(account_->currentData() == newAccountData);
    currency_->setVisible(account_->currentData() == newAccountData);
}

std::optional<BankAccount> ImportSheet::account() const {
    if (reading_.account)
        if (const BankAccount* account = tamba::find(library_.accounts, *reading_.account)) return *account;
    if (account_->currentData() != newAccountData) return {};
    BankAccount account = newAccount_;
    account.name = std::string(Text::trim(toStd(name_->text())));
    account.currency = toStd(currency_->currentData().toString());
    if (account.name.empty()) return {};
    for (const BankAccount& other : library_.accounts)
        if (Text::lower(other.name) == Text::lower(account.name)) return {};
    return account;
}

Currency ImportSheet::currency() const {
    const BankAccount* present = reading_.account ? tamba::find(library_.accounts, *reading_.account) : nullptr;
    if (present) return Currency::of(present->currency);
    return Currency::of(account_->currentData() == newAccountData ? toStd(currency_->currentData().toString())
                                                                  : library_.business.homeCurrency);
}

void ImportSheet::accountChosen() {
    const Currency before = currency();
    const bool isNew = account_->currentData() == newAccountData;
    reading_.account = isNew ? std::nullopt : UUID::parse(toStd(account_->currentData().toString()));
    name_->setVisible(isNew);
    currency_->setVisible(isNew);
    if (isNew) name_->setFocus();
    // The decimals of the currency are in every amount.
    if (currency().code != before.code) return reread();
    refreshButton();
}

void ImportSheet::use(int column, int use) {
    reading_.columns =
        withUse(std::move(reading_.columns), static_cast<std::size_t>(column), static_cast<ColumnUse>(use));
    reread();
}

void ImportSheet::toggle(const QModelIndex& index) {
    if (!index.isValid() || static_cast<ImportList>(lists_->currentIndex()) != ImportList::held) return;
    ImportRow& row = outcome_.table.held.at(static_cast<std::size_t>(index.row()));
    row.anyway = !row.anyway;
    refreshList();
    refreshButton();
}

ImportSheet::Outcome ImportSheet::read(const Library& library, const StatementFile& file,
                                       const StatementReading& reading, const Currency& currency,
                                       const std::atomic<bool>* cancel) {
    Outcome outcome;
    try {
        outcome.parsed = parsed(file, reading, currency, cancel);
    } catch (const std::exception& error) {
        outcome.problem = error.what();
    }
    outcome.table = importTable(library, outcome.parsed, currency);
    return outcome;
}

void ImportSheet::reread() {
    refreshChoices();
    // What is read in the time between two pictures of the screen needs no thread.
    constexpr std::size_t few = 10'000, bytesOfLine = 100;
    const std::size_t rows = file_.table ? file_.table->rows.size() : file_.bytes.size() / bytesOfLine;
    if (rows + library_.transactions.size() <= few) return take(read(library_, file_, reading_, currency(), nullptr));
    background_.start([this, reading = reading_, currency = currency()](const auto& cancel) -> Background::Done {
        try {
            auto outcome = std::make_shared<Outcome>(read(library_, file_, reading, currency, &cancel));
            return [this, outcome] { take(std::move(*outcome)); };
        } catch (const BankImport::Cancelled&) {
            return {};
        }
    });
    strip_->show(tr("Reading %1").arg(toQt(file_.name)), 0, 0);
    view_->setEnabled(false);
    if (shown_) return refreshButton();
    refreshTexts();
    summary_->clear();
}

void ImportSheet::take(Outcome outcome) {
    outcome_ = std::move(outcome);
    const bool first = !shown_;
    shown_ = {reading_, account_->currentIndex(), currency_->currentIndex()};
    strip_->hide();
    view_->setEnabled(true);
    if (fileModel_) fileModel_->setUsed(outcome_.parsed.rows);
    const bool dated = !outcome_.parsed.orderReason.empty();
    order_->setCurrentIndex(order_->findData(static_cast<int>(dated ? outcome_.parsed.order : reading_.order)));
    orderReason_->setText(Translations::shown(outcome_.parsed.orderReason));
    order_->parentWidget()->setVisible(dated || file_.table.has_value());
    refreshTexts();
    if (first) focusFirst();
}

void ImportSheet::giveUpReading() {
    background_.cancel();
    if (!shown_) return reject();
    reading_ = shown_->reading;
    {
        const QSignalBlocker quietAccount(account_), quietCurrency(currency_);
        account_->setCurrentIndex(shown_->account);
        currency_->setCurrentIndex(shown_->currency);
    }
    accountChosen();
    refreshChoices();
    take(std::move(outcome_));
}

void ImportSheet::refreshChoices() {
    if (choices_)
        for (std::size_t column = 0; column < width_; ++column)
            choices_->choose(static_cast<int>(column), static_cast<int>(useOf(reading_.columns, column)));
    if (!positive_) return;
    const QSignalBlocker quiet(positive_);
    positive_->setChecked(reading_.columns.signs == Columns::Signs::turned);
    positive_->setVisible(reading_.columns[Role::amount].has_value());
}

void ImportSheet::refreshTexts() {
    const ImportTable& table = outcome_.table;
    setRole(*summary_, outcome_.problem.empty() ? "sum" : "problem");
    summary_->setText(toQt(outcome_.problem.empty() ? table.summary : outcome_.problem));
    QStringList notes;
    for (const std::string& note : outcome_.parsed.notes) notes << toQt(Sentences::shown(note));
    if (notes.size() > 3) notes = notes.mid(0, 3) << tr("… and %1 more").arg(notes.size() - 3);
    notes_->setText(notes.join(QLatin1Char('\n')));
    notes_->setVisible(!notes.isEmpty());
    const auto tab = [&](ImportList list, const QString& title) {
        const int index = static_cast<int>(list);
        const std::size_t count = table.list(list).size();
        lists_->setTabText(index, tr("%1 · %2").arg(title).arg(count));
        lists_->setTabVisible(index, count > 0 || list == ImportList::added);
    };
    tab(ImportList::added, tr("Will be added"));
    const std::size_t repeated = table.repeated();
    tab(ImportList::held, repeated == 0                   ? tr("Already in the books")
                          : repeated == table.held.size() ? tr("Repeated in this file")
                                                          : tr("Already there"));
    tab(ImportList::skipped, tr("Skipped rows"));
    tab(ImportList::breaks, tr("Balance breaks"));
    proof_->setVisible(!table.proof.empty());
    proofGlyph_->setVisible(!table.proof.empty());
    proof_->setText(toQt(table.proof));
    setRole(*proof_, table.closes ? "outcome" : "warning");
    proofGlyph_->setPixmap(Icons::icon(table.closes ? QStringLiteral("done") : QStringLiteral("alert"),
                                       table.closes ? &Colors::success : &Colors::warning)
                               .pixmap(QSize(18, 18), devicePixelRatioF()));
    refreshList();
    refreshButton();
}

void ImportSheet::refreshList() {
    const auto list = static_cast<ImportList>(std::max(0, lists_->currentIndex()));
    const bool skipped = list == ImportList::skipped;
    for (const Column column : {date, moneyOut, moneyIn}) view_->setColumnHidden(column, skipped);
    view_->setColumnHidden(balance, list != ImportList::added);
    view_->setColumnHidden(why, list == ImportList::added);
    view_->setColumnHidden(anyway, list != ImportList::held);
    view_->setColumnWidth(why, skipped ? 480 : list == ImportList::breaks ? 400 : 300);
    rows_.setTitle(narration, skipped ? tr("Row as printed") : tr("Narration"));
    rows_.setTitle(why, list == ImportList::held && outcome_.table.repeated() == 0 ? tr("In the books as") : tr("Why"));
    rows_.setRows(outcome_.table.list(list));
}

void ImportSheet::refreshButton() {
    const bool isNew = account_->currentData() == newAccountData;
    const bool taken = isNew && !account() && !name_->text().trimmed().isEmpty();
    Controls::markProblem(*name_, taken ? tr("There is an account of that name already.") : QString());
    const std::size_t count = outcome_.table.count();
    import_->setText(count == 0 ? tr("Import") : counted(count, tr("Import 1 Line"), tr("Import %1 Lines")));
    import_->setEnabled(count > 0 && account().has_value() && !isReading());
    import_->setToolTip(count > 0 && !account() ? tr("Say which account this statement is of.") : QString());
}

bool ImportSheet::eventFilter(QObject* watched, QEvent* event) {
    // The keys need a row to begin from.
    auto* view = qobject_cast<QTableView*>(watched);
    if (view && event->type() == QEvent::FocusIn && !view->selectionModel()->hasSelection())
        view->selectRow(std::max(0, view->rowAt(0)));
    return Sheet::eventFilter(watched, event);
}

void ImportSheet::showList(ImportList list) { lists_->setCurrentIndex(static_cast<int>(list)); }

StatementEdit ImportSheet::edit() const {
    return {outcome_.parsed.transactions, outcome_.table.anyway(), account().value_or(newAccount_)};
}

std::string ImportSheet::kept() const {
    StatementReading reading = reading_;
    reading.account = account().value_or(newAccount_).id;
    return remembered(reading);
}

}  // namespace tamba
