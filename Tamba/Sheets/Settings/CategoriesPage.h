#pragma once

#include "Tamba/Sheets/Settings/SettingsPage.h"

#include <vector>

class QListWidget;
class QPushButton;

namespace tamba {

class AccentField;

/// The categories of expenses: name, glyph, colour, whether their tax is claimed. One that is taken away says what it
/// is used by and where that goes.
class CategoriesPage : public SettingsPage {
    Q_OBJECT

public:
    CategoriesPage(const Library& library, QWidget* parent);
    void store(Library& library) const override;
    [[nodiscard]] bool isGood() const override;

private:
    struct Removal {
        UUID category;
        std::optional<UUID> instead;
    };
    void makeFields();
    void refreshList();
    void refreshInstead();
    void choose(int row);
    void take();
    void add();
    void remove();

    const Library library_;
    std::vector<Category> categories_;  // as the list has them
    std::vector<Removal> removed_;
    bool filling_ = false;
    QListWidget* list_;
    QWidget* fields_;
    Form* fieldsForm_;
    QLineEdit* name_;
    QComboBox* symbol_;
    AccentField* color_;
    QCheckBox* claims_;
    QLabel* use_;
    QComboBox* instead_;
    QPushButton* remove_;
};

}  // namespace tamba
