#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/ReceiptParser.h"

#include <algorithm>
#include <array>

namespace tamba::BankImport {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDateSeparator(char c) { return c == '/' || c == '-' || c == '.'; }
char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

/// Takes pieces off the front of a text.
struct Scan {
    std::string_view rest;

    std::string_view digits() { return take(isDigit); }
    std::string_view letters() { return take(isLetter); }
    bool skip(std::string_view anyOf) {
        const std::size_t end = std::min(rest.find_first_not_of(anyOf), rest.size());
        rest.remove_prefix(end);
        return end > 0;
    }
    [[nodiscard]] char next() const { return rest.empty() ? '\0' : rest.front(); }

    template <class Test>
    std::string_view take(Test&& test) {
        std::size_t end = 0;
        while (end < rest.size() && test(rest[end])) ++end;
        const std::string_view taken = rest.substr(0, end);
        rest.remove_prefix(end);
        return taken;
    }
};

int number(std::string_view digits) {
    int value = 0;
    for (const char c : digits) value = value * 10 + (c - '0');
    return value;
}

int year(std::string_view digits) { return digits.size() == 2 ? 2000 + number(digits) : number(digits); }

/// 1–12 for a month's name or its first letters, 0 for other words.
int monthOf(std::string_view word) {
    static constexpr std::array<std::string_view, 12> names{"january",   "february", "march",    "april",
                                                            "may",       "june",     "july",     "august",
                                                            "september", "october",  "november", "december"};
    if (word.size() < 3) return 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool begins =
            word.size() <= names[i].size() &&
            std::equal(word.begin(), word.end(), names[i].begin(), [](char a, char b) { return lowered(a) == b; });
        if (begins) return static_cast<int>(i) + 1;
    }
    return 0;
}

/// Whether a cell may go on like this after its date: a time, or nothing.
bool endsDate(std::string_view rest) {
    if (rest.empty()) return true;
    if (rest.front() == 'T' || rest.front() == 't') return rest.size() > 1 && isDigit(rest[1]);
    Scan scan{rest};
    if (!scan.skip(" \t\n,")) return false;
    return scan.rest.empty() || isDigit(scan.next());
}

DateCell fixed(int y, int m, int d) {
    if (const auto day = Day::valid(y, m, d)) return {DateCell::Kind::fixed, 0, *day};
    return {};
}

/// A cell that is a date and perhaps a time. `matched` is false for anything else, which the slow finder then sees.
struct Strict {
    DateCell cell;
    bool matched = false;
};

Strict strictDate(std::string_view text) {
    Scan scan{text};
    const std::string_view first = scan.digits();
    if (first.size() == 4 || first.size() == 1 || first.size() == 2) {
        const char separator = scan.next();
        if (isDateSeparator(separator) && scan.rest.size() > 1 && isDigit(scan.rest[1])) {
            scan.rest.remove_prefix(1);
            const std::string_view second = scan.digits();
            if (second.size() > 2 || !isDateSeparator(scan.next())) return {};
            scan.rest.remove_prefix(1);
            const std::string_view third = scan.digits();
            if (!endsDate(scan.rest)) return {};
            if (first.size() == 4) {
                if (third.empty() || third.size() > 2) return {};
                return {fixed(number(first), number(second), number(third)), true};
            }
            if (third.size() != 2 && third.size() != 4) return {};
            DateCell cell{DateCell::Kind::numeric,
                          static_cast<std::uint8_t>(third.size()),
                          {number(first), number(second), number(third)}};
            return {cell, true};
        }
        if (first.size() == 4) return {};
        Scan word = scan;
        const std::string_view ordinal = word.letters();
        if (ordinal == "st" || ordinal == "nd" || ordinal == "rd" || ordinal == "th") scan = word;
        scan.skip(" -/.,");
        const int month = monthOf(scan.letters());
        scan.skip(" -/.,'");
        const std::string_view last = scan.digits();
        if (month == 0 || (last.size() != 2 && last.size() != 4) || !endsDate(scan.rest)) return {};
        return {fixed(year(last), month, number(first)), true};
    }
    if (first.empty()) {
        const int month = monthOf(scan.letters());
        scan.skip(".");
        if (month == 0 || !scan.skip(" ")) return {};
        const std::string_view day = scan.digits();
        if (day.empty() || day.size() > 2 || !scan.skip(" ,")) return {};
        const std::string_view last = scan.digits();
        if (last.size() != 4 || !endsDate(scan.rest)) return {};
        return {fixed(number(last), month, number(day)), true};
    }
    return {};
}

