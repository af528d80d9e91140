#pragma once

#include "TambaCore/Model/Changes.h"
#include "TambaCore/Model/Models.h"

#include <string>
#include <vector>

/// What two computers changed in the same place, as finished texts. Pure.
namespace tamba {

/// A merge with what it could not decide: the books as merged, and those of both sides.
struct MergeReport {
    Library merged, ours, theirs;
    std::vector<Conflict> conflicts;
};

struct ConflictRow {
    std::string record;        ///< "Expense · Chai Point · 14 Oct 2026"
    std::string field;         ///< "Amount"; "The whole record" where one side removed it
    std::string ours, theirs;  ///< "₹120.00"; "Removed"; "Nothing"
    bool keptTheirs = false;
    /// There is a choice.
    bool open = false;
};

/// One for each conflict, in their order.
[[nodiscard]] std::vector<ConflictRow> conflictRows(const MergeReport& report);
/// The books of `now` with the conflicts at these places decided the other way.
[[nodiscard]] Library decided(Library now, const MergeReport& report, const std::vector<std::size_t>& otherWay);
/// "fyStartMonth" as a person would say it: "Year begins in".
[[nodiscard]] std::string fieldTitle(std::string_view key);

}  // namespace tamba
