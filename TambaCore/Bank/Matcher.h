#pragma once

#include "TambaCore/Model/Models.h"

#include <compare>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Which expense or invoice a bank line could be, with a score and reasons a person can read. Money out is compared
/// with expenses that no line is matched to, other lines with issued invoices that are not yet paid. Amounts are
/// compared in the home currency: records at their own rate, a line of a foreign account at the rate kept for it, and
/// so is what is in the line's own currency, lest $20 differ from $20. What has no rate or is beyond belief is no
/// candidate. `Bank/Matching.h` has the operations that link.
///
///     for (const auto& suggestion : Matcher::suggestions(line, library, Matcher::listDays))
///         show(suggestion.reason);                       // "same amount, 1 day apart, mentions chai"
namespace tamba {

struct MatchSuggestion {
    struct Target {
        enum class Kind { expense, invoice };
        Kind kind = Kind::expense;
        UUID id;

        auto operator<=>(const Target&) const = default;
    };
    Target target;
    int score = 0;       ///< up to 100, higher is better
    std::string reason;  ///< the reasons, joined with ", "

    auto operator<=>(const MatchSuggestion&) const = default;
};

namespace Matcher {

/// How many days around a line expenses are looked for: by `Bank::autoMatch`, and where a person looks.
inline constexpr int obviousDays = 7;
inline constexpr int listDays = 30;

/// All candidates, best first; those of one score in the order of the books.
[[nodiscard]] std::vector<MatchSuggestion> suggestions(const BankTransaction& line, const Library& library,
                                                       int dayWindow);

/// The words two texts are compared by: runs of letters and digits in any script, in small letters, without those that
/// say how money moved ("upi", "neft") or what a firm is ("pvt", "ltd"), and without words of one or two letters
/// ("dr", "to", की), which are in too many narrations.
[[nodiscard]] std::set<std::string> words(std::string_view text);

}  // namespace Matcher
}  // namespace tamba
