#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/Money.h"

#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/numfmt.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <mutex>
#include <unordered_map>

namespace tamba::MoneyFormat {
namespace {

/// "AED 1,000.00" but "S$12.50" and "R99.00".
bool wantsSpaceAfter(std::string_view symbol) {
    // Most symbols are one character, which need not be looked at.
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    if (std::count_if(symbol.begin(), symbol.end(), std::not_fn(continues)) < 2) return false;
    const auto characters = Text::characters(symbol);
    return characters.size() >= 2 && std::all_of(characters.begin(), characters.end(), Text::isLetter);
}

/// True for the locales of the currency table other than India's: ASCII digits in groups of three, once the separators
/// are set.
bool groupsByThree(std::string_view localeID) {
    static const auto& table = Currency::all();
    return localeID != "en_IN" && std::any_of(table.begin(), table.end(), [localeID](const Currency& currency) {
               return currency.localeID == localeID;
           });
}

/// Digits of `whole`, the last three a group, the others in groups of `further`.
void appendGrouped(std::string& text, std::uint64_t whole, std::size_t further) {
    std::array<char, 20> digits{};
    const auto count =
        static_cast<std::size_t>(std::to_chars(digits.begin(), digits.end(), whole).ptr - digits.begin());
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t left = count - i;
        if (i > 0 && left >= 3 && (left - 3) % further == 0) text += ',';
        text += digits[i];
    }
}

void appendOwn(std::string& text, std::uint64_t minor, const Currency& currency, Decimals decimals) {
    const auto scale = static_cast<std::uint64_t>(currency.scale());
    std::uint64_t whole = minor / scale;
    const std::uint64_t fraction = minor % scale;
    if (decimals == Decimals::hidden && (fraction * 2 > scale || (fraction * 2 == scale && whole % 2 == 1))) ++whole;
    appendGrouped(text, whole, currency.code == "INR" ? 2 : 3);
    if (decimals == Decimals::hidden || currency.exponent == 0) return;
    text += '.';
    for (std::uint64_t place = scale / 10, rest = fraction; place > 0; rest %= place, place /= 10)
        text += static_cast<char>('0' + rest / place);
}

std::unique_ptr<icu::DecimalFormat> makeFormatter(const Currency& currency, Decimals decimals) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> made(
        icu::NumberFormat::createInstance(icu::Locale(currency.localeID.c_str()), UNUM_DECIMAL, status));
    auto* decimal = dynamic_cast<icu::DecimalFormat*>(made.get());
    if (U_FAILURE(status) || decimal == nullptr) return nullptr;
    made.release();
    std::unique_ptr<icu::DecimalFormat> formatter(decimal);
    icu::DecimalFormatSymbols symbols(*formatter->getDecimalFormatSymbols());
    symbols.setSymbol(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol, u",");
    symbols.setSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol, u".");
    formatter->setDecimalFormatSymbols(symbols);
    formatter->setGroupingUsed(true);
    if (currency.code == "INR") {
        formatter->setGroupingSize(3);
        formatter->setSecondaryGroupingSize(2);
    }
    const int digits = decimals == Decimals::shown ? currency.exponent : 0;
    formatter->setMinimumFractionDigits(digits);
    formatter->setMaximumFractionDigits(digits);
    return formatter;
}

/// The platform's own digits and grouping, for a currency that is not of the table. Formatters are dear to make and
/// live as long as the process.
std::string formatted(const std::string& figure, const Currency& currency, Decimals decimals) {
    static std::mutex mutex;
    static std::unordered_map<std::string, std::unique_ptr<icu::DecimalFormat>> formatters;
    const bool shown = decimals == Decimals::shown;
    const std::string key = currency.code + "-" + currency.localeID + "-" + std::to_string(currency.exponent) +
                            (shown ? "-true" : "-false");
    const std::lock_guard lock(mutex);
    const auto [entry, isNew] = formatters.try_emplace(key);
    if (isNew) entry->second = makeFormatter(currency, decimals);
    if (!entry->second) return figure;
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    entry->second->format(icu::StringPiece(figure), text, nullptr, status);
    if (U_FAILURE(status)) return figure;
    std::string result;
    text.toUTF8String(result);
    return result;
}

}  // namespace

