#pragma once

#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Model/Models.h"

#include <vector>

class QListWidget;

namespace tamba {

/// Chooses among the expenses that can be billed on with a draft.
class BillableSheet : public Sheet {
    Q_OBJECT

public:
    BillableSheet(QWidget* parent, const Library& library, const Document& draft);
    [[nodiscard]] std::vector<UUID> chosen() const;

private:
    std::vector<UUID> ids_;
    QListWidget* list_;
};

}  // namespace tamba
