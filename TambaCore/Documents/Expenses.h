#pragma once

#include "TambaCore/Documents/BooksError.h"
#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Operations on expenses. Each takes the books and gives the changed books; an id that is not there changes nothing.
namespace tamba::Expenses {

/// Category for a vendor: that of the first rule whose text occurs in it, else that of its latest expense, else none. A
/// category that has since been deleted counts as none.
[[nodiscard]] std::optional<UUID> suggestedCategory(const Library& library, std::string_view vendor);
/// The first rule whose text occurs in the vendor or narration (case ignored), or null. A rule without text fits
/// nothing.
[[nodiscard]] const CategoryRule* rule(const Library& library, std::string_view text);
/// The latest expense of a vendor (case and blanks at the ends ignored), the later entry of one day; or null.
[[nodiscard]] const Expense* latest(const Library& library, std::string_view vendor);

/// Adding and replacing (the expense that has the same id) work a mileage amount out anew: distance × its own rate, no
/// tax. Replacing throws `figures` where what can be right became what cannot.
[[nodiscard]] Library add(Library library, Expense expense);
[[nodiscard]] Library replace(Library library, Expense expense);
/// Also frees the bank line it was matched with and the lines of drafts that bill it. Its files are the store's.
[[nodiscard]] Library remove(Library library, const UUID& id);
/// With another category; `claimTax` follows the category. A business that charges no tax claims none back either: the
/// composition scheme and the unregistered have no input credit (CGST Act 2017, sections 10(4) and 16(1)).
[[nodiscard]] Expense withCategory(const Library& library, Expense expense, std::optional<UUID> category);
/// With another tax total, divided by the vendor's and the business's states; a total of 0 clears the split.
[[nodiscard]] Expense withTax(const Library& library, Expense expense, std::int64_t tax);
/// With another currency and the rate kept for it; 0 where none is kept, which leaves the expense out of reports. The
/// figures stay as people read them: 118.00 rupees become 118 yen.
[[nodiscard]] Expense withCurrency(const Library& library, Expense expense, std::string_view currency);
/// Keeps the rate of a currency for what is entered from that day on; without a rate, keeps none. What is in the books
/// stays at its own.
[[nodiscard]] Library keepRate(Library library, std::string_view currency, std::optional<std::int64_t> rateMicros,
                               Day day);
/// Distance (thousandths) × rate (minor units per unit of distance), in minor units; nothing where one of the three is
/// beyond belief, which entry refuses.
[[nodiscard]] std::optional<std::int64_t> mileageAmount(std::int64_t distanceMilli, std::int64_t rateMinor);
/// A mileage expense: amount = distance × rate (0 where that is beyond belief), in the home currency, no tax. The rate
/// is kept with it, so that a later rate leaves it alone.
[[nodiscard]] Expense mileage(const Library& library, Expense blank, std::int64_t distanceMilli,
                              std::int64_t rateMinor);

/// `amount` of an expense, or its tax or cost, in minor units of the home currency at the expense's rate; nothing while
/// the rate is missing or where a figure is beyond belief: sums leave such an expense out.
[[nodiscard]] std::optional<std::int64_t> inHomeCurrency(const Library& library, const Expense& expense,
                                                         std::int64_t amount);
/// The expense in the home currency for good: each figure is converted once at the expense's rate, the parts of the
/// tax so that they add up as before, and a line of the notes keeps what was paid ("USD 20.00 at 83.25"). Throws
/// `missingRate`, or `figures` where a result is beyond belief.
[[nodiscard]] Expense convertedToHome(const Library& library, Expense expense);

/// What keeps an expense out of the reports or wants a look, as a finished sentence; nothing when all is well.
[[nodiscard]] std::optional<std::string> attention(const Library& library, const Expense& expense);

}  // namespace tamba::Expenses
