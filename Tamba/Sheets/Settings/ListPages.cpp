#include "Tamba/Sheets/Settings/ListPages.h"

#include "Tamba/QtText.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Documents/Expenses.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace tamba {

ItemsPage::ItemsPage(const Library& library, QWidget* parent)
    : SettingsPage(parent), currency_(library.home()), taxBP_(library.business.defaultTaxBP) {
    for (const CatalogItem& item : library.items) items_.push_back(item);
    auto* box = new QWidget(this);
    auto* columns = new QHBoxLayout(box);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(16);
    auto* left = new QVBoxLayout;
    left->setSpacing(6);
    list_ = new QListWidget(box);
    Controls::name(*list_, "items", tr("Items"));
    list_->setFixedWidth(190);
    list_->setMinimumHeight(330);
    auto* buttons = new QHBoxLayout;
    auto* add = Controls::button(tr("Add Item"), "addItem", Controls::Kind::link, box);
    auto* remove = Controls::button(tr("Remove"), "removeItem", Controls::Kind::link, box);
    buttons->addWidget(add);
    buttons->addStretch(1);
    buttons->addWidget(remove);
    left->addWidget(list_, 1);
    left->addLayout(buttons);
    columns->addLayout(left);
    fields_ = new QWidget(box);
    makeFields(library.business);
    columns->addWidget(fields_, 1, Qt::AlignTop);
    form.addRow(Controls::label(tr("What you bill again and again. Type its name in a line of an invoice."), "field"));
    form.addRow(box);
    connect(add, &QPushButton::clicked, this, &ItemsPage::add);
    connect(remove, &QPushButton::clicked, this, &ItemsPage::remove);
    connect(list_, &QListWidget::currentRowChanged, this, &ItemsPage::choose);
    refreshList();
    choose(-1);
    if (!items_.empty()) list_->setCurrentRow(0);
}

void ItemsPage::select(const UUID& item) {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const CatalogItem& each) { return each.id == item; });
    if (found != items_.end()) list_->setCurrentRow(static_cast<int>(found - items_.begin()));
}

void ItemsPage::makeFields(const Business& business) {
    auto* fields = new Form(*fields_, 84);
    fields_->setLayout(fields);
    name_ = fields->line(tr("Name"), "itemName");
    detail_ = fields->text(tr("Detail"), "itemDetail", 2);
    hsn_ = fields->line(tr("HSN or SAC"), "itemHSN");
    unit_ = fields->line(tr("Unit"), "itemUnit");
    unit_->setPlaceholderText(tr("day, hour, piece"));
    price_ = fields->amount(tr("Price"), "itemPrice");
    tax_ = fields->combo(tr("Tax"), "itemTax");
    for (const int rate : isIndia(business.regime) ? TaxRates::gst() : TaxRates::common())
        tax_->addItem(toQt(MoneyFormat::rate(rate)), rate);
    for (QLineEdit* field : {name_, hsn_, unit_, price_})
        connect(field, &QLineEdit::textChanged, this, &ItemsPage::take);
    connect(detail_, &QPlainTextEdit::textChanged, this, &ItemsPage::take);
    connect(tax_, &QComboBox::activated, this, &ItemsPage::take);
}

void ItemsPage::refreshList() {
    const QSignalBlocker block(list_);
    const int row = list_->currentRow();
    list_->clear();
    for (const CatalogItem& item : items_) {
        auto* entry = new QListWidgetItem(item.name.empty() ? tr("New item") : toQt(item.name), list_);
        entry->setSizeHint(QSize(0, 34));
    }
    list_->setCurrentRow(std::min(row, list_->count() - 1));
}

void ItemsPage::add() {
    CatalogItem item = CatalogItem::make("");
    item.taxBP = taxBP_;
    items_.push_back(item);
    refreshList();
    list_->setCurrentRow(list_->count() - 1);
    name_->setFocus();
}

void ItemsPage::remove() {
    const int row = list_->currentRow();
    if (row < 0) return;
    items_.erase(items_.begin() + row);
    refreshList();
    choose(list_->currentRow());
    emit edited();
}

void ItemsPage::choose(int row) {
    const QScopedValueRollback guard(filling_, true);
    fields_->setVisible(row >= 0);
    good_ = true;
    if (row < 0) return;
    const CatalogItem& item = items_[static_cast<std::size_t>(row)];
    name_->setText(toQt(item.name));
    detail_->setPlainText(toQt(item.detail));
    hsn_->setText(toQt(item.hsn));
    unit_->setText(toQt(item.unit));
    price_->setText(toQt(MoneyFormat::string(item.priceMinor, currency_, MoneyFormat::Symbol::hidden)));
    Controls::markProblem(*price_, {});
    if (tax_->findData(item.taxBP) < 0) tax_->addItem(toQt(MoneyFormat::rate(item.taxBP)), item.taxBP);
    tax_->setCurrentIndex(tax_->findData(item.taxBP));
}

