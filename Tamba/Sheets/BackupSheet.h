#pragma once

#include "Tamba/Background.h"
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
    [[nodiscard]] bool isReading() const { return background_.isBusy(); }

private:
    struct Words {
        QString holds, changes;
        bool good = false;
    };
    void refresh();
    static Words wordsFor(const BackupQuestion& question, const std::string& name);

    const BackupQuestion question_;
    std::map<std::string, Words> words_;  // of the backups that were looked at
    QListWidget* list_;
    QLabel* holds_;
    QLabel* changes_;
    QPushButton* restore_ = nullptr;
    Background background_;
};

}  // namespace tamba
