#pragma once

#include "Tamba/Sheets/Settings/SettingsPage.h"

namespace tamba {

/// Who the business is, and the frame of its books.
class BusinessPage : public SettingsPage {
    Q_OBJECT

public:
    BusinessPage(const Library& library, QWidget* parent);
    void store(Library& library) const override;

private:
    QLineEdit* name_;
    QPlainTextEdit* address_;
    QComboBox* country_;
    QComboBox* state_;
    QLineEdit* email_;
    QLineEdit* phone_;
    QLineEdit* website_;
    QComboBox* currency_;
    QComboBox* yearStart_;
};

/// Under which regime the business charges tax, and its numbers.
class TaxPage : public SettingsPage {
    Q_OBJECT

public:
    TaxPage(const Business& business, QWidget* parent);
    void store(Library& library) const override;

private:
    void refresh();
    [[nodiscard]] TaxRegime regime() const;

    QComboBox* regime_;
    QLineEdit* taxID_;
    QLabel* taxIDNote_;
    QLineEdit* pan_;
    QLineEdit* taxName_;
    QLineEdit* taxIDLabel_;
    QLineEdit* lut_;
    QLabel* lutNote_;
    QLabel* rule_;
};

/// How expenses and receipts are read.
class ExpensesPage : public SettingsPage {
    Q_OBJECT

public:
    ExpensesPage(const Business& business, QWidget* parent);
    void store(Library& library) const override;
    [[nodiscard]] bool isGood() const override;

private:
    const Currency currency_;
    QComboBox* dateOrder_;
    QLineEdit* mileageRate_;
    QLineEdit* distanceUnit_;
};

}  // namespace tamba
