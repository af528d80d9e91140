#pragma once

#include "Tamba/Rows/BankRows.h"
#include "Tamba/Sheets/Sheet.h"

#include <optional>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace tamba {

/// Shares one receipt of money among invoices. Says all the time what is still to be shared, and what the books would
/// refuse.
class SplitSheet : public Sheet {
    Q_OBJECT

public:
    SplitSheet(QWidget* parent, const Library& library, const BankTransaction& line);
    [[nodiscard]] std::vector<Bank::Share> shares() const;

private:
    struct Row {
        OpenInvoice invoice;
        QLineEdit* amount;
        QCheckBox* tds;
    };
    [[nodiscard]] QWidget* makeRow(const OpenInvoice& invoice);
    /// Nothing while the field holds no amount; zero where it is empty.
    [[nodiscard]] std::optional<std::int64_t> entered(const Row& row) const;
    /// What is not shared yet, without this row's part; nothing while a field holds no amount.
    [[nodiscard]] std::optional<std::int64_t> left(const Row* without) const;
    void takeAll(std::size_t index);
    void refresh();

    const Library library_;
    const BankTransaction line_;
    const Currency currency_;
    std::vector<Row> rows_;
    QLabel* outcome_;
    QPushButton* main_;
};

}  // namespace tamba
