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

struct YearEndOptions {
    std::string year;    ///< the one it begins in; empty: the financial year of today
    std::string folder;  ///< where the bundle is put; empty: here
};
int exportYearEnd(const Context& context, const YearEndOptions& options);

struct TablesOptions {
    std::string period;  ///< "2026", "2026-Q3", "2026-10"; empty: the year of today
    std::string folder;
};
int exportTables(const Context& context, const TablesOptions& options);

}  // namespace tamba::cli
