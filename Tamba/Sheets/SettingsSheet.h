#pragma once

#include "Tamba/Prompts.h"
#include "Tamba/Sheets/Sheet.h"

#include <functional>
#include <optional>
#include <vector>

class QListWidget;
class QPushButton;
class QStackedWidget;

namespace tamba {

class AppearancePage;
class FolderPage;
class InvoicesPage;
class SettingsPage;
class UpdatesPage;

/// All settings, page by page: edits a copy of the books' settings and hands it back.
class SettingsSheet : public Sheet {
    Q_OBJECT

public:
    using Path = Prompts::Path;
    /// `chooseLogo` asks for a picture file.
    SettingsSheet(
        QWidget* parent, const Library& library, Day today, const SettingsContext& context = {},
        std::function<std::optional<Path>()> chooseLogo = [] { return std::nullopt; });
    [[nodiscard]] SettingsEdit edit() const;
    void showPage(int index);
    [[nodiscard]] int pageCount() const { return static_cast<int>(pages_.size()); }
    /// Asks before what was typed is dropped by Escape or the window's frame; the button for it was meant.
    void reject() override;

private:
    void add(const char* icon, const QString& title, SettingsPage* page);
    void refresh();
    [[nodiscard]] bool isChanged() const;

    const Library library_;
    std::optional<SettingsEdit> before_;
    std::vector<SettingsPage*> pages_;
    InvoicesPage* invoices_;
    AppearancePage* appearance_;
    FolderPage* folder_;
    UpdatesPage* updates_ = nullptr;
    FolderWish wish_ = FolderWish::none;
    QListWidget* titles_;
    QStackedWidget* stack_;
    QPushButton* save_ = nullptr;
};

}  // namespace tamba
