#pragma once

#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Operations on expenses. Each takes the books and gives the changed books; an id that is not there changes nothing.
namespace tamba::Expenses {

/// Category for a vendor: the first rule whose text occurs in it (case ignored), else that of its latest expense, else
/// none.
[[nodiscard]] std::optional<UUID> suggestedCategory(const Library& library, std::string_view vendor);
/// The first rule whose text occurs in the vendor or narration, or null.
[[nodiscard]] const CategoryRule* rule(const Library& library, std::string_view text);
/// The latest expense of a vendor (case and blanks at the ends ignored), or null.
[[nodiscard]] const Expense* latest(const Library& library, std::string_view vendor);

[[nodiscard]] Library add(Library library, Expense expense);
/// Replaces the expense that has the same id. A mileage amount is worked out anew: distance × rate, no tax.
[[nodiscard]] Library replace(Library library, Expense expense);
[[nodiscard]] Library remove(Library library, const UUID& id);
/// With another category; `claimTax` follows the category.
[[nodiscard]] Expense withCategory(const Library& library, Expense expense, std::optional<UUID> category);
/// With another tax total, divided by the vendor's and the business's states; a total of 0 clears the split.
[[nodiscard]] Expense withTax(const Library& library, Expense expense, std::int64_t tax);
/// With another currency and the rate kept for it; 0 where none is kept, which leaves the expense out of reports.
[[nodiscard]] Expense withCurrency(const Library& library, Expense expense, std::string_view currency);
/// A mileage expense: amount = distance × rate, in the home currency, no tax.
[[nodiscard]] Expense mileage(const Library& library, Expense blank, std::int64_t distanceMilli,
                              std::int64_t rateMinor);

/// What keeps an expense out of the reports or wants a look, as a finished sentence; nothing when all is well.
[[nodiscard]] std::optional<std::string> attention(const Library& library, const Expense& expense);

}  // namespace tamba::Expenses
