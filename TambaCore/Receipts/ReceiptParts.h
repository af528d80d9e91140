#pragma once

#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/Day.h"
#include "TambaCore/Model/Models.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the parts of the receipt parser share. It looks at a bounded part of a text only: a receipt is a few
/// kilobytes, and reading all of what is far longer would let one file hold up the others.
namespace tamba::ReceiptParser {

inline constexpr std::size_t longestLine = 4'000;
inline constexpr std::size_t mostLines = 3'000;
inline constexpr std::size_t longestText = 200'000;

[[nodiscard]] inline std::string_view lookedAt(std::string_view line) {
    return line.size() <= longestLine ? line : Text::prefixBytes(line, longestLine);
}

/// The number of lines, from the first, that are looked at.
[[nodiscard]] inline std::size_t lookedAt(const std::vector<std::string>& lines) {
    std::size_t bytes = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        bytes += std::min(lines[i].size(), longestLine);
        if (i == mostLines || bytes > longestText) return i;
    }
    return lines.size();
}

struct ReadDate {
    std::optional<Day> day;
    bool otherOrder = false;  ///< no date could be read in the order asked for
};
/// Not in the future and not more than ten years back.
[[nodiscard]] bool isLikely(Day day, Day today);
[[nodiscard]] ReadDate readDate(const std::vector<std::string>& lines, DateOrder order, Day today);

}  // namespace tamba::ReceiptParser
