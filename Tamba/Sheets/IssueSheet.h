#pragma once

#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Model/Models.h"

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tamba {

class DateField;

/// Gives a draft its number: on what date, under which number, for how much, and what is worth knowing before.
class IssueSheet : public Sheet {
    Q_OBJECT

public:
    IssueSheet(QWidget* parent, const Library& library, const Document& draft, Day today);
    [[nodiscard]] Day date() const;

private:
    void refresh();

    const Library library_;
    const Document draft_;
    DateField* date_;
    QLabel* number_;
    QLabel* due_;
    QLabel* problem_;
    QWidget* warnings_;
    QVBoxLayout* warningRows_;
    QPushButton* issue_;
};

}  // namespace tamba
