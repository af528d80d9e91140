#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/Money.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace tamba::MoneyFormat {
namespace {

/// The digits and decimal point of a figure without sign, read exactly.
struct Figure {
    std::string_view whole, fraction;

    /// Nothing unless `text` is digits with at most one ".", and at least one digit.
    static std::optional<Figure> read(std::string_view text) {
        const std::size_t dot = std::min(text.find('.'), text.size());
        Figure figure{text.substr(0, dot), dot < text.size() ? text.substr(dot + 1) : std::string_view()};
        const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
        if (figure.whole.empty() && figure.fraction.empty()) return {};
        if (!std::all_of(figure.whole.begin(), figure.whole.end(), isDigit)) return {};
        if (!std::all_of(figure.fraction.begin(), figure.fraction.end(), isDigit)) return {};
        return figure;
    }

    /// × 10^places, rounded half away from zero; nothing when that does not fit.
    [[nodiscard]] std::optional<std::int64_t> scaled(int places) const {
        std::int64_t value = 0;
        const auto append = [&value](char digit) {
            return !__builtin_mul_overflow(value, 10, &value) && !__builtin_add_overflow(value, digit - '0', &value);
        };
        for (const char digit : whole)
            if (!append(digit)) return {};
        const auto decimals = static_cast<std::size_t>(places);
        for (std::size_t i = 0; i < decimals; ++i)
            if (!append(i < fraction.size() ? fraction[i] : '0')) return {};
        const bool up = fraction.size() > decimals && fraction[decimals] >= '5';
        if (up && __builtin_add_overflow(value, 1, &value)) return {};
        return value;
    }
};

std::optional<std::int64_t> parseUnsigned(std::string_view text, int places) {
    std::string figure = Text::replaceAll(std::string(Text::trim(text)), ",", "");
    const bool negative = figure.starts_with('-');
    if (negative || figure.starts_with('+')) figure.erase(0, 1);
    const auto read = Figure::read(figure);
    const auto value = read ? read->scaled(places) : std::nullopt;
    return negative && value != 0 ? std::nullopt : value;
}

constexpr std::string_view minusSign = "\u2212";

bool removePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

bool removeSuffix(std::string_view& text, std::string_view suffix) {
    if (!text.ends_with(suffix)) return false;
    text.remove_suffix(suffix.size());
    return true;
}

enum class Marked { not_, debit, credit };

/// Takes a debit or credit mark off the end.
Marked removeDebitOrCredit(std::string_view& text) {
    for (const std::string_view mark : {"DR", "DR.", "CR", "CR."}) {
        if (text.size() < mark.size() || Text::upper(text.substr(text.size() - mark.size())) != mark) continue;
        text.remove_suffix(mark.size());
        return mark.front() == 'D' ? Marked::debit : Marked::credit;
    }
    return Marked::not_;
}

/// The digits of an amount with at most one ".", by the rules of `parse` for which separator is the decimal one.
std::string withDecimalPoint(std::string_view text) {
    std::string kept;
    for (const char c : text)
        if ((c >= '0' && c <= '9') || c == '.' || c == ',') kept += c;
    const std::size_t dot = kept.rfind('.');
    const std::size_t comma = kept.rfind(',');
    bool commaIsDecimal = false;
    if (comma != kept.npos) {
        const std::size_t following = kept.size() - comma - 1;
        commaIsDecimal = dot != kept.npos ? comma > dot : following == 1 || following == 2;
    }
    std::erase(kept, commaIsDecimal ? '.' : ',');
    std::replace(kept.begin(), kept.end(), ',', '.');
    if (std::count(kept.begin(), kept.end(), '.') > 1) std::erase(kept, '.');
    return kept;
}

}  // namespace

std::optional<std::int64_t> parse(std::string_view input, const Currency& currency) {
    std::string_view text = Text::trim(input);
    const Marked mark = removeDebitOrCredit(text);
    bool negative = mark == Marked::debit;
    text = Text::trim(text);
    if (text.size() >= 2 && text.starts_with('(') && text.ends_with(')')) {
        negative = true;
        text = text.substr(1, text.size() - 2);
    }
    if (removePrefix(text, "-") || removePrefix(text, minusSign) || removeSuffix(text, "-")) negative = true;

    const std::string kept = withDecimalPoint(text);
    const auto figure = Figure::read(kept);
    const auto value = figure ? figure->scaled(currency.exponent) : std::nullopt;
    return value && negative ? -*value : value;
}

