#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/Money.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/unistr.h>

#include <fstream>
#include <limits>
#include <thread>

namespace tamba {
namespace {

using namespace MoneyFormat;
__extension__ using Wide = unsigned __int128;

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();

/// Any 64-bit number, as often small as large.
rc::Gen<std::int64_t> anyNumber() {
    return rc::gen::apply(
        [](std::int64_t value, int shift) { return value >> shift; },
        rc::gen::oneOf(rc::gen::inRange(lowest, highest), rc::gen::element(lowest, lowest + 1, highest)),
        rc::gen::inRange(0, 64));
}

rc::Gen<Currency> anyCurrency() { return rc::gen::elementOf(Currency::all()); }

/// What the platform itself prints for a row of the table, once the separators are set.
std::string platformText(std::int64_t minor, const Currency& currency, Decimals decimals) {
    UErrorCode status = U_ZERO_ERROR;
    icu::DecimalFormatSymbols symbols(icu::Locale(currency.localeID.c_str()), status);
    symbols.setSymbol(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol, u",");
    symbols.setSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol, u".");
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(icu::Locale(currency.localeID.c_str()), UNUM_DECIMAL, status));
    auto& decimal = dynamic_cast<icu::DecimalFormat&>(*format);
    decimal.setDecimalFormatSymbols(symbols);
    const int digits = decimals == Decimals::shown ? currency.exponent : 0;
    decimal.setMinimumFractionDigits(digits);
    decimal.setMaximumFractionDigits(digits);
    std::string figure = plain(minor, currency);
    if (minor < 0) figure.erase(0, 1);
    icu::UnicodeString text;
    decimal.format(icu::StringPiece(figure), text, nullptr, status);
    EXPECT_TRUE(U_SUCCESS(status));
    std::string result;
    text.toUTF8String(result);
    return (minor < 0 ? "−" : "") + result;
}

TEST(Money, agreesWithFiguresOfAnotherDecimalArithmetic) {
    std::ifstream file(TEST_DATA "/money/figures.tsv");
    int rows = 0;
    for (std::string line; std::getline(file, line); ++rows) {
        SCOPED_TRACE(line);
        const auto cell = Text::split(line, '\t');
        const auto number = [&cell](std::size_t index) { return std::stoll(cell.at(index)); };
        const auto currency = [&cell](std::size_t index) { return Currency::of(cell.at(index)); };
        const std::string& operation = cell.at(0);
        const std::string& expected = cell.back();
        const auto expectNumber = [&expected](std::optional<std::int64_t> value) {
            ASSERT_TRUE(value);
            EXPECT_EQ(std::to_string(*value), expected);
        };
        if (operation == "mulDiv")
            expectNumber(MoneyMath::mulDiv(number(1), number(2), number(3)));
        else if (operation == "percent")
            expectNumber(MoneyMath::percent(number(1), number(2)));
        else if (operation == "roundToWhole")
            expectNumber(MoneyMath::roundToWhole(number(1), number(2)));
        else if (operation == "convert")
            expectNumber(MoneyMath::convert(number(1), currency(2), currency(3), number(4)));
        else if (operation == "parse")
            expectNumber(parse(cell.at(1), currency(2)));
        else if (operation == "parseQuantity")
            expectNumber(parseQuantity(cell.at(1)));
        else if (operation == "parseFXRate")
            expectNumber(parseFXRate(cell.at(1)));
        else if (operation == "string")
            EXPECT_EQ(string(number(1), currency(2)), expected);
        else if (operation == "stringWhole")
            EXPECT_EQ(string(number(1), currency(2), Symbol::hidden, Decimals::hidden),
                      Text::replaceAll(expected, currency(2).symbol, ""));
        else if (operation == "quantity")
            EXPECT_EQ(quantity(number(1)), expected);
        else if (operation == "rate")
            EXPECT_EQ(rate(number(1)), expected);
        else if (operation == "fxRate")
            EXPECT_EQ(fxRate(number(1)), expected);
        else
            FAIL() << "unknown operation";
    }
    EXPECT_GT(rows, 1000);
}

RC_GTEST_PROP(MoneyMath, mulDivIsTheNearestWholeNumber, ()) {
    const auto a = *anyNumber(), b = *anyNumber(), c = *anyNumber();
    RC_PRE(c != 0);
    const auto size = [](std::int64_t value) { return value < 0 ? Wide(0) - static_cast<Wide>(value) : Wide(value); };
    // Twice the product and the divisor added before the division: halves go up, and 2 × 2^126 still fits.
    const Wide magnitude = (size(a) * size(b) * 2 + size(c)) / (size(c) * 2);
    const bool negative = (a < 0) != ((b < 0) != (c < 0));
    RC_PRE(magnitude <= size(negative ? lowest : highest));
    const auto expected =
        static_cast<std::int64_t>(static_cast<std::uint64_t>(negative ? Wide(0) - magnitude : magnitude));
    RC_ASSERT(MoneyMath::mulDiv(a, b, c) == expected);
}