/// Without times of day: "15 Sep 10:30" has no year, and the finder would take the hour for one.
std::string withoutTimes(std::string_view text) {
    static const Text::Pattern time(R"((?<!\d)\d{1,2}:\d{2}(?::\d{2})?(?!\d))");
    return text.find(':') == std::string_view::npos ? std::string(text) : time.replaceAll(text, " ");
}

/// Longer cells are narrations and notes.
constexpr std::size_t longestDateCell = 60;

}  // namespace

std::optional<Day> DateCell::in(DateOrder order) const {
    if (kind == Kind::none) return std::nullopt;
    if (kind == Kind::fixed) return day;
    const int a = day.y, b = day.m, last = day.d;
    const int y = yearDigits == 2 ? 2000 + last : last;
    switch (order) {
        case DateOrder::dmy:
            return Day::valid(y, b, a);
        case DateOrder::mdy:
            return Day::valid(y, a, b);
        case DateOrder::ymd:
            return yearDigits == 2 ? Day::valid(2000 + a, b, last) : Day::valid(y, b, a);
    }
    return std::nullopt;
}

DateCell dateCell(std::string_view text, DateOrder order) {
    text = Text::trim(text);
    if (text.starts_with('\'')) text.remove_prefix(1);  // a spreadsheet's mark for text
    if (text.empty() || text.size() > longestDateCell) return {};
    if (const Strict strict = strictDate(text); strict.matched) return strict.cell;
    if (std::none_of(text.begin(), text.end(), isDigit)) return {};
    const std::vector<Day> found = ReceiptParser::dates(withoutTimes(text), order);
    return found.empty() ? DateCell{} : DateCell{DateCell::Kind::fixed, 0, found.front()};
}

std::optional<Day> parseDate(std::string_view text, DateOrder order) {
    text = Text::trim(text);
    // A cell such as 01-08-26 is no date of the year 1.
    const bool startsWithYear =
        text.size() > 4 && std::all_of(text.begin(), text.begin() + 4, isDigit) && text[4] == '-';
    if (startsWithYear)
        if (const auto day = Day::iso(text)) return day;
    if (const Strict strict = strictDate(text); strict.matched) return strict.cell.in(order);
    const std::vector<Day> found = ReceiptParser::dates(text, order);
    return found.empty() ? std::nullopt : std::optional(found.front());
}

Direction direction(std::string_view word) {
    static constexpr std::array<std::string_view, 10> out{"dr",      "debit", "d",         "withdrawal", "withdrawals",
                                                          "debited", "out",   "money out", "paid out",   "outflow"};
    static constexpr std::array<std::string_view, 10> in{"cr",       "credit", "c",        "deposit", "deposits",
                                                         "credited", "in",     "money in", "paid in", "inflow"};
    const std::string_view bare = Text::trim(Text::trim(word, "()."));
    if (bare.empty() || bare.size() > 12) return Direction::unsaid;
    const std::string lower = Text::lower(bare);
    if (std::find(out.begin(), out.end(), lower) != out.end()) return Direction::out;
    if (std::find(in.begin(), in.end(), lower) != in.end()) return Direction::in;
    return Direction::unsaid;
}

