#pragma once

#include "TambaCore/Documents/Search.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the search over all shows, as finished texts. Pure: hits and commands in, rows out.
namespace tamba {

/// Something in a menu.
struct SearchCommand {
    std::string text;   ///< "Import Statement…"
    std::string where;  ///< "File", "File · New Other"
    std::string keys;   ///< "Ctrl+I"; empty without
};

struct SearchRow {
    enum class What { heading, hit, more, command };
    UUID id;  ///< the record's, of others made up
    What what = What::heading;
    Search::Kind kind = Search::Kind::expense;  ///< of all but commands
    std::string text, second, right;
    std::string glyph;
    std::size_t command = 0;  ///< position in the commands
    bool operator==(const SearchRow&) const = default;
};

/// Hits of each kind that are shown at once, and of the one that somebody asked to see all of.
inline constexpr std::size_t hitsShown = 5, hitsOfExpanded = 200;

/// Each kind under its heading, the commands whose texts and menus have all words last.
[[nodiscard]] std::vector<SearchRow> searchRows(const std::vector<Search::Group>& groups,
                                                std::optional<Search::Kind> expanded, std::string_view words,
                                                const std::vector<SearchCommand>& commands);

}  // namespace tamba
