#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/ReceiptParser.h"
#include "TambaCore/Receipts/ReceiptParts.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tamba::ReceiptParser {
namespace {

constexpr std::array<std::string_view, 12> months{"january",   "february", "march",    "april",
                                                  "may",       "june",     "july",     "august",
                                                  "september", "october",  "november", "december"};

struct Found {
    std::size_t begin = 0, end = 0;
    Day day;
    bool firm = true;  ///< false for a month that is no month's name: "2 decaf 25" is hardly 2 December
};

std::optional<int> number(std::string_view digits) {
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
    return value;
}

std::optional<Day> day(std::string_view year, std::string_view month, std::string_view dayOfMonth) {
    const auto y = number(year), m = number(month), d = number(dayOfMonth);
    if (!y || !m || !d) return std::nullopt;
    return Day::valid(year.size() == 2 ? 2000 + *y : *y, *m, *d);
}

/// A month by its first three letters, as the patterns have made sure of.
std::string monthNumber(std::string_view word) {
    for (std::size_t i = 0; i < months.size(); ++i)
        if (months[i].starts_with(word.substr(0, 3))) return std::to_string(i + 1);
    return {};
}

bool isMonth(std::string_view word) {
    return word == "sept" ||
           std::any_of(months.begin(), months.end(), [&](auto name) { return name.starts_with(word); });
}

/// A numeric date of three groups, the year last unless the order says otherwise.
std::optional<Day> numeric(std::string_view a, std::string_view b, std::string_view c, DateOrder order) {
    switch (order) {
        case DateOrder::dmy:
            return day(c, b, a);
        case DateOrder::mdy:
            return day(c, a, b);
        case DateOrder::ymd:
            // 26/10/14; a year of four digits cannot be anything but the year, wherever it stands.
            return c.size() == 2 ? day(a.size() == 1 ? "" : a, b, c) : day(c, b, a);
    }
    return std::nullopt;
}

/// Every date in a lower-cased text, in text order.
std::vector<Found> find(std::string_view lower, DateOrder order) {
    static const std::string month = "((?:jan|feb|mar|apr|may|jun|jul|aug|sep|sept|oct|nov|dec)[a-z]*)";
    // 2026-10-14, not the tail of 12026-10-14.
    static const Text::Pattern yearFirst(R"((?<!\d)(\d{4})[/\-.](\d{1,2})[/\-.](\d{1,2})(?!\d))");
    // 14/10/2026, 14.10.26.
    static const Text::Pattern yearLast(R"((?<!\d)(\d{1,2})[/\-.](\d{1,2})[/\-.](\d{2}|\d{4})(?!\d))");
    // 14th oct 2026, 14-oct-26, 14oct2026.
    static const Text::Pattern dayMonth(R"((?<!\d)(\d{1,2})(?:st|nd|rd|th)?[\s\-/.,]*)" + month +
                                        R"([\s\-/.,']*(\d{4}|\d{2})(?!\d))");
    // october 14, 2026; also "august 3 , 2014" and "oct. 14,2026".
    static const Text::Pattern monthDay(month + R"(\.?\s+(\d{1,2})(?:st|nd|rd|th)?(?:\s*,\s*|\s+)(\d{4}))");
    std::vector<Found> found;
    const auto add = [&](const Text::Pattern::Match& match, std::optional<Day> day, bool firm = true) {
        if (day) found.push_back({match.begin, match.end, *day, firm});
    };
    if (lower.find_first_of("0123456789") == std::string_view::npos) return found;
    for (const auto& match : yearFirst.all(lower)) add(match, day(match[1], match[2], match[3]));
    for (const auto& match : yearLast.all(lower)) add(match, numeric(match[1], match[2], match[3], order));
    for (const auto& match : dayMonth.all(lower))
        add(match, day(match[3], monthNumber(match[2]), match[1]), isMonth(match[2]));
    for (const auto& match : monthDay.all(lower))
        add(match, day(match[3], monthNumber(match[1]), match[2]), isMonth(match[1]));
    std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) { return a.begin < b.begin; });
    return found;
}

/// How likely a date is the receipt's own; smaller is likelier.
enum Rank { ofReceipt, labelled, ofOrder, bare, ofOther, chance };

const Text::Pattern& dateLabel() {
    static const Text::Pattern label(R"((?<!up)(?:dated?|\bdt)(?![a-z]))");
    return label;
}

