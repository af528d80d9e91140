#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Input tax and mileage month by month, and what projects earn. Amounts in minor units of the home currency, each
/// record at its own rate; what has no rate or figures beyond belief is in none (`Reports::leftOut` names it).
namespace tamba::Breakdowns {

struct InputTaxRow {
    Day month;
    TaxSplit claimed;
    std::int64_t notClaimed = 0;  ///< tax on expenses whose tax is not claimed back
    std::vector<UUID> expenseIDs;

    bool operator==(const InputTaxRow&) const = default;
};
/// Twelve rows, in the order of the financial year.
[[nodiscard]] std::vector<InputTaxRow> inputTax(const Library& library, const FinancialYear& year);

struct MileageRow {
    Day month;
    std::int64_t distanceMilli = 0;  ///< thousandths of `Business::distanceUnit`
    std::int64_t amount = 0;
    std::vector<UUID> expenseIDs;  ///< one for each trip

    bool operator==(const MileageRow&) const = default;
};
/// Twelve rows likewise.
[[nodiscard]] std::vector<MileageRow> mileage(const Library& library, const FinancialYear& year);

struct ProjectRow {
    std::optional<UUID> projectID;  ///< absent for what belongs to none
    std::string name, client;
    std::int64_t income = 0;
    std::int64_t expenses = 0;
    std::vector<UUID> documentIDs, expenseIDs;

    [[nodiscard]] std::int64_t profit() const;
    bool operator==(const ProjectRow&) const = default;
};
/// By profit, largest first; "No project" last, where anything belongs to none. Income counts by invoice date, less
/// credit notes. Documents name no project: a line that bills an expense on counts for the expense's project, any other
/// for its client's project where the client has just one. The rows add up to the income and spending of the period.
[[nodiscard]] std::vector<ProjectRow> projects(const Library& library, const Period& period);

}  // namespace tamba::Breakdowns
