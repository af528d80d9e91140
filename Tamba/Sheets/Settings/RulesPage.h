#pragma once

#include "Tamba/Sheets/Settings/SettingsPage.h"

#include <vector>

class QListWidget;
class QToolButton;

namespace tamba {

/// The category rules in the order they are tried: to be moved and removed. They are made where an expense is
/// corrected.
class RulesPage : public SettingsPage {
    Q_OBJECT

public:
    RulesPage(const Library& library, QWidget* parent);
    void store(Library& library) const override;

private:
    void move(int by);
    void remove();
    void refresh();

    std::vector<UUID> rules_;  // as the list has them
    QListWidget* list_;
    QToolButton* up_;
    QToolButton* down_;
    QToolButton* remove_;
};

}  // namespace tamba
