#pragma once

#include "Tamba/Prompts.h"
#include "Tamba/Sheets/Sheet.h"

class QDateEdit;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tamba {

/// A trip in the person's own car: distance × today's rate.
class MileageSheet : public Sheet {
    Q_OBJECT

public:
    MileageSheet(QWidget* parent, const Library& library, Day today);
    [[nodiscard]] MileageTrip trip() const;

private:
    void refresh();
    const Library library_;
    QDateEdit* date_;
    QLineEdit* purpose_;
    QLineEdit* distance_;
    QLabel* amount_;
    QPushButton* add_;
};

}  // namespace tamba
