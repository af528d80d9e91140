#pragma once

#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Model/LibrarySession.h"

#include <string>
#include <vector>

class QListWidget;

namespace tamba {

/// Chooses one of the daily backups.
class BackupSheet : public Sheet {
    Q_OBJECT

public:
    BackupSheet(QWidget* parent, std::vector<LibrarySession::Backup> backups);
    [[nodiscard]] std::string chosen() const;

private:
    std::vector<LibrarySession::Backup> backups_;
    QListWidget* list_;
};

}  // namespace tamba
