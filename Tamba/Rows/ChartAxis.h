#pragma once

#include "TambaCore/Model/Money.h"

#include <cstdint>
#include <string>
#include <vector>

/// Where the lines of a chart of amounts stand and what is written beside them. Amounts in minor units.
namespace tamba {

struct ChartAxis {
    std::int64_t step = 0;            ///< 1, 2 or 5 times a power of ten, at least one major unit
    std::vector<std::int64_t> marks;  ///< ascending; 0 is among them, and all values lie between the first and the last

    /// At most six marks for values of either sign. Without values above or below 0: from 0 to one step.
    [[nodiscard]] static ChartAxis over(std::int64_t lowest, std::int64_t highest, const Currency& currency);
};
/// As short as people say it: "₹50,000", "₹1.5 lakh", "₹2 crore", "$20,000", "$3 million", "0".
[[nodiscard]] std::string axisText(std::int64_t minor, const Currency& currency);

}  // namespace tamba
