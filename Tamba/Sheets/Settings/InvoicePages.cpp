#include "Tamba/Sheets/Settings/InvoicePages.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Documents/UPI.h"
#include "TambaCore/Pages/Images.h"
#include "TambaCore/Pages/QRCode.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>

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

bool isColour(const QString& text) {
    static const QRegularExpression hex(QStringLiteral("^#?[0-9A-Fa-f]{6}$"));
    return hex.match(text.trimmed()).hasMatch();
}

std::string hexOf(const QLineEdit& field) { return toStd(field.text().trimmed().remove(QLatin1Char('#')).toUpper()); }

/// A patch of colour, round or with round corners, sharp at any scale.
QPixmap patch(const QWidget& on, QSize size, const QColor& color, qreal radius) {
    QPixmap pixmap(size * on.devicePixelRatioF());
    pixmap.setDevicePixelRatio(on.devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(QPointF(), QSizeF(size)), radius, radius);
    return pixmap;
}

}  // namespace

InvoicesPage::InvoicesPage(const Business& business, const std::optional<Path>& present,
                           std::function<std::optional<Path>()> chooseLogo, QWidget* parent)
    : SettingsPage(parent), chooseLogo_(std::move(chooseLogo)), keepsLogo_(business.logoFile.has_value()) {
    makeLogo();
    showLogo(present);
    makeAccent(business.accentHex);
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
    for (QLineEdit* field : {accent_, dueDays_}) connect(field, &QLineEdit::textChanged, this, &InvoicesPage::refresh);
    refresh();
}

void InvoicesPage::makeLogo() {
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    logo_ = new QLabel(box);
    logo_->setObjectName(QStringLiteral("logoPicture"));
    logo_->setFixedSize(132, 64);
    logo_->setAlignment(Qt::AlignCenter);
    logo_->setProperty("role", QStringLiteral("well"));
    auto* choose = Controls::button(tr("Choose…"), "chooseLogo", Controls::Kind::plain, box);
    removeLogo_ = Controls::button(tr("Remove"), "removeLogo", Controls::Kind::link, box);
    row->addWidget(logo_);
    row->addWidget(choose);
    row->addWidget(removeLogo_);
    row->addStretch(1);
    form.row(tr("Logo"), box);
    connect(choose, &QPushButton::clicked, this, [this] {
        const auto file = chooseLogo_();
        if (!file) return;
        newLogo_ = file;
        showLogo(file);
    });
    connect(removeLogo_, &QPushButton::clicked, this, [this] {
        newLogo_.reset();
        keepsLogo_ = false;
        showLogo({});
    });
}

void InvoicesPage::showLogo(const std::optional<Path>& file) {
    const auto picture = file ? ImageFile::load(*file) : std::nullopt;
    removeLogo_->setVisible(file.has_value());
    if (!picture) return logo_->setText(file ? tr("No picture") : tr("None"));
    const QImage image(picture->pixels.data(), picture->width, picture->height, picture->width * 4,
                       QImage::Format_RGBA8888);
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap =
        QPixmap::fromImage(image.scaled(QSize(120, 54) * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(ratio);
    logo_->setPixmap(pixmap);
}

void InvoicesPage::makeAccent(const std::string& hex) {
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    swatch_ = new QLabel(box);
    swatch_->setFixedSize(30, 30);
    accent_ = new QLineEdit(toQt(hex), box);
    Controls::name(*accent_, "accent", tr("Accent colour"));
    accent_->setMaxLength(7);
    accent_->setFixedWidth(96);
    row->addWidget(swatch_);
    row->addWidget(accent_);
    // A few that print well.
    for (const char* colour : {"1E4A66", "2F5D50", "6B3A5B", "8A4B2A", "3D4A8A", "3A3733"}) {
        const QString text = QString::fromLatin1(colour);
        auto* dot = new QToolButton(box);
        Controls::name(*dot, "accentDot", tr("Colour %1").arg(text));
        dot->setIcon(patch(*this, QSize(18, 18), Icons::colorOf(colour), 9));
        dot->setIconSize(QSize(18, 18));
        dot->setToolTip(text);
        connect(dot, &QToolButton::clicked, this, [this, text] { accent_->setText(text); });
        row->addWidget(dot);
    }
    row->addStretch(1);
    form.row(tr("Accent colour"), box);
}

void InvoicesPage::refresh() {
    const bool colour = isColour(accent_->text());
    Controls::markProblem(*accent_, colour ? QString() : tr("Enter six hex digits such as 1E4A66."));
    Controls::markProblem(*dueDays_, days(*dueDays_) ? QString() : tr("Enter a number of days such as 15."));
    if (colour) swatch_->setPixmap(patch(*this, swatch_->size(), Icons::colorOf(hexOf(*accent_)), 6));
    emit edited();
}

bool InvoicesPage::isGood() const { return isColour(accent_->text()) && days(*dueDays_); }

void InvoicesPage::store(Library& library) const {
    Business& business = library.business;
    if (!keepsLogo_) business.logoFile.reset();
    if (isColour(accent_->text())) business.accentHex = hexOf(*accent_);
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
