#pragma once

#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Model/Models.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Looks through whole books for what a person should mend: a record that names another which is not there, two records
/// with one id, two documents of a kind with one number or an issued one without, files that are missing or lie outside
/// the folder, figures that cannot be right. Changes nothing; looks at the folder only to see whether files exist.
/// Linear in the number of records.
///
///     for (const auto& problem : LibraryCheck::check(library, store).problems) show(problem.sentence);
///
/// Every id must refer to a record, except where the books are meant to outlive it:
/// - `categoryID` of an expense or of a recurring one: a deleted category is reported as "Uncategorised";
/// - `recurringID` of an expense: it only tells where the expense came from;
/// - `clientID`, `seriesID` and the `expenseID` of a line, once the document is no longer a draft: an issued document
///   is frozen with its number, its lines and its own copy of the client. A client must then be on it in `billTo`.
/// What must be an invoice is looked up as one: `rebilledInvoiceID`, `invoiceID` and `linkedID`; `paymentID` among the
/// payments of the invoice in `invoiceID`.
namespace tamba::LibraryCheck {

enum class Kind {
    duplicateID,
    danglingReference,
    missingFile,
    fileOutside,
    outOfRange,
    duplicateNumber,
    missingNumber,
    // found by DocumentCheck
    voidSettled,
    overSettled,
    billedTwice
};
/// The name of the case, for JSON: "missingFile".
[[nodiscard]] std::string_view word(Kind kind);

struct Problem {
    Kind kind;
    std::string list;      ///< key of the list the record is in: "expenses"; "business" for the settings
    std::string id;        ///< UUID text of that record; the currency of a rate; empty for the settings
    std::string sentence;  ///< finished, names the record as people know it

    bool operator==(const Problem&) const = default;
};

struct Report {
    std::vector<std::pair<std::string, std::size_t>> counts;  ///< records per list, in the order of `Library`
    std::vector<Problem> problems;                            ///< in the order of the books
};
[[nodiscard]] Report check(const Library& library, const LibraryStore& store);

}  // namespace tamba::LibraryCheck
