#include "Tamba/Sheets/Settings/InvoicePages.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/LookFields.h"
#include "TambaCore/Documents/UPI.h"
#include "TambaCore/Pages/QRCode.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>

#include <charconv>
#include <cmath>

namespace tamba {
namespace {

std::string trimmed(const QLineEdit& field) { return toStd(field.text().trimmed()); }

std::optional<int> days(const QLineEdit& field) {
    const std::string text = trimmed(field);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 0 || number > 3650) return {};
    return number;
}

}  // namespace

InvoicesPage::InvoicesPage(const Business& business, const std::optional<Path>& present,
                           std::function<std::optional<Path>()> chooseLogo, QWidget* parent)
    : SettingsPage(parent) {
    logo_ = new LogoField(present, std::move(chooseLogo), this);
    form.row(tr("Logo"), logo_);
    accent_ = new AccentField(business.accentHex, this);
    form.row(tr("Accent colour"), accent_);
    form.section(tr("New invoices"));
    dueDays_ = form.line(tr("Due after"), "dueDays", std::to_string(business.defaultDueDays));
    form.note(tr("Days. A client can have their own."));
    tax_ = form.combo(tr("Tax on new lines"), "defaultTax");
    for (const int rate : isIndia(business.regime) ? TaxRates::gst() : TaxRates::common())
        tax_->addItem(toQt(MoneyFormat::rate(rate)), rate);
    if (tax_->findData(business.defaultTaxBP) < 0)
        tax_->addItem(toQt(MoneyFormat::rate(business.defaultTaxBP)), business.defaultTaxBP);
    tax_->setCurrentIndex(tax_->findData(business.defaultTaxBP));
    form.note(tr("Each line can carry its own rate. Tax is worked out per line and rounded half-up."));
    round_ = form.check(tr("Round totals to whole"), "roundTotals", business.roundTotals);
    form.note(tr("(shows a round-off line)"));
    form.section(tr("Words"));
    terms_ = form.text(tr("Terms"), "terms", 3, business.terms);
    footer_ = form.line(tr("Footer"), "footerText", business.footer);
    signatory_ = form.line(tr("Signed by"), "signatory", business.signatory);
    connect(accent_, &AccentField::edited, this, &InvoicesPage::refresh);
    connect(dueDays_, &QLineEdit::textChanged, this, &InvoicesPage::refresh);
    refresh();
}

void InvoicesPage::refresh() {
    Controls::markProblem(*dueDays_, days(*dueDays_) ? QString() : tr("Enter a number of days such as 15."));
    emit edited();
}

const std::optional<InvoicesPage::Path>& InvoicesPage::newLogo() const { return logo_->chosen(); }

bool InvoicesPage::isGood() const { return accent_->hex() && days(*dueDays_); }

void InvoicesPage::store(Library& library) const {
    Business& business = library.business;
    if (logo_->isRemoved()) business.logoFile.reset();
    if (const auto colour = accent_->hex()) business.accentHex = *colour;
    if (const auto number = days(*dueDays_)) business.defaultDueDays = *number;
    business.defaultTaxBP = tax_->currentData().toInt();
    business.roundTotals = round_->isChecked();
    business.terms = toStd(terms_->toPlainText());
    business.footer = trimmed(*footer_);
    business.signatory = trimmed(*signatory_);
}

/// A QR code as it will be scanned, or an empty place.
class PaymentPage::Code : public QWidget {
public:
    explicit Code(QWidget* parent) : QWidget(parent) { setFixedSize(148, 148); }
    void setText(const std::string& text) {
        modules_ = text.empty() ? std::nullopt : QRCode::modules(text);
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Colors colors = Colors::current();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(colors.border);
        // White in both palettes: phones do not read light on dark.
        painter.setBrush(modules_ ? QColor(Qt::white) : colors.window);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
        if (!modules_) return;
        constexpr int quiet = 4;
        const qreal ratio = devicePixelRatioF();
        // Whole pixels, so that every square has the same size.
        const qreal side = std::floor(width() * ratio / (modules_->size + 2 * quiet)) / ratio;
        const qreal offset = std::floor((width() - side * modules_->size) / 2 * ratio) / ratio;
        painter.setRenderHint(QPainter::Antialiasing, false);
        for (int y = 0; y < modules_->size; ++y)
            for (int x = 0; x < modules_->size; ++x)
                if (modules_->at(x, y))
                    painter.fillRect(QRectF(offset + x * side, offset + y * side, side, side), Qt::black);
    }

private:
    std::optional<QRCode::Modules> modules_;
};

PaymentPage::PaymentPage(const Business& business, QWidget* parent) : SettingsPage(parent), payee_(business.name) {
    upi_ = form.line(tr("UPI ID"), "upiID", business.upiID);
    upi_->setPlaceholderText(tr("name@handle"));
    upiNote_ = form.note();
    upiNote_->setObjectName(QStringLiteral("upiNote"));
    show_ = form.check(tr("Print a code to pay with on invoices"), "showUPIQR", business.showUPIQR);
    code_ = new Code(this);
    code_->setObjectName(QStringLiteral("upiCode"));
    code_->setAccessibleName(tr("UPI code"));
    form.addRow(QString(), code_);
    codeNote_ = form.note();
    form.section(tr("Bank account"));
    accountName_ = form.line(tr("Account name"), "accountName", business.bank.accountName);
    accountNumber_ = form.line(tr("Account number"), "accountNumber", business.bank.accountNumber);
    bankName_ = form.line(tr("Bank"), "bankName", business.bank.bankName);
    ifsc_ = form.line(tr("IFSC"), "ifsc", business.bank.ifsc);
    swift_ = form.line(tr("SWIFT"), "swift", business.bank.swift);
    iban_ = form.line(tr("IBAN"), "iban", business.bank.iban);
    connect(upi_, &QLineEdit::textChanged, this, &PaymentPage::refresh);
    refresh();
}

void PaymentPage::refresh() {
    const std::string id = trimmed(*upi_);
    const bool valid = UPI::isValidVPA(id);
    const QString problem = id.empty() || valid ? QString() : toQt(UPI::invalidVPA);
    Controls::markProblem(*upi_, problem);
    form.setNote(*upiNote_, problem, "problem");
    code_->setText(valid ? UPI::link(id, payee_, 100, "Test") : std::string());
    form.setNote(*codeNote_, valid ? tr("This one asks for ₹1.00: scan it to see that your name comes up. On an "
                                        "invoice it asks for what is due.")
                                   : tr("The code appears here once the UPI ID is complete."));
    emit edited();
}

void PaymentPage::lookAt(const Library& now) {
    payee_ = now.business.name;
    refresh();
}

void PaymentPage::store(Library& library) const {
    Business& business = library.business;
    business.upiID = trimmed(*upi_);
    business.showUPIQR = show_->isChecked();
    BankDetails& bank = business.bank;
    bank.accountName = trimmed(*accountName_);
    bank.accountNumber = trimmed(*accountNumber_);
    bank.bankName = trimmed(*bankName_);
    bank.ifsc = toStd(ifsc_->text().trimmed().toUpper());
    bank.swift = toStd(swift_->text().trimmed().toUpper());
    bank.iban = trimmed(*iban_);
}

}  // namespace tamba