TEST(MoneyMathDeathTest, stopsTheProgramInsteadOfWrapping) {
    EXPECT_DEATH((void)MoneyMath::mulDiv(1, 1, 0), "division by zero");
    EXPECT_DEATH((void)MoneyMath::mulDiv(lowest, 1, -1), "overflow");
    EXPECT_DEATH((void)MoneyMath::mulDiv(highest, 3, 2), "overflow");
    EXPECT_DEATH((void)MoneyMath::roundToWhole(highest, 1000), "overflow");
}

TEST(Currency, knowsItsTableAndMakesUpTheRest) {
    EXPECT_EQ(Currency::all().size(), 18u);
    EXPECT_EQ(Currency::of("usd"), Currency::all()[1]);
    EXPECT_EQ(Currency::of("xyz"), (Currency{"XYZ", 2, "XYZ", "XYZ", "en_US"}));
    EXPECT_EQ(Currency::of("JPY").scale(), 1);
    EXPECT_EQ(Currency::of("KWD").scale(), 1000);
    EXPECT_EQ(Currency::inr(), Currency::of("INR"));
}

TEST(MoneyFormat, printsEachCurrencyAsThePlatformDoes) {
    const std::vector<std::int64_t> amounts = {
        0,      5,      50,      99,      100,      150,      250,      999,       1500,      12345,  99950,
        100000, 150500, 1234567, 9999999, 12345678, 99999950, 87654321, 123456789, -10000050, lowest, highest};
    for (const Currency& currency : Currency::all())
        for (const std::int64_t minor : amounts)
            for (const Decimals decimals : {Decimals::shown, Decimals::hidden})
                EXPECT_EQ(string(minor, currency, Symbol::hidden, decimals), platformText(minor, currency, decimals))
                    << currency.code << " " << minor;
}

TEST(MoneyFormat, printsSignSymbolAndGroups) {
    const struct {
        std::int64_t minor;
        const char* code;
        const char* text;
    } cases[] = {
        {100000, "AED", "AED 1,000.00"},  {25000, "LKR", "Rs 250.00"},
        {9000, "CHF", "CHF 90.00"},       {1250, "SGD", "S$12.50"},
        {500, "NZD", "NZ$5.00"},          {9900, "ZAR", "R99.00"},
        {1234567, "KWD", "KD 1,234.567"}, {1234567890, "BDT", "৳12,345,678.90"},
        {100, "XYZ", "XYZ 1.00"},
    };
    for (const auto& [minor, code, text] : cases) EXPECT_EQ(string(minor, Currency::of(code)), text);
}

TEST(MoneyFormat, printsTheDigitsOfAnotherLocale) {
    const Currency arabic{"EGP", 2, "E£", "Egyptian pound", "ar_EG"};
    const Currency lakhs{"PKR", 2, "Rs", "Pakistani rupee", "en_IN"};
    const Currency rupeeAbroad{"INR", 2, "₹", "Indian rupee", "en_US"};
    const Currency spanish{"MXN", 2, "$", "Mexican peso", "es_ES"};
    // Formatters are shared: the digits of one thread must not reach another.
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int n = 0; n < 50; ++n) {
                EXPECT_EQ(string(123456789, arabic), "E£١,٢٣٤,٥٦٧.٨٩");
                EXPECT_EQ(string(123456789, lakhs), "Rs 12,34,567.89");
                EXPECT_EQ(string(123456789, rupeeAbroad, Symbol::hidden), "12,34,567.89");
                EXPECT_EQ(string(-1234567890, spanish), "−$12,345,678.90");
            }
        });
    for (std::thread& thread : threads) thread.join();
}

TEST(MoneyFormat, printsForFiles) {
    EXPECT_EQ(plain(-123450, Currency::inr()), "-1234.50");
    EXPECT_EQ(plain(120005, Currency::inr()), "1200.05");
    EXPECT_EQ(plain(-7, Currency::of("KWD")), "-0.007");
    EXPECT_EQ(plain(1500, Currency::of("JPY")), "1500");
    EXPECT_EQ(plain(lowest, Currency::inr()), "-92233720368547758.08");
}

