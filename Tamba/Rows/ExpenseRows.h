#pragma once

#include "Tamba/Rows/Listing.h"
#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the Expenses screen shows, as finished texts. Pure: the books, a filter and today in, rows out.
namespace tamba {

/// Which expenses a person looks at, as chosen in the sidebar.
enum class ExpenseList { all, toCheck, withoutCategory, withoutRate, billable, mileage, withoutReceipt };
/// What its rows can be ordered by.
enum class ExpenseOrder { date, vendor, category, amount, tax, method, status };

struct ExpenseFilter {
    ExpenseList list = ExpenseList::all;
    std::optional<Period> days = {};  ///< nothing: all time
    std::string search = {};          ///< words that must all occur, in any of the texts people know the expense by
    ExpenseOrder order = ExpenseOrder::date;
    bool ascending = false;
    bool operator==(const ExpenseFilter&) const = default;
};

enum class Tone { none, warning, danger, neutral, good };

struct ExpenseRow {
    UUID id;
    std::string date, vendor, category, amount, tax, method, status;
    std::string symbol, colorHex;  ///< of the category
    std::string hint;              ///< the whole sentence behind `status`
    std::string glyph;             ///< for the status where there is no room for its word
    Tone tone = Tone::none;
    bool receipt = false;
    bool operator==(const ExpenseRow&) const = default;
};

struct ExpenseTable {
    LazyRows<ExpenseRow> rows;
    /// "42 expenses", "₹1,23,456.00", "₹12,345.00" (claimed input tax), "2 without a rate left out".
    std::string count, total, tax, leftOut;
};

[[nodiscard]] ExpenseTable expenseTable(const Library& library, const ExpenseFilter& filter);

/// The same tables, one after the other: what neither the books nor the filter have changed is not gone through again.
class ExpenseListing {
public:
    ExpenseListing();
    ~ExpenseListing();
    [[nodiscard]] ExpenseTable table(const Library& library, const ExpenseFilter& filter);

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// How many expenses each list holds, in one pass over the books.
struct ExpenseCounts {
    std::array<std::size_t, 7> lists{};  ///< by `ExpenseList`
    std::size_t incomplete = 0;          ///< without a category or a rate, each once

    [[nodiscard]] std::size_t of(ExpenseList list) const { return lists[static_cast<std::size_t>(list)]; }
};
[[nodiscard]] ExpenseCounts countExpenses(const Library& library);
[[nodiscard]] bool belongsTo(const Library& library, const Expense& expense, ExpenseList list);

[[nodiscard]] std::string_view title(ExpenseList list);
[[nodiscard]] std::string_view title(PaymentMethod method);
[[nodiscard]] const std::vector<PaymentMethod>& allMethods();
/// The parts of a tax, "CGST ₹90.00 · SGST ₹90.00"; empty without tax.
[[nodiscard]] std::string splitText(const TaxSplit& split, const Currency& currency, const Business& business);

/// A span the period picker offers, and its neighbours.
enum class Span { month, quarter, year, all };
[[nodiscard]] std::optional<Period> daysOf(Span span, Day day, int fyStartMonth);
[[nodiscard]] std::string titleOf(Span span, Day day, int fyStartMonth);
[[nodiscard]] Day stepped(Span span, Day day, int steps);

}  // namespace tamba
