#pragma once

#include "Tamba/Sheets/Settings/SettingsPage.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace tamba {

class AccentField;
class LogoField;

/// How invoices look and what a new one begins with.
class InvoicesPage : public SettingsPage {
    Q_OBJECT

public:
    using Path = std::filesystem::path;
    /// `chooseLogo` asks for a picture file; `present` is where the logo lies.
    InvoicesPage(const Business& business, const std::optional<Path>& present,
                 std::function<std::optional<Path>()> chooseLogo, QWidget* parent);
    void store(Library& library) const override;
    [[nodiscard]] bool isGood() const override;
    /// A picture that is to become the logo.
    [[nodiscard]] const std::optional<Path>& newLogo() const;

private:
    void refresh();

    LogoField* logo_;
    AccentField* accent_;
    QLineEdit* dueDays_;
    QComboBox* tax_;
    QCheckBox* round_;
    QPlainTextEdit* terms_;
    QLineEdit* footer_;
    QLineEdit* signatory_;
};

/// How clients pay: UPI with its code as it will be scanned, and the bank account.
class PaymentPage : public SettingsPage {
    Q_OBJECT

public:
    PaymentPage(const Business& business, QWidget* parent);
    void store(Library& library) const override;
    void lookAt(const Library& now) override;

private:
    class Code;
    void refresh();

    std::string payee_;
    QLineEdit* upi_;
    QLabel* upiNote_;
    QCheckBox* show_;
    Code* code_;
    QLabel* codeNote_;
    QLineEdit* accountName_;
    QLineEdit* accountNumber_;
    QLineEdit* bankName_;
    QLineEdit* ifsc_;
    QLineEdit* swift_;
    QLineEdit* iban_;
};

}  // namespace tamba
