#pragma once

#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Model/Models.h"

class QComboBox;
class QLineEdit;

namespace tamba {

/// Name and currency of a bank account. The currency of one that has lines stays: their amounts are in it.
class AccountSheet : public Sheet {
    Q_OBJECT

public:
    AccountSheet(QWidget* parent, const Library& library, const BankAccount& account);
    [[nodiscard]] BankAccount account() const;

private:
    const BankAccount account_;
    QLineEdit* name_;
    QComboBox* currency_;
};

}  // namespace tamba
