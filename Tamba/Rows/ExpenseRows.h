#pragma once

#include "TambaCore/Model/Models.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// The expenses screen's table as finished texts: library and filter in, rows out. No Qt.
namespace tamba {

struct ExpenseRow {
    UUID id;
    std::string date, vendor, category, amount, tax, method, status;
    std::string symbol, colorHex;  ///< of the category
    std::size_t receipts = 0;
    bool attention = false;   ///< `status` asks for something
    std::string explanation;  ///< the whole sentence behind `status`

    bool operator==(const ExpenseRow&) const = default;
};

enum class ExpenseColumn { date, vendor, category, amount, tax, method, receipt, status };

struct ExpenseFilter {
    std::optional<Day> from, to;
    std::string search;
    bool onlyAttention = false;
    ExpenseColumn sortedBy = ExpenseColumn::date;
    bool ascending = false;

    bool operator==(const ExpenseFilter&) const = default;
};

struct ExpenseTable {
    std::vector<ExpenseRow> rows;
    std::string total;        ///< in the home currency
    std::size_t leftOut = 0;  ///< rows that the total does not hold: no rate, or a figure beyond belief
};

[[nodiscard]] ExpenseTable expenseTable(const Library& library, const ExpenseFilter& filter);
/// Expenses of the whole book that want a look, for the sidebar's badge.
[[nodiscard]] std::size_t attentionCount(const Library& library);

/// Titles for people, in the order of the enumeration.
[[nodiscard]] const std::vector<std::string>& paymentMethodTitles();

/// A period of the picker: its name and its days.
struct NamedPeriod {
    std::string name;
    std::optional<Day> from, to;
};
/// All, this and last month, this and last quarter, this and the two earlier financial years.
[[nodiscard]] std::vector<NamedPeriod> periods(Day today, int fyStart);

}  // namespace tamba