namespace {

constexpr std::string_view minusSign = "\u2212";

bool isFigureCharacter(char c) { return isDigit(c) || c == '.' || c == ','; }

/// The run of digits and marks in a cell, from its first digit to its last.
std::string_view figureOf(std::string_view cell) {
    std::size_t begin = 0;
    while (begin < cell.size() && !isDigit(cell[begin])) ++begin;
    std::size_t end = begin;
    while (end < cell.size() && isFigureCharacter(cell[end])) ++end;
    return cell.substr(begin, end - begin);
}

bool removeStart(std::string_view& text, std::string_view start) {
    if (text.size() < start.size() || start.empty()) return false;
    if (!std::equal(start.begin(), start.end(), text.begin(), [](char a, char b) { return lowered(a) == lowered(b); }))
        return false;
    text.remove_prefix(start.size());
    return true;
}

bool removeEnd(std::string_view& text, std::string_view end) {
    if (text.size() < end.size() || end.empty()) return false;
    std::string_view tail = text.substr(text.size() - end.size());
    if (!removeStart(tail, end)) return false;
    text.remove_suffix(end.size());
    return true;
}

std::string_view trimmedBlanks(std::string_view text) {
    while (true) {
        const std::size_t size = text.size();
        text = Text::trim(text, " \t");
        removeStart(text, "\u00A0");
        removeEnd(text, "\u00A0");
        if (text.size() == size) return text;
    }
}

/// Longest first, so that "Rs." does not leave its dot and "US$" not its letters.
const std::vector<std::string>& currencyMarks() {
    static const std::vector<std::string> marks = [] {
        std::vector<std::string> all{"Rs.", "Rs", "Re.", "US$"};
        for (const Currency& currency : Currency::all()) {
            all.push_back(currency.code);
            all.push_back(currency.symbol);
        }
        std::erase(all, "R");  // too short to tell from a stray letter
        std::stable_sort(all.begin(), all.end(), [](const auto& a, const auto& b) { return a.size() > b.size(); });
        return all;
    }();
    return marks;
}

bool removeSign(std::string_view& text, bool& negative) {
    if (removeStart(text, "-") || removeStart(text, minusSign)) {
        negative = true;
        return true;
    }
    return removeStart(text, "+");
}

/// Takes "Dr", "(Cr)", "CR." off the end, where a figure, a blank or a bracket stands before it.
Direction removeMarker(std::string_view& text) {
    if (isDigit(text.back())) return Direction::unsaid;
    std::string_view rest = text;
    const bool bracket = removeEnd(rest, ")");
    rest = trimmedBlanks(rest);
    removeEnd(rest, ".");
    for (const std::string_view word : {"debit", "credit", "dr", "cr", "d", "c"}) {
        std::string_view before = rest;
        if (!removeEnd(before, word)) continue;
        if (!before.empty() && isLetter(before.back())) return Direction::unsaid;
        before = trimmedBlanks(before);
        if (bracket && !removeEnd(before, "(")) return Direction::unsaid;
        text = trimmedBlanks(before);
        return word.front() == 'd' ? Direction::out : Direction::in;
    }
    return Direction::unsaid;
}

/// Figures with thousands separators: the first group has one to three digits, the last three, those between two
/// (lakh, crore) or three.
bool isGrouped(std::string_view whole, char separator) {
    std::size_t length = 0;
    bool first = true;
    for (std::size_t i = 0; i <= whole.size(); ++i) {
        const bool end = i == whole.size();
        if (!end && whole[i] != separator) {
            if (!isDigit(whole[i])) return false;
            ++length;
            continue;
        }
        if (first ? length < 1 || length > 3 : end ? length != 3 : length < 2 || length > 3) return false;
        first = false;
        length = 0;
    }
    return true;
}

struct Split {
    AmountCell::State state = AmountCell::State::unreadable;
    std::string_view whole, fraction;  ///< the whole part may hold thousands separators
};

/// Where the decimals of a figure of digits, points and commas begin.
Split split(std::string_view figure, int exponent, char mark, Figures::Style style) {
    using State = AmountCell::State;
    const std::size_t point = figure.rfind('.'), comma = figure.rfind(',');
    const bool hasPoint = point != figure.npos, hasComma = comma != figure.npos;
    const auto decimalsAt = [&](std::size_t at) -> Split {
        const Split result{State::amount, figure.substr(0, at), figure.substr(at + 1)};
        const bool isPlain = std::all_of(result.whole.begin(), result.whole.end(), isDigit);
        return isPlain || isGrouped(result.whole, figure[at] == '.' ? ',' : '.') ? result : Split{};
    };
    const auto thousands = [&](char separator) {
        return isGrouped(figure, separator) ? Split{State::amount, figure, {}} : Split{};
    };
    if (!hasPoint && !hasComma) return {State::amount, figure, {}};
    if (hasPoint && hasComma) {
        const std::size_t last = std::max(point, comma);
        if (mark != 0 && figure[last] != mark) return {State::ambiguous, {}, {}};
        return decimalsAt(last);
    }
    const char only = hasPoint ? '.' : ',';
    const std::size_t at = hasPoint ? point : comma;
    const std::size_t decimals = figure.size() - at - 1;
    if (std::count(figure.begin(), figure.end(), only) > 1)
        return mark == only ? Split{State::ambiguous, {}, {}} : thousands(only);
    if (style == Figures::Style::plain) {
        // A comma is a decimal mark where others are; alone before three digits it may have been meant for thousands.
        const bool doubtful = (mark != 0 && mark != only) || (only == ',' && decimals == 3 && mark != ',');
        return doubtful ? Split{State::ambiguous, {}, {}} : decimalsAt(at);
    }
    if (decimals == 0) return only == '.' ? decimalsAt(at) : Split{};
    if (decimals != 3) {
        if (mark != 0 && mark != only) return {State::ambiguous, {}, {}};
        return only == '.' || decimals < 3 || mark == ',' ? decimalsAt(at) : Split{};
    }
    // Three digits behind the only mark: thousands, or a fils or a rate's decimals.
    const bool cannotBeThousands = at == 0 || at > 3 || figure.front() == '0';
    if (mark == only) {
        if (only == '.' || exponent == 3 || cannotBeThousands) return decimalsAt(at);
        return {State::ambiguous, {}, {}};
    }
    if (mark != 0) return thousands(only);
    if (only == ',') return thousands(only);
    if (exponent == 3 || cannotBeThousands) return decimalsAt(at);
    return {State::ambiguous, {}, {}};
}

/// whole.fraction × 10^exponent, rounded half away from zero; nothing beyond what is believable.
std::optional<std::int64_t> scaled(const Split& figure, int exponent) {
    std::int64_t value = 0;
    const auto push = [&](char digit) {
        if (value > maximumAmount || !isDigit(digit)) return;
        value = value * 10 + (digit - '0');
    };
    for (const char c : figure.whole) push(c);
    for (int i = 0; i < exponent; ++i) {
        const auto place = static_cast<std::size_t>(i);
        push(place < figure.fraction.size() ? figure.fraction[place] : '0');
    }
    const auto next = static_cast<std::size_t>(exponent);
    if (figure.fraction.size() > next && figure.fraction[next] >= '5') ++value;
    return isBelievable(value) ? std::optional(value) : std::nullopt;
}

/// "1,23,456.78" or "500.00", as most amounts are printed, in one walk; nothing for any other spelling.
std::optional<std::int64_t> commonFigure(std::string_view text) {
    constexpr std::size_t shortest = 4, longest = 19;
    if (text.size() < shortest || text.size() > longest || text[text.size() - 3] != '.') return std::nullopt;
    std::int64_t value = 0;
    int group = 0;
    bool grouped = false;
    for (const char c : text.substr(0, text.size() - 3)) {
        if (isDigit(c)) {
            value = value * 10 + (c - '0');
            ++group;
        } else {
            if (c != ',' || group > 3 || group < (grouped ? 2 : 1)) return std::nullopt;
            grouped = true;
            group = 0;
        }
    }
    const char tens = text[text.size() - 2], ones = text.back();
    if (group == 0 || (grouped && group != 3) || !isDigit(tens) || !isDigit(ones)) return std::nullopt;
    value = value * 100 + (tens - '0') * 10 + (ones - '0');
    return isBelievable(value) ? std::optional(value) : std::nullopt;
}

}  // namespace