/// What the words in front of a date say about it, or nothing when they say nothing.
std::optional<Rank> rank(std::string_view words) {
    // "due dt", "valid till", "best before", "mfg. date": some other day than the receipt's, whatever else is said.
    static const Text::Pattern other(
        R"(\b(due|deliver\w*|exp|expiry|expir\w+|valid\w*|mfg|mfd|manufactur\w*|)"
        R"(best before|use by|birth|dob|d\.o\.b|joining|arrival|departure|check.?(?:in|out)|)"
        R"(start|journey|travel|next|return\w*|warranty|packed|pkd)\b)");
    static const Text::Pattern own(R"(\b(invoice|inv\b|bill|receipt|rcpt|transaction|txn|trans\b|payment|paid|issue))");
    static const Text::Pattern order(R"(\b(order|po\b|p\.o\b|challan))");
    if (other.matches(words)) return ofOther;
    if (!dateLabel().matches(words)) return std::nullopt;
    if (own.matches(words)) return ofReceipt;
    if (order.matches(words)) return ofOrder;
    return labelled;
}

/// What a line without a date says about those of the next line, column by column ("Invoice Date   Due Date").
std::vector<Rank> ranks(std::string_view lower) {
    constexpr std::size_t longestLabel = 30;  // a sentence that mentions a delivery says nothing about the next line
    std::vector<Rank> result;
    std::size_t begin = 0;
    for (const Text::Pattern::Match& match : dateLabel().all(lower)) {
        if (const auto said = rank(lower.substr(begin, match.end - begin))) result.push_back(*said);
        begin = match.end;
    }
    if (result.empty() && lower.size() <= longestLabel)
        if (const auto said = rank(lower)) result.push_back(*said);
    return result;
}

struct Ranked {
    Day day;
    Rank rank = bare;
};

std::vector<Ranked> ranked(const std::vector<std::string>& lines, DateOrder order) {
    std::vector<Ranked> result;
    std::vector<Rank> above;
    for (std::size_t i = 0, count = lookedAt(lines); i < count; ++i) {
        const std::string lower = Text::lower(lookedAt(lines[i]));
        const std::string_view line = lower;
        const std::vector<Found> found = find(line, order);
        std::size_t after = 0;
        for (std::size_t nth = 0; nth < found.size(); ++nth) {
            const Found& date = found[nth];
            const std::size_t from = std::min(after, date.begin);
            std::optional<Rank> said = rank(line.substr(from, date.begin - from));
            // "14/10/2026 (date)": a label behind the line's only date.
            if (!said && found.size() == 1) said = rank(line.substr(date.end));
            if (!said && nth < above.size()) said = above[nth];
            result.push_back({date.day, date.firm || said ? said.value_or(bare) : chance});
            after = std::max(after, date.end);
        }
        above = found.empty() ? ranks(line) : std::vector<Rank>();
    }
    return result;
}

/// The likeliest, the first among equals.
std::optional<Day> likeliest(const std::vector<Ranked>& dates, Day today) {
    const Ranked* best = nullptr;
    const auto key = [&](const Ranked& date) { return std::pair{!isLikely(date.day, today), date.rank}; };
    for (const Ranked& date : dates)
        if (!best || key(date) < key(*best)) best = &date;
    return best ? std::optional(best->day) : std::nullopt;
}

}  // namespace

std::vector<Day> dates(std::string_view text, DateOrder order) {
    std::vector<Day> result;
    for (const Found& found : find(Text::lower(Text::prefixBytes(text, longestText)), order))
        result.push_back(found.day);
    return result;
}

bool isLikely(Day day, Day today) { return day <= today && day >= today.addingMonths(-120); }

ReadDate readDate(const std::vector<std::string>& lines, DateOrder order, Day today) {
    if (const auto day = likeliest(ranked(lines, order), today)) return {day, false};
    for (const DateOrder other : {DateOrder::dmy, DateOrder::mdy})
        if (other != order)
            if (const auto day = likeliest(ranked(lines, other), today)) return {day, true};
    return {};
}

std::optional<Day> date(const std::vector<std::string>& lines, DateOrder order, Day today) {
    return readDate(lines, order, today).day;
}

}  // namespace tamba::ReceiptParser
