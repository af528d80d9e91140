#pragma once

#include "Tamba/Sheets/Settings/SettingsPage.h"

#include <vector>

class QListWidget;
class QToolButton;

namespace tamba {

/// The category rules in the order they are tried. Most are made where an expense is corrected; here they are looked
/// after, and written by hand.
class RulesPage : public SettingsPage {
    Q_OBJECT

public:
    RulesPage(const Library& library, QWidget* parent);
    void store(Library& library) const override;
    void lookAt(const Library& now) override;
    [[nodiscard]] bool isGood() const override;

private:
    struct Entry {
        CategoryRule rule;
        bool edited = false;
    };
    void makeFields();
    void add();
    void move(int by);
    void remove();
    void refreshList();
    void choose(int row);
    void take();
    void refresh();
    [[nodiscard]] bool isWhole(const CategoryRule& rule) const;
    [[nodiscard]] QString textOf(const CategoryRule& rule) const;
    [[nodiscard]] QString problemOf(std::size_t row) const;

    Library library_;             // as the other pages have it
    std::vector<Entry> entries_;  // as the list has them
    bool filling_ = false;
    QListWidget* list_;
    QToolButton* up_;
    QToolButton* down_;
    QToolButton* remove_;
    QWidget* fields_;
    Form* fieldsForm_;
    QLineEdit* contains_;
    QComboBox* category_;
    QLineEdit* vendor_;
    QLabel* note_;
};

}  // namespace tamba