TEST(MoneyFormat, writesAmountsInWords) {
    const struct {
        std::int64_t minor;
        const char* code;
        const char* text;
    } cases[] = {
        {120050, "INR", "Rupees One Thousand Two Hundred and Fifty Paise Only"},
        {0, "INR", "Rupees Zero Only"},
        {-4200, "INR", "Rupees Forty Two Only"},
        {1234567890, "INR",
         "Rupees One Crore Twenty Three Lakh Forty Five Thousand Six Hundred Seventy Eight and Ninety Paise Only"},
        {123456789012, "USD",
         "Dollars One Billion Two Hundred Thirty Four Million Five Hundred Sixty Seven Thousand Eight Hundred Ninety "
         "and "
         "Twelve Cents Only"},
        {1901, "AED", "Dollars Nineteen and One Cents Only"},
        {1250, "KWD", "Dollars One Only"},
        {250, "EUR", "Euro Two and Fifty Cents Only"},
        {1000000, "JPY", "Japanese yen One Million Only"},
    };
    for (const auto& [minor, code, text] : cases) EXPECT_EQ(words(minor, Currency::of(code)), text);
    EXPECT_EQ(numberWords(12'345'000'000, Numbering::indian), "One Thousand Two Hundred Thirty Four Crore Fifty Lakh");
    EXPECT_EQ(numberWords(1'000'000'000'000'000, Numbering::international), "One Thousand Trillion");
}

TEST(MoneyFormat, readsWhatPeopleAndBanksWrite) {
    for (const auto& row : testing::casesOf(TEST_DATA "/money/written.tsv")) {
        const std::string& text = row.at(1);
        const auto minor = testing::numberOf(row.back());
        if (row[0] == "parse") {
            EXPECT_EQ(parse(text, Currency::inr()), minor) << text;
        } else if (row[0] == "sum") {
            EXPECT_EQ(parseSum(text, Currency::inr()), minor) << text;
        } else {
            EXPECT_EQ(withoutCurrencyMark(text), row.at(2));
            EXPECT_EQ(parse(row[2], Currency::inr()), minor) << text;
        }
    }
    EXPECT_EQ(parse(" -500\n", Currency::inr()), -50000);
    EXPECT_EQ(parse(" \n", Currency::inr()), std::nullopt);
    EXPECT_EQ(parse("1234.5", Currency::of("JPY")), 1235);
    EXPECT_EQ(parse("1,234.5678", Currency::of("KWD")), 1234568);
}

RC_GTEST_PROP(MoneyFormat, readsWhatItPrints, ()) {
    const auto minor = *rc::gen::suchThat(anyNumber(), [](std::int64_t value) { return value != lowest; });
    const auto currency = *anyCurrency();
    RC_ASSERT(parse(withoutCurrencyMark(string(minor, currency)), currency) == minor);
    // A lone dot before three digits stays a decimal point, as in a file of dinars.
    RC_ASSERT(parse(plain(minor, currency), currency) == minor);
}

TEST(MoneyFormat, readsQuantitiesAndRates) {
    EXPECT_EQ(parseQuantity(" 2.5 "), 2500);
    EXPECT_EQ(parseQuantity("1,234.0005"), 1234001);
    EXPECT_EQ(parseQuantity("0.1254"), 125);
    EXPECT_EQ(parseQuantity("-0"), 0);
    for (const char* text : {"", "-1", "two", "1.2.3", "2 kg", "1e3", ".", "9999999999999999999"}) {
        EXPECT_EQ(parseQuantity(text), std::nullopt) << text;
        EXPECT_EQ(parseFXRate(text), std::nullopt) << text;
    }
}

TEST(MoneyFormat, stripsTheCurrencyMarkOnly) {
    EXPECT_EQ(withoutCurrencyMark("Rs."), "");
    EXPECT_EQ(withoutCurrencyMark(""), "");
    EXPECT_EQ(withoutCurrencyMark("Bars"), "Bars");
}

TEST(MoneyFormat, refusesAnEntryNobodyMeans) {
    EXPECT_EQ(parseEntry("Rs. 1,200/-", Currency::inr()), 120000);
    EXPECT_EQ(parseEntry("1,00,00,00,00,00,000.00", Currency::inr()), maximumAmount);
    EXPECT_EQ(parseEntry("1,00,00,00,00,00,000.01", Currency::inr()), std::nullopt);
    EXPECT_EQ(parseEntry("-10000000000000.01", Currency::inr()), std::nullopt);
    EXPECT_EQ(parseEntry("lunch", Currency::inr()), std::nullopt);
}

TEST(MoneyFormat, worksOutWhatIsTypedAsASum) {
    EXPECT_EQ(parseSum("10/4", Currency::of("JPY")), 3);
    EXPECT_EQ(parseSum("1/3", Currency::of("KWD")), 333);
    EXPECT_EQ(parseSum(std::string(1'000'000, '('), Currency::inr()), std::nullopt);
}

}  // namespace
}  // namespace tamba
