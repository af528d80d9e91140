#include "TambaCore/Reports/Breakdowns.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Converted.h"
#include "TambaCore/Reports/Sum.h"

#include <algorithm>
#include <array>
#include <map>
#include <unordered_map>

namespace tamba::Breakdowns {
namespace {

/// Position of a day's month in its financial year; nothing for a day outside.
std::optional<std::size_t> monthIndex(const FinancialYear& year, const Day& day) {
    const int index = (day.y - year.startYear) * 12 + day.m - year.startMonth;
    return index >= 0 && index < 12 ? std::optional(static_cast<std::size_t>(index)) : std::nullopt;
}

std::vector<std::int64_t> partsOf(const TaxSplit& split) { return {split.cgst, split.sgst, split.igst, split.other}; }

/// What a project, or what belongs to none, has earned and cost.
struct Tally {
    Sum income, expenses;
    std::vector<UUID> documentIDs, expenseIDs;
};
using Tallies = std::map<std::optional<UUID>, Tally>;

/// The project a line counts for.
class Attribution {
public:
    explicit Attribution(const Library& library) {
        for (const Project& project : library.projects) {
            known_.emplace(project.id, true);
            if (!project.clientID) continue;
            const auto [place, isFirst] = only_.try_emplace(*project.clientID, project.id);
            if (!isFirst) place->second.reset();
        }
        for (const Expense& expense : library.expenses)
            if (expense.projectID && known_.contains(*expense.projectID))
                ofExpense_.emplace(expense.id, *expense.projectID);
    }
    [[nodiscard]] std::optional<UUID> project(const Document& document, const Line& line) const {
        if (line.expenseID)
            if (const auto found = ofExpense_.find(*line.expenseID); found != ofExpense_.end()) return found->second;
        const auto found = document.clientID ? only_.find(*document.clientID) : only_.end();
        return found == only_.end() ? std::nullopt : found->second;
    }
    [[nodiscard]] std::optional<UUID> project(const Expense& expense) const {
        return expense.projectID && known_.contains(*expense.projectID) ? expense.projectID : std::nullopt;
    }

private:
    std::unordered_map<UUID, bool> known_;
    std::unordered_map<UUID, std::optional<UUID>> only_;  // by client; nothing where there are several
    std::unordered_map<UUID, UUID> ofExpense_;
};

void addDocument(Tallies& tallies, const Library& library, const Attribution& attribution, const Document& document) {
    std::map<std::optional<UUID>, std::int64_t> taxable;
    for (const Line& line : document.lines) {
        std::int64_t& sum = taxable[attribution.project(document, line)];
        sum = Checked::add(sum, DocMath::line(line, document.supply).taxable);
    }
    std::vector<std::int64_t> parts;
    for (const auto& [project, amount] : taxable) parts.push_back(amount);
    const auto converted =
        convertedParts(parts, [&](std::int64_t amount) { return Books::inHomeCurrency(library, document, amount); });
    if (!converted) return;
    auto amount = converted->begin();
    for (const auto& [project, part] : taxable) {
        Tally& tally = tallies[project];
        document.kind == DocKind::invoice ? tally.income.add(*amount) : tally.income.subtract(*amount);
        tally.documentIDs.push_back(document.id);
        ++amount;
    }
}

}  // namespace

std::vector<InputTaxRow> inputTax(const Library& library, const FinancialYear& year) {
    std::vector<InputTaxRow> rows;
    for (const Day& month : year.months()) rows.emplace_back().month = month;
    std::array<std::array<Sum, 4>, 12> claimed;
    std::array<Sum, 12> notClaimed;
    for (const Expense& expense : library.expenses) {
        const auto index = monthIndex(year, expense.date);
        if (!index || (expense.tax == 0 && expense.taxSplit == TaxSplit())) continue;
        const auto home = [&](std::int64_t amount) { return Expenses::inHomeCurrency(library, expense, amount); };
        if (!home(expense.amount)) continue;
        if (expense.claimTax) {
            const auto parts = convertedParts(partsOf(expense.taxSplit), home);
            if (!parts) continue;
            for (std::size_t i = 0; i < 4; ++i) claimed[*index][i].add((*parts)[i]);
        } else {
            const auto tax = home(expense.tax);
            if (!tax) continue;
            notClaimed[*index].add(*tax);
        }
        rows[*index].expenseIDs.push_back(expense.id);
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto& [cgst, sgst, igst, other] = claimed[i];
        rows[i].claimed = {cgst.value(), sgst.value(), igst.value(), other.value()};
        rows[i].notClaimed = notClaimed[i].value();
    }
    return rows;
}

std::vector<MileageRow> mileage(const Library& library, const FinancialYear& year) {
    std::vector<MileageRow> rows;
    for (const Day& month : year.months()) rows.emplace_back().month = month;
    std::array<Sum, 12> distance, amount;
    for (const Expense& expense : library.expenses) {
        const auto index = monthIndex(year, expense.date);
        if (!index || expense.kind != ExpenseKind::mileage) continue;
        const auto paid = Expenses::inHomeCurrency(library, expense, expense.amount);
        if (!paid) continue;
        distance[*index].add(expense.distanceMilli);
        amount[*index].add(*paid);
        rows[*index].expenseIDs.push_back(expense.id);
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].distanceMilli = distance[i].value();
        rows[i].amount = amount[i].value();
    }
    return rows;
}

std::int64_t ProjectRow::profit() const { return Checked::sub(income, expenses); }

std::vector<ProjectRow> projects(const Library& library, const Period& period) {
    const Attribution attribution(library);
    Tallies tallies;
    for (const Document& document : library.documents)
        if (document.kind != DocKind::estimate && document.state == DocState::issued &&
            period.contains(document.issueDate) && DocMath::isBelievable(document))
            addDocument(tallies, library, attribution, document);
    for (const Expense& expense : library.expenses) {
        if (!period.contains(expense.date) || !isBelievable(expense.amount) || !isBelievable(expense.tax)) continue;
        const auto cost = Expenses::inHomeCurrency(library, expense, expense.cost());
        if (!cost) continue;
        Tally& tally = tallies[attribution.project(expense)];
        tally.expenses.add(*cost);
        tally.expenseIDs.push_back(expense.id);
    }
    std::vector<ProjectRow> rows;
    for (auto& [id, tally] : tallies) {
        const Project* project = id ? library.project(*id) : nullptr;
        const Client* client = project && project->clientID ? library.client(*project->clientID) : nullptr;
        rows.push_back({id, project ? project->name : "No project", client ? client->name : "", tally.income.value(),
                        tally.expenses.value(), std::move(tally.documentIDs), std::move(tally.expenseIDs)});
    }
    std::stable_sort(rows.begin(), rows.end(), [](const ProjectRow& a, const ProjectRow& b) {
        if (a.projectID.has_value() != b.projectID.has_value()) return a.projectID.has_value();
        return a.profit() > b.profit();
    });
    return rows;
}

}  // namespace tamba::Breakdowns
