#pragma once

#include "Tamba/Rows/ConflictRows.h"
#include "Tamba/Sheets/Sheet.h"

#include <vector>

class QRadioButton;

namespace tamba {

/// What this computer and another changed in the same place, each with both values to choose from. The merge has chosen
/// already; closing the sheet leaves it at that.
class ConflictSheet : public Sheet {
    Q_OBJECT

public:
    ConflictSheet(QWidget* parent, const MergeReport& report);
    /// The conflicts in which the other side is to have its way.
    [[nodiscard]] std::vector<std::size_t> otherWay() const;

private:
    QWidget* card(const ConflictRow& row, std::size_t index);

    std::vector<QRadioButton*> other_;  // what was not kept; null where there is no choice
};

}  // namespace tamba
