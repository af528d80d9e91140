#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The dates a business has to keep, from its regime: GST returns, advance tax, the letter of undertaking. The tax year
/// is April to March whatever the books' own is. The books hold no choice of quarterly returns (QRMP), so GSTR-1 and
/// GSTR-3B are monthly here.
///
///     for (const auto& deadline : Deadlines::upcoming(library, today)) show(deadline.due, deadline.title);
namespace tamba::Deadlines {

enum class Kind { gstr1, gstr3b, cmp08, gstr4, advanceTax, lut };
[[nodiscard]] std::string_view word(Kind kind);  ///< "gstr1", "advanceTax"

/// When something is due for a period that begins in these days.
struct Rule {
    Kind kind;
    Day from;
    std::optional<Day> to;  ///< absent: still the rule
    int length;             ///< of the period, in months from April: 1, 3 or 12
    int after;              ///< months from the period's first month to the one it is due in
    int day;                ///< of that month
    int percent;            ///< of the year's tax that is to be paid by then; 0 for all but advance tax
    std::string_view source;
};
[[nodiscard]] const std::vector<Rule>& table();

struct Deadline {
    Kind kind = Kind::gstr1;
    Day due;
    Period period;             ///< what is to be filed for
    std::string title;         ///< "GSTR-1 for October 2026"
    std::string holds;         ///< what is in it: "14 documents · ₹2,33,248.50 taxable"; "Nil return" where nothing is
    std::string note;          ///< to whom it applies, or what is not in the figures
    std::size_t problems = 0;  ///< what would be refused
    std::size_t documents = 0;
    std::int64_t taxable = 0;  ///< or turnover, or profit so far; in minor units of the home currency
    std::int64_t payable = 0;  ///< what is to be paid with it, as far as the books tell

    bool operator==(const Deadline&) const = default;
};

/// Those due from `today` on within so many days, by date; what the business's regime does not ask for is not among
/// them. Weekends and extensions that the government announces are not known.
[[nodiscard]] std::vector<Deadline> upcoming(const Library& library, Day today, int days = 45);

}  // namespace tamba::Deadlines
