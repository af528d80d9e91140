#pragma once

#include "TambaCore/Model/Models.h"

#include <cstddef>
#include <optional>
#include <vector>

/// Statement lines in the books.
namespace tamba::Bank {

/// A line that was left out because the books, or an earlier line of the same batch, hold its equal.
struct SkippedLine {
    BankTransaction line;
    UUID equal;             ///< the line in the books
    bool repeated = false;  ///< that line came with the same batch
};

struct Added {
    Library library;
    int added = 0;
    int skipped = 0;
    int repeated = 0;  ///< those of `skipped` that the batch itself repeats
    std::vector<SkippedLine> skippedLines;
};

/// Files lines under an account. A line whose fingerprint is in the books already, under whatever account, is left out,
/// so that importing a file twice adds nothing; of equal lines of one batch the first is kept. The books' lines stay
/// sorted by date, those of one day in the order they came in.
[[nodiscard]] Added addTransactions(Library library, std::vector<BankTransaction> lines, std::optional<UUID> account);
/// Adds a line although an equal one is there: two payments of one sum to one payee on one day do happen.
[[nodiscard]] Library addAnyway(Library library, BankTransaction line, std::optional<UUID> account);

}  // namespace tamba::Bank