void Figures::see(std::string_view cell) {
    if (cell.empty()) return;
    if (commonFigure(cell)) {
        ++points_;
        return;
    }
    const std::string_view figure = figureOf(cell);
    const std::size_t point = figure.rfind('.'), comma = figure.rfind(',');
    if (point != figure.npos && comma != figure.npos) {
        ++(point > comma ? points_ : commas_);
        return;
    }
    const std::size_t at = point != figure.npos ? point : comma;
    if (at == figure.npos) return;
    const std::size_t decimals = figure.size() - at - 1;
    const bool isPoint = point != figure.npos;
    if (figure.find(figure[at]) != at)
        ++(isPoint ? commas_ : points_);  // several of one kind are thousands separators
    else if (decimals == 1 || decimals == 2 || (isPoint && decimals > 3))
        ++(isPoint ? points_ : commas_);
}

char Figures::decimalMark() const {
    if (points_ == 0 && commas_ == 0) return 0;
    return points_ >= commas_ ? '.' : ',';
}

namespace {

/// A text of digits, points and commas.
AmountCell figure(std::string_view text, const Currency& currency, char decimalMark, Figures::Style style) {
    AmountCell result;
    result.state = AmountCell::State::unreadable;
    if (text.empty() || text.front() == ',' || std::none_of(text.begin(), text.end(), isDigit)) return result;
    const Split parts = split(text, currency.exponent, decimalMark, style);
    result.state = parts.state;
    if (parts.state != AmountCell::State::amount) return result;
    if (currency.exponent == 0 && parts.fraction.find_first_not_of('0') != std::string::npos) {
        result.state = AmountCell::State::unreadable;  // there is no half yen
        return result;
    }
    const auto minor = scaled(parts, currency.exponent);
    if (!minor) result.state = AmountCell::State::tooLarge;
    result.minor = minor.value_or(0);
    return result;
}

}  // namespace

