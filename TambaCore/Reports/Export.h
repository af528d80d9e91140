#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Reports/Reports.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What leaves the books as files: the year-end bundle for the accountant, and the whole book as plain text.
namespace tamba::Export {

using Path = std::filesystem::path;

/// Told before each file; false stops, and nothing of the bundle stays behind. May be called from the thread that
/// exports only.
using Progress = std::function<bool(std::size_t done, std::size_t count, std::string_view name)>;

struct YearEnd {
    Path folder, zip;
    std::size_t files = 0;
    std::vector<std::string> missing;  ///< receipts and other files that are not where the books say
};
/// Writes the year's bundle as a folder and a zip of it into `into`: reports, documents, payments, TDS, GST, bank lines
/// and clients as CSV, invoices as PDF, receipts by date and vendor, a summary for people, and a manifest with the
/// SHA-256 of each file. Same books, same bytes. `books`: the folder of the books, for their receipts. An older bundle
/// of the same name is replaced once the new one is whole. Nothing when it was stopped. Throws `FileError`.
[[nodiscard]] std::optional<YearEnd> yearEnd(const Library& library, const Path& books, const FinancialYear& year,
                                             Day today, const Path& into, const Progress& progress = {});

/// The books as a journal of double-entry transactions that hledger and ledger read, in the home currency. `basis`
/// decides when income stands in it; what a period's accounts then add up to is what `Reports` says.
[[nodiscard]] std::string journal(const Library& library, IncomeBasis basis);

/// The plain tables of a period as CSV files by name: expenses, invoices, lines, credit notes, payments, clients,
/// bank lines.
struct File {
    std::string name, bytes;
};
[[nodiscard]] std::vector<File> tables(const Library& library, const Period& period, Day today);

}  // namespace tamba::Export
