#include "Tamba/Sheets/Settings/BusinessPages.h"

#include "Tamba/QtText.h"
#include "Tamba/Rows/Sentences.h"
#include "Tamba/Rows/SetUpRows.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace tamba {
namespace {

std::string trimmed(const QLineEdit& field) { return toStd(field.text().trimmed()); }

}  // namespace

BusinessPage::BusinessPage(const Library& library, QWidget* parent) : SettingsPage(parent) {
    const Business& business = library.business;
    name_ = form.line(tr("Name"), "businessNameField", business.name);
    address_ = form.text(tr("Address"), "businessAddress", 3, business.address);
    country_ = form.combo(tr("Country"), "businessCountry");
    fillCountries(*country_, business.country);
    state_ = form.combo(tr("State"), "state");
    fillStates(*state_, tr("Not set"));
    chooseCode(*state_, business.stateCode.value_or(""));
    form.note(tr("With your GSTIN, it decides between CGST + SGST and IGST."));
    email_ = form.line(tr("E-mail"), "businessEmail", business.email);
    phone_ = form.line(tr("Phone"), "businessPhone", business.phone);
    website_ = form.line(tr("Website"), "businessWebsite", business.website);
    form.section(tr("Books"));
    currency_ = form.combo(tr("Home currency"), "homeCurrency");
    fillCurrencies(*currency_, business.homeCurrency);
    QLabel* keep = form.note();
    keep->setObjectName(QStringLiteral("homeCurrencyNote"));
    const bool any = !library.documents.empty() || !library.expenses.empty();
    connect(currency_, &QComboBox::currentIndexChanged, this, [this, keep, any, home = toQt(business.homeCurrency)] {
        const QString other = currency_->currentData().toString();
        form.setNote(*keep,
                     !any || other == home ? QString()
                                           : tr("What is in the books already keeps its exchange rates: an "
                                                "amount in %1 will count as the same number of %2.")
                                                 .arg(home, other),
                     "problem");
    });
    yearStart_ = form.combo(tr("Year begins in"), "yearStart");
    for (int month = 1; month <= 12; ++month)
        yearStart_->addItem(toQt(Sentences::months(Day{2026, month, 1}.formatted("MMMM"))), month);
    yearStart_->setCurrentIndex(yearStart_->findData(business.fyStartMonth));
}

void BusinessPage::store(Library& library) const {
    Business& business = library.business;
    business.name = trimmed(*name_);
    business.address = toStd(address_->toPlainText());
    business.country = toStd(country_->currentData().toString());
    const std::string state = toStd(state_->currentData().toString());
    business.stateCode = state.empty() ? std::nullopt : std::optional(state);
    business.email = trimmed(*email_);
    business.phone = trimmed(*phone_);
    business.website = trimmed(*website_);
    business.homeCurrency = toStd(currency_->currentData().toString());
    if (yearStart_->currentIndex() >= 0) business.fyStartMonth = yearStart_->currentData().toInt();
}

TaxPage::TaxPage(const Business& business, QWidget* parent) : SettingsPage(parent) {
    regime_ = form.combo(tr("Tax"), "regime");
    for (const TaxRegime regime : {TaxRegime::gstIndia, TaxRegime::gstComposition, TaxRegime::simple, TaxRegime::none})
        regime_->addItem(Translations::shown(title(regime)), static_cast<int>(regime));
    regime_->setCurrentIndex(regime_->findData(static_cast<int>(business.regime)));
    taxID_ = form.line(tr("GSTIN"), "taxID", business.taxID);
    taxIDNote_ = form.note();
    pan_ = form.line(tr("PAN"), "pan", business.pan);
    taxName_ = form.line(tr("Name of the tax"), "taxName", business.taxName);
    taxIDLabel_ = form.line(tr("Name of the number"), "taxIDLabel", business.taxIDLabel);
    lut_ = form.line(tr("LUT reference"), "lutReference", business.lutReference);
    lutNote_ = form.note(tr("Of this year’s letter of undertaking. Exports under it carry no IGST."));
    form.setNoteWidth(420);
    rule_ = form.note(
        tr("Tamba charges CGST + SGST (or UTGST) when the place of supply is your state and IGST otherwise. Exports "
           "and SEZ supplies are zero-rated, under LUT unless you switch it off on the invoice. CGST and SGST are "
           "each worked out at half the rate, so they always match."));
    connect(taxID_, &QLineEdit::textChanged, this, &TaxPage::refresh);
    connect(regime_, &QComboBox::currentIndexChanged, this, &TaxPage::refresh);
    refresh();
}