AmountCell amountCell(std::string_view cell, const Currency& currency, char decimalMark, Figures::Style style) {
    using State = AmountCell::State;
    AmountCell result;
    if (cell.empty()) return result;
    if (currency.exponent == 2 && decimalMark != ',') {
        std::string_view unsigned_ = cell;
        bool negative = false;
        (void)removeSign(unsigned_, negative);
        if (const auto minor = commonFigure(unsigned_)) return {State::amount, negative, Direction::unsaid, *minor};
    }
    std::string_view text = trimmedBlanks(Text::trim(cell));
    if (text.find_first_not_of("-") == text.npos || text == "\u2013" || text == "\u2014" || text == minusSign)
        return result;
    result.state = State::unreadable;
    if (text.size() > 64) return result;
    if (std::all_of(text.begin(), text.end(), isFigureCharacter)) return figure(text, currency, decimalMark, style);
    result.marked = removeMarker(text);
    if (text.size() >= 2 && text.front() == '(' && text.back() == ')') {
        result.negative = true;
        text = trimmedBlanks(text.substr(1, text.size() - 2));
    }
    bool negative = false;
    bool isSigned = removeSign(text, negative);
    text = trimmedBlanks(text);
    const auto removeMark = [&](auto&& remove) {
        const auto& marks = currencyMarks();
        return std::any_of(marks.begin(), marks.end(), [&](const auto& mark) { return remove(text, mark); });
    };
    if (!text.empty() && !isDigit(text.front()) && removeMark(removeStart)) {
        text = trimmedBlanks(text);
        if (!isSigned) isSigned = removeSign(text, negative);
        text = trimmedBlanks(text);
    }
    if (!text.empty() && !isDigit(text.back())) {
        if (!isSigned && (removeEnd(text, "-") || removeEnd(text, minusSign))) isSigned = negative = true;
        text = trimmedBlanks(text);
        if (removeMark(removeEnd)) text = trimmedBlanks(text);
        if (!isSigned && (removeEnd(text, "-") || removeEnd(text, minusSign))) negative = true;
        text = trimmedBlanks(text);
    }
    result.negative = result.negative || negative;

    // Blanks and apostrophes between groups of three, where decimals follow: "1 234,56", "1'234.50".
    std::string joined;
    if (!std::all_of(text.begin(), text.end(), isFigureCharacter)) {
        joined = Text::replaceAll(Text::replaceAll(std::string(text), "\u00A0", " "), "\u202F", " ");
        std::replace(joined.begin(), joined.end(), '\'', ' ');
        const std::size_t decimals = joined.find_first_of(".,");
        if (decimals == std::string::npos || !isGrouped(std::string_view(joined).substr(0, decimals), ' '))
            return result;
        std::erase(joined, ' ');
        text = joined;
    }
    if (!std::all_of(text.begin(), text.end(), isFigureCharacter)) return result;
    const AmountCell bare = figure(text, currency, decimalMark, style);
    result.state = bare.state;
    result.minor = bare.minor;
    return result;
}

std::string whyNoAmount(const AmountCell& amount, std::string_view cell) {
    const std::string shown = "“" + std::string(Text::prefix(cell, 40)) + "” ";
    switch (amount.state) {
        case AmountCell::State::ambiguous:
            return shown + "can be read as two different amounts.";
        case AmountCell::State::tooLarge:
            return shown + "is too large to be an amount.";
        default:
            return shown + "is not an amount.";
    }
}

}  // namespace tamba::BankImport
