#include "TambaCore/Model/Money.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tamba {

std::int64_t Currency::scale() const {
    if (exponent < 0 || exponent > 18) fatal("a currency has 0 to 18 decimal places");
    std::int64_t scale = 1;
    for (int i = 0; i < exponent; ++i) scale *= 10;
    return scale;
}

const std::vector<Currency>& Currency::all() {
    static const std::vector<Currency> table = {
        {"INR", 2, "₹", "Indian rupee", "en_IN"},
        {"USD", 2, "$", "US dollar", "en_US"},
        {"EUR", 2, "€", "Euro", "en_IE"},
        {"GBP", 2, "£", "Pound sterling", "en_GB"},
        {"AED", 2, "AED", "UAE dirham", "en_AE"},
        {"SGD", 2, "S$", "Singapore dollar", "en_SG"},
        {"AUD", 2, "A$", "Australian dollar", "en_AU"},
        {"CAD", 2, "C$", "Canadian dollar", "en_CA"},
        {"NZD", 2, "NZ$", "New Zealand dollar", "en_NZ"},
        {"CHF", 2, "CHF", "Swiss franc", "de_CH"},
        {"JPY", 0, "¥", "Japanese yen", "ja_JP"},
        {"KWD", 3, "KD", "Kuwaiti dinar", "en_KW"},
        {"BHD", 3, "BD", "Bahraini dinar", "en_BH"},
        {"SAR", 2, "SAR", "Saudi riyal", "en_SA"},
        {"ZAR", 2, "R", "South African rand", "en_ZA"},
        {"LKR", 2, "Rs", "Sri Lankan rupee", "en_LK"},
        {"NPR", 2, "Rs", "Nepalese rupee", "en_NP"},
        {"BDT", 2, "৳", "Bangladeshi taka", "en_BD"},
    };
    return table;
}

const Currency& Currency::inr() { return all().front(); }

Currency Currency::of(std::string_view code) {
    const std::string upper = Text::upper(code);
    for (const Currency& currency : all())
        if (currency.code == upper) return currency;
    return {upper, 2, upper, upper, "en_US"};
}

