#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Money is a count of minor units (paise, cents, fils) in 64 bits; it is never a floating-point number. Whatever
/// multiplies or divides it goes through `MoneyMath::mulDiv`, which rounds once, half away from zero.
///
///     MoneyFormat::string(1234567890, Currency::inr())            // ₹1,23,45,678.90
///     MoneyFormat::parse("(1,234.50)", Currency::inr())           // -123450
namespace tamba {

/// A currency of ISO 4217 as the books use it. Identity is `code`; equality is over all fields.
struct Currency {
    std::string code;      ///< upper case
    int exponent = 2;      ///< decimal places of the minor unit
    std::string symbol;    ///< printed before amounts
    std::string name;      ///< English name
    std::string localeID;  ///< locale whose digit shapes amounts are printed with

    /// Minor units in one major unit: 1, 100 or 1000.
    [[nodiscard]] std::int64_t scale() const;

    /// The table row for this code in any case; an unknown code gives a made-up currency with two decimals. Never
    /// fails.
    [[nodiscard]] static Currency of(std::string_view code);
    /// The built-in table, in the order of every currency picker.
    [[nodiscard]] static const std::vector<Currency>& all();
    [[nodiscard]] static const Currency& inr();

    bool operator==(const Currency&) const = default;
};

/// Exact integer arithmetic. Every rounding is to the nearest integer, halves away from zero.
namespace MoneyMath {

/// a × b ÷ c, exact, rounded once. c = 0 or a result outside 64 bits stops the program.
[[nodiscard]] std::int64_t mulDiv(std::int64_t a, std::int64_t b, std::int64_t c);
/// `basisPoints` of `amount`: 1800 is 18 %.
[[nodiscard]] std::int64_t percent(std::int64_t amount, std::int64_t basisPoints);
/// `amount` (minor units) rounded to whole major units of `scale` minor units; unchanged when scale < 2.
[[nodiscard]] std::int64_t roundToWhole(std::int64_t amount, std::int64_t scale);
/// `amount` in minor units of `from`, in minor units of `to`. `rateMicros`: how many `to` one `from` is worth, in
/// millionths. Same code: unchanged.
[[nodiscard]] std::int64_t convert(std::int64_t amount, const Currency& from, const Currency& to,
                                   std::int64_t rateMicros);
/// The same for figures that come from outside: nothing while the rate is missing (below 1) or where amount, rate or
/// result are beyond belief.
[[nodiscard]] std::optional<std::int64_t> tryConvert(std::int64_t amount, const Currency& from, const Currency& to,
                                                     std::int64_t rateMicros);

}  // namespace MoneyMath

/// How amounts, quantities and rates are printed and read.
namespace MoneyFormat {

enum class Symbol : bool { hidden, shown };
enum class Decimals : bool { hidden, shown };

/// ₹1,23,456.00, −₹1,500.00, AED 1,000.00: U+2212 first, then the symbol, grouping by 3 (rupees by 3, then 2), "," and
/// "." in every locale. Without decimals the value is rounded half-even to whole units. Safe on any thread.
[[nodiscard]] std::string string(std::int64_t minor, const Currency& currency, Symbol symbol = Symbol::shown,
                                 Decimals decimals = Decimals::shown);
/// For files: -1234.50. No symbol, no grouping, ASCII minus.
[[nodiscard]] std::string plain(std::int64_t minor, const Currency& currency);
/// "Rupees One Thousand Two Hundred and Fifty Paise Only", as invoices print it. The sign is dropped.
[[nodiscard]] std::string words(std::int64_t minor, const Currency& currency);

enum class Numbering : bool { international, indian };
/// English words for n ≥ 0, in lakh and crore or in thousand and million.
[[nodiscard]] std::string numberWords(std::uint64_t n, Numbering numbering);

/// Thousandths: "3", "2.5", "0.125".
[[nodiscard]] std::string quantity(std::int64_t milli);
/// Basis points: "18%", "2.5%", "0.25%".
[[nodiscard]] std::string rate(std::int64_t basisPoints);
/// Millionths: "83.25", "1".
[[nodiscard]] std::string fxRate(std::int64_t micros);

/// Minor units from what a person or a bank wrote: "(1,234.50)", "500 DR", "1.234,50", "−12,5". Nothing when it is no
/// number or does not fit 64 bits. Strips no currency mark: a caller that may meet one uses `withoutCurrencyMark`
/// first.
[[nodiscard]] std::optional<std::int64_t> parse(std::string_view text, const Currency& currency);
/// Thousandths, not negative; nothing when unreadable.
[[nodiscard]] std::optional<std::int64_t> parseQuantity(std::string_view text);
/// Millionths, not negative; nothing when unreadable.
[[nodiscard]] std::optional<std::int64_t> parseFXRate(std::string_view text);

/// The text without a currency mark before or after its figure: "Rs.1,855.26" gives "1,855.26", "INR 500" "500",
/// "−₹20" "−20". Left in, the mark's own dot would be read as a decimal point.
[[nodiscard]] std::string withoutCurrencyMark(std::string_view text);
/// What an entry field holds, in minor units: mark stripped, then `parse`; amounts beyond `maximumAmount` give nothing.
[[nodiscard]] std::optional<std::int64_t> parseEntry(std::string_view text, const Currency& currency);
/// The same, also for a sum with + − × * / and brackets: "3*1200", "1,180/1.18", "₹500 + 2 × (40 − 5)". Worked out
/// exactly and rounded once, halves away from zero; nothing where it is no sum, divides by zero, or is beyond
/// `maximumAmount`. A single figure in brackets stays negative, as in `parse`.
[[nodiscard]] std::optional<std::int64_t> parseSum(std::string_view text, const Currency& currency);

}  // namespace MoneyFormat

/// Largest believable amount in minor units, quantity in thousandths, and so on: 10^15. What lies beyond is a typing or
/// reading error; readers refuse it, and sums leave it out, so that no figure anybody typed can overflow.
inline constexpr std::int64_t maximumAmount = 1'000'000'000'000'000;
[[nodiscard]] constexpr bool isBelievable(std::int64_t amount) {
    return amount <= maximumAmount && amount >= -maximumAmount;
}

}  // namespace tamba