TaxRegime TaxPage::regime() const { return static_cast<TaxRegime>(regime_->currentData().toInt()); }

void TaxPage::refresh() {
    const bool india = isIndia(regime());
    for (QWidget* field : {static_cast<QWidget*>(pan_), static_cast<QWidget*>(lut_), static_cast<QWidget*>(lutNote_)})
        form.setRowVisible(field, india);
    form.setRowVisible(rule_, regime() == TaxRegime::gstIndia);
    for (QLineEdit* field : {taxName_, taxIDLabel_}) form.setRowVisible(field, regime() == TaxRegime::simple);
    form.setRowVisible(taxID_, regime() != TaxRegime::none);
    if (auto* label = qobject_cast<QLabel*>(form.labelForField(taxID_)))
        label->setText(india ? tr("GSTIN") : tr("Tax number"));
    form.setNote(*taxIDNote_, *taxID_, taxIDNote(regime(), toStd(taxID_->text())));
    emit edited();
}

void TaxPage::store(Library& library) const {
    Business& business = library.business;
    business.regime = regime();
    business.taxID = isIndia(regime()) ? GSTIN::clean(toStd(taxID_->text())) : trimmed(*taxID_);
    business.pan = toStd(pan_->text().trimmed().toUpper());
    business.taxName = trimmed(*taxName_);
    business.taxIDLabel = trimmed(*taxIDLabel_);
    business.lutReference = trimmed(*lut_);
}

ExpensesPage::ExpensesPage(const Business& business, QWidget* parent)
    : SettingsPage(parent), currency_(business.currency()) {
    dateOrder_ = form.combo(tr("Dates on receipts"), "dateOrder");
    dateOrder_->addItem(tr("Day first · 14/10/2026"), static_cast<int>(DateOrder::dmy));
    dateOrder_->addItem(tr("Month first · 10/14/2026"), static_cast<int>(DateOrder::mdy));
    dateOrder_->addItem(tr("Year first · 2026/10/14"), static_cast<int>(DateOrder::ymd));
    dateOrder_->setCurrentIndex(dateOrder_->findData(static_cast<int>(business.receiptDateOrder)));
    mileageRate_ = form.amount(tr("Mileage rate"), "mileageRate");
    mileageRate_->setText(toQt(MoneyFormat::string(business.mileageRateMinor, currency_, MoneyFormat::Symbol::hidden)));
    form.note(tr("A new rate counts for trips entered from now on."));
    distanceUnit_ = form.line(tr("Distance unit"), "distanceUnit", business.distanceUnit);
    connect(mileageRate_, &QLineEdit::textChanged, this, [this] {
        Controls::markProblem(*mileageRate_, isGood() ? QString() : tr("Enter an amount such as 10.00."));
        emit edited();
    });
}

bool ExpensesPage::isGood() const {
    const auto rate = amountIn(*mileageRate_, currency_);
    return rate && *rate >= 0;
}

void ExpensesPage::store(Library& library) const {
    Business& business = library.business;
    business.receiptDateOrder = static_cast<DateOrder>(dateOrder_->currentData().toInt());
    if (isGood()) business.mileageRateMinor = *amountIn(*mileageRate_, currency_);
    business.distanceUnit = trimmed(*distanceUnit_);
}

}  // namespace tamba
