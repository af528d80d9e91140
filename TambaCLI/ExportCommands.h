#pragma once

#include "TambaCLI/Commands.h"

#include <string>

/// What leaves the books as files for other programs and people.
namespace tamba::cli {

struct JournalOptions {
    std::string basis;   ///< "accrual", "cash"
    std::string output;  ///< a file; standard output where it is empty or "-"
};
int exportJournal(const Context& context, const JournalOptions& options);

}  // namespace tamba::cli