std::optional<std::int64_t> parseQuantity(std::string_view text) { return parseUnsigned(text, 3); }
std::optional<std::int64_t> parseFXRate(std::string_view text) { return parseUnsigned(text, 6); }

std::optional<std::int64_t> parseEntry(std::string_view text, const Currency& currency) {
    const auto value = parse(withoutCurrencyMark(text), currency);
    return value && isBelievable(*value) ? value : std::nullopt;
}

namespace {

__extension__ using Wide = __int128;
/// No value is larger than this, so that every one has a negative.
constexpr Wide widest = ~(static_cast<Wide>(1) << 127);

/// An exact fraction in lowest terms, its denominator above 0. What does not fit 128 bits, or a division by zero, is
/// nothing.
struct Fraction {
    Wide numerator = 0;
    Wide denominator = 1;

    static std::optional<Fraction> of(std::optional<Wide> numerator, std::optional<Wide> denominator) {
        if (!numerator || !denominator || *denominator == 0) return {};
        if (*denominator < 0) return of(-*numerator, -*denominator);
        Wide common = *denominator;
        for (Wide rest = size(*numerator); rest != 0;) common = std::exchange(rest, common % rest);
        return Fraction{*numerator / common, *denominator / common};
    }

    /// Nothing beyond ±`widest`.
    static std::optional<Wide> product(Wide a, Wide b) {
        if (a != 0 && size(b) > widest / size(a)) return {};
        return a * b;
    }

    [[nodiscard]] std::optional<Fraction> plus(const Fraction& other) const {
        const auto left = product(numerator, other.denominator);
        const auto right = product(other.numerator, denominator);
        if (!left || !right || size(*left) > widest - size(*right)) return {};
        return of(*left + *right, product(denominator, other.denominator));
    }

    [[nodiscard]] std::optional<Fraction> times(const Fraction& other) const {
        // Reduced crosswise first, so that only a result that cannot be held is refused.
        const auto a = of(numerator, other.denominator);
        const auto b = of(other.numerator, denominator);
        if (!a || !b) return {};
        return of(product(a->numerator, b->numerator), product(a->denominator, b->denominator));
    }

    [[nodiscard]] Fraction negated() const { return {-numerator, denominator}; }

    /// × `scale`, rounded half away from zero.
    [[nodiscard]] std::optional<std::int64_t> scaled(std::int64_t scale) const {
        const auto enlarged = product(numerator, scale);
        if (!enlarged) return {};
        Wide quotient = *enlarged / denominator;
        const Wide remainder = size(*enlarged % denominator);
        if (remainder >= denominator - remainder) quotient += *enlarged < 0 ? -1 : 1;
        if (size(quotient) > std::numeric_limits<std::int64_t>::max()) return {};
        return static_cast<std::int64_t>(quotient);
    }

    static Wide size(Wide value) { return value < 0 ? -value : value; }
};

constexpr std::size_t longestSum = 256;

bool holdsDigit(std::string_view text) { return text.find_first_of("0123456789") != text.npos; }

/// Figures and the signs + - * / ( ) of an entry. The strokes written behind whole units, as in 1,200/- and 500.-, are
/// no signs; x is one between figures.
std::vector<std::string> pieces(std::string_view entry) {
    std::string text(entry);
    for (const auto& [written, meant] : {std::pair{"\u2212", "-"}, {"\u00D7", "*"}, {"\u00F7", "/"}})
        text = Text::replaceAll(text, written, meant);
    // The next character that is no blank, 0 at the end.
    const auto next = [&](std::size_t from) {
        const std::size_t at = text.find_first_not_of(' ', from);
        return at == text.npos ? '\0' : text[at];
    };
    const auto beginsFactor = [](char c) { return (c >= '0' && c <= '9') || c == '(' || c == '.'; };

    std::vector<std::string> result;
    std::string figure;
    const auto endFigure = [&] {
        if (const auto trimmed = Text::trim(figure); !trimmed.empty()) result.emplace_back(trimmed);
        figure.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const char after = i + 1 < text.size() ? text[i + 1] : '\0';
        if ((c == '/' && (after == '-' || after == '=') && !beginsFactor(next(i + 2))) ||
            ((c == '.' || c == ',') && after == '-')) {
            ++i;
        } else if (std::string_view("+-*/()").find(c) != std::string_view::npos) {
            endFigure();
            result.emplace_back(1, c);
        } else if ((c == 'x' || c == 'X') && holdsDigit(figure) && beginsFactor(next(i + 1))) {
            endFigure();
            result.emplace_back("*");
        } else {
            figure += c;
        }
    }
    endFigure();
    return result;
}

/// Whether the pieces are more than one figure with its sign or, as accountants write a negative one, in brackets.
bool isSum(const std::vector<std::string>& pieces) {
    const auto isFigure = [](const std::string& piece) { return holdsDigit(piece); };
    const auto first = std::find_if(pieces.begin(), pieces.end(), isFigure);
    const auto last = std::find_if(pieces.rbegin(), pieces.rend(), isFigure).base();
    if (std::count(pieces.begin(), pieces.end(), "(") > 1) return true;
    for (auto piece = pieces.begin(); piece != pieces.end(); ++piece) {
        if (*piece == "*" || *piece == "/") return true;
        if (*piece == "+" && piece > first) return true;
        if (*piece == "-" && piece > first && piece < last) return true;
    }
    return false;
}

/// Reads the pieces: products before sums, from the left, a minus before any factor.
class SumReader {
public:
    explicit SumReader(const std::vector<std::string>& pieces) : pieces_(pieces) {}

