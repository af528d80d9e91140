#pragma once

#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamba::testing {

/// The rows of a file of cases, cut at its tabs. Lines that begin with # say why.
inline std::vector<std::vector<std::string>> casesOf(const std::string& file) {
    std::vector<std::vector<std::string>> rows;
    for (const std::string& line : Text::splitLines(Files::read(file)))
        if (!line.empty() && !line.starts_with("# ")) rows.push_back(Text::split(line, '\t'));
    return rows;
}
/// A number of a case; nothing for "none".
inline std::optional<std::int64_t> numberOf(const std::string& cell) {
    return cell == "none" ? std::nullopt : std::optional(std::stoll(cell));
}

}  // namespace tamba::testing
