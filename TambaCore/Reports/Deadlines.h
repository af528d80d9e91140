#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The dates a business has to keep, from its regime: GST returns, advance tax, the letter of undertaking.
namespace tamba::Deadlines {

enum class Kind { gstr1, gstr3b, cmp08, gstr4, advanceTax, lut };

struct Deadline {
    Kind kind = Kind::gstr1;
    Day due;
    Period period;             ///< what is to be filed for
    std::string title;         ///< "GSTR-1 for October 2026"
    std::string holds;         ///< what is in it: "14 documents · ₹2,33,248.50 taxable"; a sentence where nothing is
    std::size_t problems = 0;  ///< what would be refused

    bool operator==(const Deadline&) const = default;
};

/// Those due from `today` on within so many days, by date; what the business's regime does not ask for is not among
/// them. Weekends and extensions that the government announces are not known.
[[nodiscard]] std::vector<Deadline> upcoming(const Library& library, Day today, int days = 45);

}  // namespace tamba::Deadlines
