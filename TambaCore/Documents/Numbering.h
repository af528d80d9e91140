#pragma once

#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Document numbers made from a series pattern such as "INV/{FY}/{###}". Tokens: {FY} 26-27, {YYYY}, {YY}, {MM}, and
/// {###} for the counter, one # a digit. Pure; counters live in `NumberSeries::next`, one for each counting period.
///
///     Numbering::format("INV/{FY}/{###}", 7, {2026, 10, 14}, 4)    // INV/26-27/007
namespace tamba::Numbering {

/// Longest number GST allows (CGST Rules 2017, rule 46(b)), in characters.
inline constexpr std::size_t maximumLength = 16;

/// The number of one document. `counter` starts at 1, `fyStart` is a month 1–12. Only the first counter token is
/// replaced; a counter with more digits than # is written whole; a pattern without one gets the counter appended. The
/// length is not checked here but when a document is issued.
[[nodiscard]] std::string format(std::string_view pattern, std::int64_t counter, Day date, int fyStart);
/// The counting period a date falls in: "26-27", "2026-10", "2026" or "all". Two documents of a series share a counter
/// exactly when their keys are equal.
[[nodiscard]] std::string periodKey(std::string_view pattern, Day date, int fyStart);
/// The number as it will look, with counter 1: for the pattern's field in the settings.
[[nodiscard]] std::string preview(std::string_view pattern, Day date, int fyStart);

/// A counter and the number it gives.
struct Next {
    std::int64_t counter = 1;
    std::string number;
};
/// What issuing on that date would give: the period's next counter, past those whose number a document of the same kind
/// has already (case ignored, since the tax portal ignores it).
[[nodiscard]] Next next(const Library& library, const NumberSeries& series, Day date);
[[nodiscard]] std::string nextNumber(const Library& library, const NumberSeries& series, Day date);
/// The series' next number in the period of that date is to have this counter: for books taken over in mid-year. A
/// series or counter that cannot be (below 1, above 999,999,999) changes nothing.
[[nodiscard]] Library startAt(Library library, const UUID& series, Day date, std::int64_t counter);

/// Whether a series may go: it has numbered nothing, and its kind of document has another.
[[nodiscard]] bool isRemovable(const Library& library, const UUID& series);
/// The books without a series; its drafts go on with the one that new documents begin with. Unchanged where it may not
/// go.
[[nodiscard]] Library remove(Library library, const UUID& series);

/// What the settings mark beside a pattern, as a finished sentence; nothing when all is well. A pattern that is marked
/// still works, except that too long a number is refused when a document is issued.
/// - numbers too long: "· too long for GST (16 max)", the mark of the settings as it stands
/// - characters that GST does not allow in a number: only letters, digits, "-" and "/" (CGST Rules 2017, rule 46(b))
/// - no counter, a second counter, a token in lower case or unknown, the same pattern as another series
[[nodiscard]] std::optional<std::string> problem(const Library& library, const NumberSeries& series, Day today);
/// Whether a number may stand on a tax document: 1–16 letters, digits, "-" and "/".
[[nodiscard]] bool isAllowed(std::string_view number);

}  // namespace tamba::Numbering