void ItemsPage::take() {
    const int row = list_->currentRow();
    if (filling_ || row < 0) return;
    CatalogItem& item = items_[static_cast<std::size_t>(row)];
    item.name = toStd(name_->text().trimmed());
    item.detail = toStd(detail_->toPlainText());
    item.hsn = toStd(hsn_->text().trimmed());
    item.unit = toStd(unit_->text().trimmed());
    item.taxBP = tax_->currentData().toInt();
    const auto price = amountIn(*price_, currency_);
    good_ = price && *price >= 0;
    if (good_) item.priceMinor = *price;
    Controls::markProblem(*price_, good_ ? QString() : tr("Enter an amount such as 1,180.00."));
    list_->item(row)->setText(item.name.empty() ? tr("New item") : toQt(item.name));
    emit edited();
}

void ItemsPage::store(Library& library) const {
    for (std::size_t i = library.items.size(); i-- > 0;) {
        const UUID id = library.items[i].id;
        if (std::none_of(items_.begin(), items_.end(), [&](const CatalogItem& item) { return item.id == id; }))
            library = Clients::removeItem(std::move(library), id);
    }
    for (const CatalogItem& item : items_)
        if (!item.name.empty()) library = Clients::put(std::move(library), item);
}

RatesPage::RatesPage(const Library& library, Day today, QWidget* parent) : SettingsPage(parent), today_(today) {
    const std::string home = library.business.homeCurrency;
    auto* words = Controls::label({}, "field", this);
    words->setText(Controls::wrapped(tr("%1 for one unit of the currency. New documents and expenses start with this "
                                        "rate; earlier ones keep theirs.")
                                         .arg(toQt(home)),
                                     *words, 560));
    form.addRow(words);
    none_ = Controls::label(tr("No rate is kept yet."), "caption", this);
    form.addRow(none_);
    rates_ = new QFormLayout;
    rates_->setHorizontalSpacing(16);
    rates_->setVerticalSpacing(8);
    form.addRow(rates_);
    for (const FXRate& rate : library.rates)
        add(rate.currency, toQt(MoneyFormat::fxRate(rate.rateMicros)), toQt(rate.updated.formatted("d MMM yyyy")));
    auto* more = makeChoice(this);
    Controls::name(*more, "addRate", tr("Add a currency"));
    more->setFixedWidth(260);
    more->addItem(tr("Add a currency…"));
    for (const Currency& currency : Currency::all())
        if (currency.code != home)
            more->addItem(Translations::shown(currency.code + " · " + currency.name), toQt(currency.code));
    form.addRow(more);
    connect(more, &QComboBox::activated, this, [this, more](int index) {
        const std::string code = toStd(more->itemData(index).toString());
        more->setCurrentIndex(0);
        if (index == 0 || std::any_of(rows_.begin(), rows_.end(), [&](const Row& row) { return row.currency == code; }))
            return;
        add(code, {}, {});
        rows_.back().rate->setFocus();
    });
    refresh();
}

void RatesPage::add(const std::string& currency, const QString& rate, const QString& kept) {
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(10);
    auto* field = new QLineEdit(rate, box);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setFixedWidth(130);
    field->setPlaceholderText(QStringLiteral("83.25"));
    field->setObjectName(QStringLiteral("rate%1").arg(toQt(currency)));
    field->setAccessibleName(tr("Rate of %1").arg(toQt(currency)));
    row->addWidget(field);
    row->addWidget(Controls::label(kept.isEmpty() ? QString() : tr("since %1").arg(kept), "caption", box), 1);
    auto* label = Controls::label(Translations::shown(currency + " · " + Currency::of(currency).name), "field", this);
    label->setFixedWidth(170);
    label->setMinimumHeight(30);
    rates_->addRow(label, box);
    rows_.push_back({currency, field});
    connect(field, &QLineEdit::textChanged, this, &RatesPage::refresh);
    refresh();
}

std::optional<std::int64_t> RatesPage::rateIn(const Row& row) {
    const auto rate = MoneyFormat::parseFXRate(toStd(row.rate->text().trimmed()));
    return rate && isBelievable(*rate) && *rate > 0 ? rate : std::nullopt;
}

void RatesPage::refresh() {
    none_->setVisible(rows_.empty());
    for (const Row& row : rows_)
        Controls::markProblem(*row.rate, row.rate->text().trimmed().isEmpty() || rateIn(row)
                                             ? QString()
                                             : tr("Enter a rate such as 83.25."));
    emit edited();
}

bool RatesPage::isGood() const {
    return std::all_of(rows_.begin(), rows_.end(),
                       [](const Row& row) { return row.rate->text().trimmed().isEmpty() || rateIn(row); });
}

void RatesPage::store(Library& library) const {
    for (const Row& row : rows_) {
        const auto rate = rateIn(row);
        // What cannot be read is no wish to forget the rate.
        if (rate || row.rate->text().trimmed().isEmpty())
            library = Expenses::keepRate(std::move(library), row.currency, rate, today_);
    }
}

}  // namespace tamba