    [[nodiscard]] std::optional<Fraction> read() {
        const auto value = sum();
        return at_ == pieces_.size() ? value : std::nullopt;
    }

private:
    bool take(std::string_view sign) {
        if (at_ == pieces_.size() || pieces_[at_] != sign) return false;
        ++at_;
        return true;
    }

    std::optional<Fraction> sum() {
        auto value = product();
        while (value) {
            const bool minus = take("-");
            if (!minus && !take("+")) break;
            const auto other = product();
            value = other ? value->plus(minus ? other->negated() : *other) : std::nullopt;
        }
        return value;
    }

    std::optional<Fraction> product() {
        auto value = factor();
        while (value) {
            const bool division = take("/");
            if (!division && !take("*")) break;
            auto other = factor();
            if (other && division) other = Fraction::of(other->denominator, other->numerator);
            value = other ? value->times(*other) : std::nullopt;
        }
        return value;
    }

    std::optional<Fraction> factor() {
        if (take("-")) {
            const auto value = factor();
            return value ? std::optional(value->negated()) : std::nullopt;
        }
        if (take("(")) {
            const auto value = sum();
            return take(")") ? value : std::nullopt;
        }
        return at_ == pieces_.size() ? std::nullopt : figure(pieces_[at_++]);
    }

    /// Stricter than `parse`: beside a sign that was overlooked, digits run together would be another figure.
    static std::optional<Fraction> figure(std::string_view piece) {
        const std::string text = withoutCurrencyMark(piece);
        if (text.find_first_not_of("0123456789.,") != text.npos) return {};
        const std::string decimal = withDecimalPoint(text);
        const auto read = Figure::read(decimal);
        if (!read) return {};
        std::optional<Wide> numerator = 0;
        std::optional<Wide> denominator = 1;
        for (const char digit : read->whole) numerator = appended(numerator, digit);
        for (const char digit : read->fraction) {
            numerator = appended(numerator, digit);
            denominator = denominator ? Fraction::product(*denominator, 10) : std::nullopt;
        }
        return Fraction::of(numerator, denominator);
    }

    static std::optional<Wide> appended(std::optional<Wide> value, char digit) {
        const auto shifted = value ? Fraction::product(*value, 10) : std::nullopt;
        return shifted && *shifted <= widest - 9 ? std::optional<Wide>(*shifted + (digit - '0')) : std::nullopt;
    }

    const std::vector<std::string>& pieces_;
    std::size_t at_ = 0;
};

}  // namespace

std::optional<std::int64_t> parseSum(std::string_view text, const Currency& currency) {
    std::string_view entry = Text::trim(text);
    if (entry.starts_with('=')) entry.remove_prefix(1);
    if (entry.size() > longestSum) return {};
    const auto parts = pieces(entry);
    if (!isSum(parts)) return parseEntry(entry, currency);
    const auto value = SumReader(parts).read();
    const auto minor = value ? value->scaled(currency.scale()) : std::nullopt;
    return minor && isBelievable(*minor) ? minor : std::nullopt;
}

}  // namespace tamba::MoneyFormat
