#pragma once

#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Model/Models.h"

#include <optional>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tamba {

class DateField;

/// A credit note for a whole invoice or for some of its lines, each with an amount; says at once what it leaves.
class CreditNoteSheet : public Sheet {
    Q_OBJECT

public:
    /// `draft`: a note for all that is left of its invoice.
    CreditNoteSheet(QWidget* parent, const Library& library, const Document& draft);
    /// The note with the lines, amounts, date and reason that were chosen.
    [[nodiscard]] Document note() const;

private:
    struct Row {
        QCheckBox* box;
        QLineEdit* amount;  ///< without tax
        std::int64_t whole;
    };
    QWidget* makeLines();
    void refresh();

    const Library library_;
    const Document draft_;
    const Currency currency_;
    std::vector<Row> rows_;
    DateField* date_;
    QComboBox* reason_;
    QLabel* outcome_;
    QLabel* total_;
    QPushButton* issue_;
    QPushButton* keep_;
};

}  // namespace tamba
