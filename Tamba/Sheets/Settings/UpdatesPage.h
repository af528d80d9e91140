#pragma once

#include "CorvexKit/UpdateService.h"
#include "Tamba/Sheets/Settings/SettingsPage.h"

class QProgressBar;
class QPushButton;

namespace tamba {

/// Whether to look for updates, and what came of it. The looking and fetching happen at once, not when the settings are
/// saved.
class UpdatesPage : public SettingsPage {
    Q_OBJECT

public:
    UpdatesPage(UpdateService& updates, bool allowed, QWidget* parent);
    void store(Library&) const override {}
    /// Whether the program may look by itself.
    [[nodiscard]] bool allowed() const;
    void show(const UpdateStatus& status);

private:
    QCheckBox* allowed_;
    QLabel* promise_;
    QLabel* sentence_;
    QProgressBar* progress_;
    QPushButton *look_, *fetch_, *cancel_;
    QLabel* notesTitle_;
    QPlainTextEdit* notes_;
};

}  // namespace tamba
