#pragma once

#include "Tamba/Prompts.h"
#include "Tamba/Sheets/Settings/SettingsPage.h"

#include <vector>

class QPushButton;

namespace tamba {

/// How this computer shows the books; nothing of it goes into them.
class AppearancePage : public SettingsPage {
    Q_OBJECT

public:
    AppearancePage(const Remembered::Appearance& appearance, QWidget* parent);
    void store(Library&) const override {}
    [[nodiscard]] Remembered::Appearance appearance() const;

private:
    QComboBox* looks_;
    QComboBox* language_;
};

/// Where the books are, and what can be done with their folder.
class FolderPage : public SettingsPage {
    Q_OBJECT

public:
    FolderPage(const std::filesystem::path& folder, QWidget* parent);
    void store(Library&) const override {}
    /// The settings are saved before a wish is carried out, so none can be had while they cannot be.
    void setWishesEnabled(bool enabled);

signals:
    void wished(tamba::FolderWish wish);

private:
    std::vector<QPushButton*> wishes_;
};

}  // namespace tamba
