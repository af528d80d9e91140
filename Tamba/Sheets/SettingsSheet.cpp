#include "Tamba/Sheets/SettingsSheet.h"

#include "Tamba/Colors.h"
#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

namespace tamba {

SettingsSheet::SettingsSheet(QWidget* parent, Business business)
    : Sheet(parent, Icon::none, tr("Settings"), {}), business_(std::move(business)) {
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(18);
    form->setVerticalSpacing(10);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);

    form->addRow(Controls::label(tr("BUSINESS"), "section"));
    name_ = line(*form, tr("Name"), "businessNameField", business_.name);
    regime_ = combo(*form, tr("Tax"), "regime");
    for (const TaxRegime regime : {TaxRegime::gstIndia, TaxRegime::gstComposition, TaxRegime::simple, TaxRegime::none})
        regime_->addItem(toQt(title(regime)), static_cast<int>(regime));
    regime_->setCurrentIndex(regime_->findData(static_cast<int>(business_.regime)));
    taxID_ = line(*form, tr("GSTIN"), "taxID", business_.taxID);
    taxIDNote_ = Controls::label({}, "caption", this);
    form->addRow(QString(), taxIDNote_);
    state_ = combo(*form, tr("State"), "state");
    state_->addItem(tr("Not set"), QString());
    for (const IndianState& state : IndianState::all()) state_->addItem(toQt(state.label()), toQt(state.code));
    state_->setCurrentIndex(std::max(0, state_->findData(toQt(business_.stateCode.value_or("")))));

    form->addRow(Controls::label(tr("BOOKS"), "section"));
    currency_ = combo(*form, tr("Home currency"), "homeCurrency");
    for (const Currency& currency : Currency::all())
        currency_->addItem(toQt(currency.code + " · " + currency.name), toQt(currency.code));
    if (currency_->findData(toQt(business_.homeCurrency)) < 0)
        currency_->addItem(toQt(business_.homeCurrency), toQt(business_.homeCurrency));
    currency_->setCurrentIndex(currency_->findData(toQt(business_.homeCurrency)));
    yearStart_ = combo(*form, tr("Year begins in"), "yearStart");
    for (int month = 1; month <= 12; ++month) yearStart_->addItem(toQt(Day{2026, month, 1}.formatted("MMMM")), month);
    yearStart_->setCurrentIndex(yearStart_->findData(business_.fyStartMonth));
    dateOrder_ = combo(*form, tr("Dates on receipts"), "dateOrder");
    dateOrder_->addItem(tr("Day first · 14/10/2026"), static_cast<int>(DateOrder::dmy));
    dateOrder_->addItem(tr("Month first · 10/14/2026"), static_cast<int>(DateOrder::mdy));
    dateOrder_->addItem(tr("Year first · 2026/10/14"), static_cast<int>(DateOrder::ymd));
    dateOrder_->setCurrentIndex(dateOrder_->findData(static_cast<int>(business_.receiptDateOrder)));
    mileageRate_ =
        line(*form, tr("Mileage rate"), "mileageRate",
             MoneyFormat::string(business_.mileageRateMinor, business_.currency(), MoneyFormat::Symbol::hidden));
    distanceUnit_ = line(*form, tr("Distance unit"), "distanceUnit", business_.distanceUnit);
    accent_ = line(*form, tr("Accent colour"), "accent", business_.accentHex);
    accent_->setMaxLength(7);
    body().addLayout(form);
    save_ = addButtons(tr("Save"), tr("Cancel"));
    for (QLineEdit* field : {taxID_, mileageRate_, accent_})
        connect(field, &QLineEdit::textChanged, this, &SettingsSheet::refresh);
    connect(regime_, &QComboBox::currentIndexChanged, this, &SettingsSheet::refresh);
    setMinimumWidth(480);
    refresh();
}

QLineEdit* SettingsSheet::line(QFormLayout& form, const QString& title, const char* name, const std::string& text) {
    auto* field = new QLineEdit(toQt(text), this);
    Controls::name(*field, name, title);
    form.addRow(Controls::label(title, "field", this), field);
    return field;
}

QComboBox* SettingsSheet::combo(QFormLayout& form, const QString& title, const char* name) {
    auto* field = new QComboBox(this);
    Controls::name(*field, name, title);
    form.addRow(Controls::label(title, "field", this), field);
    return field;
}

void SettingsSheet::refresh() {
    const auto regime = static_cast<TaxRegime>(regime_->currentData().toInt());
    const std::string id = toStd(taxID_->text());
    QString problem;
    if (isIndia(regime) && !GSTIN::clean(id).empty())
        if (const auto found = GSTIN::validate(id)) problem = toQt(GSTIN::problemText(*found));
    taxIDNote_->setText(!problem.isEmpty()                             ? problem
                        : isIndia(regime) && !GSTIN::clean(id).empty() ? tr("Valid. It also tells the state.")
                                                                       : tr("Decides CGST + SGST or IGST."));
    Controls::markProblem(*taxID_, problem);
    const auto rate = MoneyFormat::parseEntry(toStd(mileageRate_->text()), business_.currency());
    Controls::markProblem(*mileageRate_, rate && *rate >= 0 ? QString() : tr("Enter an amount such as 10.00."));
    static const QRegularExpression hex(QStringLiteral("^#?[0-9A-Fa-f]{6}$"));
    const bool colour = hex.match(accent_->text()).hasMatch();
    Controls::markProblem(*accent_, colour ? QString() : tr("Enter six hex digits such as 1E4A66."));
    save_->setEnabled(rate && *rate >= 0 && colour);
}

Business SettingsSheet::business() const {
    Business result = business_;
    result.name = toStd(name_->text().trimmed());
    result.regime = static_cast<TaxRegime>(regime_->currentData().toInt());
    result.taxID = isIndia(result.regime) ? GSTIN::clean(toStd(taxID_->text())) : toStd(taxID_->text().trimmed());
    const std::string state = toStd(state_->currentData().toString());
    result.stateCode = state.empty() ? std::nullopt : std::optional(state);
    result.homeCurrency = toStd(currency_->currentData().toString());
    result.fyStartMonth = yearStart_->currentData().toInt();
    result.receiptDateOrder = static_cast<DateOrder>(dateOrder_->currentData().toInt());
    result.mileageRateMinor =
        MoneyFormat::parseEntry(toStd(mileageRate_->text()), business_.currency()).value_or(result.mileageRateMinor);
    result.distanceUnit = toStd(distanceUnit_->text().trimmed());
    result.accentHex = toStd(accent_->text().remove(QLatin1Char('#')).toUpper());
    return result;
}

}  // namespace tamba
