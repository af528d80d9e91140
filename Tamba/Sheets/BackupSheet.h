#pragma once

#include "Tamba/Prompts.h"
#include "Tamba/Sheets/Sheet.h"

#include <map>
#include <string>

class QLabel;
class QListWidget;
class QPushButton;

namespace tamba {

/// Chooses one of the daily backups, and says what it holds and what going back to it would change.
class BackupSheet : public Sheet {
    Q_OBJECT

public:
    BackupSheet(QWidget* parent, BackupQuestion question);
    [[nodiscard]] std::string chosen() const;

private:
    struct Words {
        QString holds, changes;
        bool good = false;
    };
    void refresh();
    /// Worked out once for each backup that is looked at.
    const Words& words(const std::string& name);

    const BackupQuestion question_;
    std::map<std::string, Words> words_;
    QListWidget* list_;
    QLabel* holds_;
    QLabel* changes_;
    QPushButton* restore_ = nullptr;
};

}  // namespace tamba