namespace MoneyMath {

std::int64_t mulDiv(std::int64_t a, std::int64_t b, std::int64_t c) {
    if (c == 0) fatal("division by zero");
    __extension__ using Wide = __int128;
    const Wide product = static_cast<Wide>(a) * b;
    Wide quotient = product / c;
    const Wide remainder = product % c;
    const auto size = [](Wide value) { return value < 0 ? -value : value; };
    if (size(remainder) * 2 >= size(c)) quotient += (product < 0) == (c < 0) ? 1 : -1;
    if (quotient > std::numeric_limits<std::int64_t>::max() || quotient < std::numeric_limits<std::int64_t>::min())
        fatal("overflow in multiplication and division");
    return static_cast<std::int64_t>(quotient);
}

std::int64_t percent(std::int64_t amount, std::int64_t basisPoints) { return mulDiv(amount, basisPoints, 10'000); }

std::int64_t roundToWhole(std::int64_t amount, std::int64_t scale) {
    return scale < 2 ? amount : Checked::mul(mulDiv(amount, 1, scale), scale);
}

std::int64_t convert(std::int64_t amount, const Currency& from, const Currency& to, std::int64_t rateMicros) {
    if (from.code == to.code) return amount;
    return mulDiv(amount, Checked::mul(rateMicros, to.scale()), Checked::mul(1'000'000, from.scale()));
}

std::optional<std::int64_t> tryConvert(std::int64_t amount, const Currency& from, const Currency& to,
                                       std::int64_t rateMicros) {
    if (!isBelievable(amount)) return {};
    if (from.code == to.code) return amount;
    if (rateMicros < 1 || !isBelievable(rateMicros)) return {};
    // Three believable factors fit 128 bits; their quotient need not fit 64.
    __extension__ using Wide = __int128;
    const Wide value = static_cast<Wide>(amount) * rateMicros * to.scale() / 1'000'000 / from.scale();
    if (value > maximumAmount || value < -maximumAmount) return {};
    return convert(amount, from, to, rateMicros);
}

}  // namespace MoneyMath

namespace MoneyFormat {
namespace {

std::uint64_t magnitude(std::int64_t value) {
    return value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
}

/// |value| ÷ 10^places, with exactly that many decimals.
std::string decimalText(std::int64_t value, int places) {
    std::string digits = std::to_string(magnitude(value));
    if (places == 0) return digits;
    const auto decimals = static_cast<std::size_t>(places);
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    digits.insert(digits.size() - decimals, 1, '.');
    return digits;
}

/// value ÷ 10^places without needless decimals.
std::string shortDecimal(std::int64_t value, int places) {
    std::string text = decimalText(value, places);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return (value < 0 ? "-" : "") + text;
}

constexpr std::array<std::string_view, 20> small = {
    "",    "One",    "Two",    "Three",    "Four",     "Five",    "Six",     "Seven",     "Eight",    "Nine",
    "Ten", "Eleven", "Twelve", "Thirteen", "Fourteen", "Fifteen", "Sixteen", "Seventeen", "Eighteen", "Nineteen"};
constexpr std::array<std::string_view, 10> tens = {"",      "",      "Twenty",  "Thirty", "Forty",
                                                   "Fifty", "Sixty", "Seventy", "Eighty", "Ninety"};

struct Scale {
    std::uint64_t size;
    std::string_view word;
};
constexpr std::array<Scale, 3> indianScales = {{{10'000'000, "Crore"}, {100'000, "Lakh"}, {1'000, "Thousand"}}};
constexpr std::array<Scale, 4> internationalScales = {
    {{1'000'000'000'000, "Trillion"}, {1'000'000'000, "Billion"}, {1'000'000, "Million"}, {1'000, "Thousand"}}};

void addWord(std::string& words, std::string_view word) {
    if (!words.empty()) words += ' ';
    words += word;
}

}  // namespace

std::string plain(std::int64_t minor, const Currency& currency) {
    return (minor < 0 ? "-" : "") + decimalText(minor, currency.exponent);
}

std::string numberWords(std::uint64_t n, Numbering numbering) {
    if (n == 0) return "Zero";
    std::string words;
    const auto addScale = [&](const Scale& scale) {
        if (n < scale.size) return;
        addWord(words, numberWords(n / scale.size, numbering));
        addWord(words, scale.word);
        n %= scale.size;
    };
    if (numbering == Numbering::indian)
        std::for_each(indianScales.begin(), indianScales.end(), addScale);
    else
        std::for_each(internationalScales.begin(), internationalScales.end(), addScale);
    if (n >= 100) {
        addWord(words, small[n / 100]);
        addWord(words, "Hundred");
        n %= 100;
    }
    if (n >= 20) {
        addWord(words, tens[n / 10]);
        n %= 10;
    }
    if (n > 0) addWord(words, small[n]);
    return words;
}

std::string words(std::int64_t minor, const Currency& currency) {
    const bool rupees = currency.code == "INR";
    const Numbering numbering = rupees ? Numbering::indian : Numbering::international;
    const std::string unit = rupees ? "Rupees" : currency.code.ends_with('D') ? "Dollars" : currency.name;
    const auto scale = static_cast<std::uint64_t>(currency.scale());
    const std::uint64_t whole = magnitude(minor) / scale;
    const std::uint64_t fraction = magnitude(minor) % scale;
    std::string text = unit + " " + numberWords(whole, numbering);
    if (fraction > 0 && currency.exponent == 2)
        text += " and " + numberWords(fraction, numbering) + (rupees ? " Paise" : " Cents");
    return text + " Only";
}

std::string quantity(std::int64_t milli) { return shortDecimal(milli, 3); }
std::string rate(std::int64_t basisPoints) { return shortDecimal(basisPoints, 2) + "%"; }
std::string fxRate(std::int64_t micros) { return shortDecimal(micros, 6); }

}  // namespace MoneyFormat
}  // namespace tamba