std::string string(std::int64_t minor, const Currency& currency, Symbol symbol, Decimals decimals) {
    std::string text;
    if (minor < 0) text += "\u2212";
    if (symbol == Symbol::shown) {
        text += currency.symbol;
        if (wantsSpaceAfter(currency.symbol)) text += ' ';
    }
    const bool indian = currency.code == "INR" && currency.localeID == "en_IN";
    if (indian || groupsByThree(currency.localeID)) {
        appendOwn(text, minor < 0 ? 0 - static_cast<std::uint64_t>(minor) : static_cast<std::uint64_t>(minor), currency,
                  decimals);
        return text;
    }
    std::string figure = plain(minor, currency);
    if (minor < 0) figure.erase(0, 1);
    return text + formatted(figure, currency, decimals);
}

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isASCIILetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isSign(std::string_view character) {
    std::size_t at = 0;
    return u_charType(static_cast<UChar32>(Text::codePoint(character, at))) == U_CURRENCY_SYMBOL;
}

/// Words that stand for a currency.
bool isMarkWord(std::string_view word) {
    static const std::vector<std::string> words = [] {
        std::vector<std::string> made = {"RS", "RE", "RUPEE", "RUPEES", "DHS", "DH"};
        for (const Currency& currency : Currency::all()) {
            made.push_back(currency.code);
            if (std::all_of(currency.symbol.begin(), currency.symbol.end(), isASCIILetter))
                made.push_back(Text::upper(currency.symbol));
        }
        return made;
    }();
    return std::find(words.begin(), words.end(), Text::upper(word)) != words.end();
}

/// One side of a figure without its currency marks, a dot that belongs to one, and the blanks beside them.
std::string withoutMarks(std::string_view side) {
    std::string result;
    const auto characters = Text::characters(side);
    for (std::size_t i = 0; i < characters.size();) {
        // A sign takes the letters glued before it along (US$).
        std::size_t end = i;
        std::string word;
        while (end < characters.size() && characters[end].size() == 1 && isASCIILetter(characters[end].front()))
            word += characters[end++];
        const bool sign = end < characters.size() && isSign(characters[end]);
        if (sign) ++end;
        if (!sign && !isMarkWord(word)) {
            end = std::max(end, i + 1);
            for (; i < end; ++i) result += characters[i];
            continue;
        }
        if (end < characters.size() && characters[end] == ".") ++end;
        while (end < characters.size() && Text::trim(characters[end]).empty()) ++end;
        i = end;
    }
    return result;
}

}  // namespace

std::string withoutCurrencyMark(std::string_view input) {
    const std::string_view text = Text::trim(input);
    const auto first = static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isDigit) - text.begin());
    if (first == text.size()) return withoutMarks(text);
    std::size_t end = text.size();
    while (!isDigit(text[end - 1])) --end;
    const std::string_view figure = text.substr(first, end - first);

    // ".50" is a figure too, but only as cents: in "₹.500" and "Rs.50" the dot is the mark's.
    std::string_view before = text.substr(0, first);
    const bool cents =
        figure.size() <= 2 && before.size() >= 2 && before.ends_with('.') && !isASCIILetter(before[before.size() - 2]);
    if (cents) before.remove_suffix(1);
    std::string_view after = text.substr(end);
    // What is written behind whole units: 1,200/- and 500.-
    for (const std::string_view flourish : {"/-", "/=", ".-", ",-"}) {
        if (!after.starts_with(flourish)) continue;
        after.remove_prefix(flourish.size());
        break;
    }
    const std::string result = withoutMarks(before) + (cents ? "." : "") + std::string(figure) + withoutMarks(after);
    return std::string(Text::trim(result));
}

}  // namespace tamba::MoneyFormat
