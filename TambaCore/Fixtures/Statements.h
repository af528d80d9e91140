#pragma once

#include "TambaCore/Fixtures/Dice.h"
#include "TambaCore/Fixtures/Trade.h"
#include "TambaCore/Model/Models.h"

#include <vector>

namespace tamba::Fixtures {

/// The books with the lines of both bank accounts from `start` to `today`: the studio's expenses and receipts as a bank
/// prints them, read by the importer and matched up to some months ago. What came last waits, besides what was missed.
[[nodiscard]] Library withStatements(Library library, const std::vector<Receipt>& receipts, Dice& dice, Day start,
                                     Day today);

}  // namespace tamba::Fixtures
