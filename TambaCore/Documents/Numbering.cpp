#include "TambaCore/Documents/Numbering.h"

#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tamba::Numbering {
namespace {

constexpr std::int64_t largestCounter = 999'999'999;

std::string padded(std::int64_t number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

/// A piece of the pattern in braces, from `{` to `}`.
struct Token {
    std::size_t begin = 0;
    std::size_t length = 0;
};

bool isCounter(std::string_view token) {
    return token.size() > 2 && token.substr(1, token.size() - 2).find_first_not_of('#') == std::string_view::npos;
}

std::vector<Token> tokens(std::string_view pattern) {
    std::vector<Token> result;
    std::size_t open = std::string_view::npos;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '{') open = i;
        if (pattern[i] != '}' || open == std::string_view::npos) continue;
        result.push_back({open, i + 1 - open});
        open = std::string_view::npos;
    }
    return result;
}

bool isAllowedCharacter(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '/';
}

bool hasOnlyAllowed(std::string_view number) { return std::all_of(number.begin(), number.end(), isAllowedCharacter); }

}  // namespace

std::string format(std::string_view pattern, std::int64_t counter, Day date, int fyStart) {
    std::string number = Text::replaceAll(std::string(pattern), "{FY}", date.financialYear(fyStart).shortLabel());
    number = Text::replaceAll(std::move(number), "{YYYY}", padded(date.y, 4));
    number = Text::replaceAll(std::move(number), "{YY}", padded(date.y % 100, 2));
    number = Text::replaceAll(std::move(number), "{MM}", padded(date.m, 2));
    for (const Token& token : tokens(number))
        if (isCounter(std::string_view(number).substr(token.begin, token.length)))
            return number.replace(token.begin, token.length, padded(counter, token.length - 2));
    return number + std::to_string(counter);
}

std::string periodKey(std::string_view pattern, Day date, int fyStart) {
    if (Text::contains(pattern, "{FY}")) return date.financialYear(fyStart).shortLabel();
    if (!Text::contains(pattern, "{YYYY}") && !Text::contains(pattern, "{YY}")) return "all";
    return Text::contains(pattern, "{MM}") ? date.monthKey() : std::to_string(date.y);
}

std::string preview(std::string_view pattern, Day date, int fyStart) { return format(pattern, 1, date, fyStart); }

Next next(const Library& library, const NumberSeries& series, Day date) {
    const auto stored = series.next.find(periodKey(series.pattern, date, library.fyStart()));
    Next result;
    // A counter that cannot be is a damaged file's; counting begins anew and passes what is taken.
    if (stored != series.next.end() && stored->second >= 1 && stored->second <= maximumAmount)
        result.counter = stored->second;

    std::unordered_set<std::string> taken;
    for (const Document& document : library.documents)
        if (document.kind == series.kind && document.number) taken.insert(Text::lower(*document.number));
    for (;; ++result.counter) {
        result.number = format(series.pattern, result.counter, date, library.fyStart());
        if (!taken.contains(Text::lower(result.number))) return result;
    }
}

std::string nextNumber(const Library& library, const NumberSeries& series, Day date) {
    return next(library, series, date).number;
}

Library startAt(Library library, const UUID& series, Day date, std::int64_t counter) {
    const std::size_t index = indexOf(library.series, series);
    if (index == library.series.size() || counter < 1 || counter > largestCounter) return library;
    const std::string period = periodKey(library.series[index].pattern, date, library.fyStart());
    library.series.update(index, [&](NumberSeries& changed) { changed.next[period] = counter; });
    return library;
}

bool isRemovable(const Library& library, const UUID& id) {
    const NumberSeries* series = find(library.series, id);
    if (!series) return false;
    const bool numbers = std::any_of(library.documents.begin(), library.documents.end(),
                                     [&](const Document& d) { return d.seriesID == id && d.number; });
    return !numbers && std::count_if(library.series.begin(), library.series.end(),
                                     [&](const NumberSeries& other) { return other.kind == series->kind; }) > 1;
}

Library remove(Library library, const UUID& id) {
    if (!isRemovable(library, id)) return library;
    library.series.erase(indexOf(library.series, id));
    for (std::size_t i = 0; i < library.documents.size(); ++i)
        if (library.documents[i].seriesID == id)
            library.documents.update(i, [](Document& document) { document.seriesID.reset(); });
    return library;
}

std::optional<std::string> problem(const Library& library, const NumberSeries& series, Day today) {
    static constexpr std::array<std::string_view, 4> known{"{FY}", "{YYYY}", "{YY}", "{MM}"};
    const std::string number = nextNumber(library, series, today);
    if (Text::length(number) > maximumLength) return "· too long for GST (16 max)";

    std::size_t counters = 0;
    for (const Token& place : tokens(series.pattern)) {
        const std::string_view token = std::string_view(series.pattern).substr(place.begin, place.length);
        if (isCounter(token))
            ++counters;
        else if (std::find(known.begin(), known.end(), token) == known.end())
            return "“" + std::string(token) +
                   "” means nothing here. Tokens are {FY}, {YYYY}, {YY}, {MM} and {###}, in capitals.";
    }
    if (counters > 1) return "Only the first counter counts. Remove the other one.";
    if (library.business.isIndia() && !hasOnlyAllowed(number))
        return "GST allows only the letters A–Z, digits, “-” and “/” in a number.";
    if (counters == 0) return "There is no counter, so it is put at the end. Add {###} where it belongs.";
    for (const NumberSeries& other : library.series)
        if (other.id != series.id && Text::lower(other.pattern) == Text::lower(series.pattern))
            return "“" + other.name + "” has the same pattern. Give each series its own.";
    return {};
}

bool isAllowed(std::string_view number) {
    return !number.empty() && number.size() <= maximumLength && hasOnlyAllowed(number);
}

}  // namespace tamba::Numbering
