#pragma once

#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Model/Models.h"

#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tamba {

class DateField;

/// Money received against an invoice, with the tax the client held back. Says at once what it leaves open; what the
/// books refuse is said beside the fields.
class PaymentSheet : public Sheet {
    Q_OBJECT

public:
    PaymentSheet(QWidget* parent, const Library& library, const Document& invoice, Day today);
    [[nodiscard]] Payment payment() const;

private:
    /// Nothing while one of the two is no amount.
    [[nodiscard]] std::optional<std::int64_t> entered(const QLineEdit& field) const;
    void deduct(int rateBP);
    void refresh();

    const Library library_;
    const Document invoice_;
    const Currency currency_;
    const UUID id_;
    std::int64_t balance_;
    DateField* date_;
    QLineEdit* amount_;
    QLineEdit* tds_;
    QComboBox* method_;
    QLineEdit* reference_;
    QLabel* outcome_;
    QPushButton* record_;
};

}  // namespace tamba
