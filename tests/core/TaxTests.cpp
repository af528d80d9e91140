#include "TambaCore/Model/Tax.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <set>

namespace tamba {
namespace {

using GSTIN::Problem;
using Optional = std::optional<std::string>;

TEST(IndianState, isFoundByItsCode) {
    EXPECT_EQ(IndianState::all().size(), 37u);
    EXPECT_EQ(IndianState::of("27")->label(), "27 · Maharashtra");
    EXPECT_EQ(IndianState::of("7")->name, "Delhi");
    EXPECT_EQ(IndianState::of("97")->name, "Other Territory");
    for (const Optional& code : {Optional(), Optional(""), Optional("25"), Optional("28"), Optional("96"),
                                 Optional("99"), Optional("0"), Optional("027"), Optional(" 7")})
        EXPECT_FALSE(IndianState::of(code)) << code.value_or("none");
    std::set<std::string_view> union_;
    for (const IndianState& state : IndianState::all())
        if (state.utgst) union_.insert(state.code);
    EXPECT_EQ(union_, (std::set<std::string_view>{"04", "26", "31", "35", "38", "97"}));
}

TEST(GSTIN, namesTheFirstProblem) {
    const struct {
        const char* text;
        std::optional<Problem> problem;
    } cases[] = {
        {"27AAPFU0939F1ZV", {}},
        {"27aapfu0939f1zv", {}},
        {"27 AAPFU 0939 F1Z V", {}},
        {"27-AAPFU.0939/F1ZV\n", {}},
        {"27AAPFU0939F1Z", Problem::length},
        {"27AAPFU0939F1ZVV", Problem::length},
        {"", Problem::length},
        {"27AAPFU0939F0ZV", Problem::format},
        {"27AAPFU0939F1YV", Problem::format},
        {"2AAAPFU0939F1ZV", Problem::format},
        {"27AAPFU093QF1ZV", Problem::format},
        {"27ÄAPFU0939F1ZV", Problem::format},
        {"२७AAPFU0939F1ZV", Problem::format},
        {"99AAPFU0939F1ZV", Problem::stateCode},
        {"96AAPFU0939F1ZV", Problem::stateCode},
        {"25AAPFU0939F1ZV", Problem::stateCode},
        {"27AAPFU0939F1ZW", Problem::checksum},
    };
    for (const auto& [text, problem] : cases) {
        EXPECT_EQ(GSTIN::validate(text), problem) << text;
        EXPECT_EQ(GSTIN::isValid(text), !problem) << text;
    }
    EXPECT_EQ(GSTIN::problemText(Problem::stateCode), "The first two digits aren’t a GST state code.");
}

TEST(GSTIN, isTakenApartAndMade) {
    EXPECT_EQ(GSTIN::make("27", "AAPFU0939F", "1"), "27AAPFU0939F1ZV");
    EXPECT_EQ(GSTIN::make("27", "aapfu 0939f", "1"), "27AAPFU0939F1ZV");
    EXPECT_EQ(GSTIN::make("27", "AAPFU", "1"), "27AAPFU1Z0");
    EXPECT_EQ(GSTIN::checkCharacter("27AAPFU0939F1Z"), 'V');
    EXPECT_EQ(GSTIN::checkCharacter("27AAPFU0939F1"), std::nullopt);
    EXPECT_EQ(GSTIN::checkCharacter("27AAPFU0939FÉ"), std::nullopt);
    EXPECT_EQ(GSTIN::stateCode("27AB"), "27");
    EXPECT_EQ(GSTIN::stateCode("2-7"), "27");
    EXPECT_EQ(GSTIN::stateCode("2"), std::nullopt);
    EXPECT_EQ(GSTIN::stateCode("96AAPFU0939F1ZV"), std::nullopt);
    EXPECT_EQ(GSTIN::pan("27 AAPFU 0939 F1Z V"), "AAPFU0939F");
    EXPECT_EQ(GSTIN::pan("99!!AAPFU0939F0YX"), "AAPFU0939F");
    EXPECT_EQ(GSTIN::pan("27AAPFU0939F1Z"), std::nullopt);
}

RC_GTEST_PROP(GSTIN, noticesOneWrongCharacter, ()) {
    const auto pick = [](const std::string& from) { return *rc::gen::elementOf(from); };
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ", digits = "0123456789";
    std::string pan;
    for (const char kind : std::string("AAAAA9999A")) pan += pick(kind == 'A' ? letters : digits);
    const auto state = *rc::gen::elementOf(IndianState::all());
    const std::string good = GSTIN::make(state.code, pan, std::string(1, pick("123456789" + letters)));
    RC_ASSERT(GSTIN::isValid(good));
    std::string bad = good;
    char& wrong = bad[*rc::gen::inRange<std::size_t>(0, bad.size())];
    wrong = pick(digits + letters);
    RC_PRE(bad != good);
    RC_ASSERT(!GSTIN::isValid(bad));
}

TEST(TaxSplit, isWorkedOutPerHalf) {
    using enum SupplyType;
    const struct {
        std::int64_t taxable;
        int rate;
        SupplyType supply;
        TaxSplit split;
    } cases[] = {
        {100000, 1800, intraState, {9000, 9000, 0, 0}},
        {101, 500, intraState, {3, 3, 0, 0}},
        {101, 500, interState, {0, 0, 5, 0}},
        {-101, 500, intraState, {-3, -3, 0, 0}},
        {-110, 500, sezWithIGST, {0, 0, -6, 0}},
        {100000, 1800, exportWithIGST, {0, 0, 18000, 0}},
        {100000, 2000, simple, {0, 0, 0, 20000}},
        {100000, 1800, exportLUT, {}},
        {100000, 1800, sezLUT, {}},
        {100000, 1800, noTax, {}},
        {100000, 0, intraState, {}},
        {100000, -500, interState, {}},
    };
    for (const auto& [taxable, rate, supply, split] : cases)
        EXPECT_EQ(TaxSplit::compute(taxable, rate, supply), split) << taxable << " " << title(supply);
}

TEST(TaxSplit, dividesWhatWasPaid) {
    const struct {
        std::int64_t total;
        Optional vendor, buyer;
        bool india;
        TaxSplit split;
    } cases[] = {
        {1801, "27", "27", true, {900, 901, 0, 0}}, {-1801, "27", "27", true, {-900, -901, 0, 0}},
        {1801, "29", "27", true, {0, 0, 1801, 0}},  {1801, {}, "27", true, {900, 901, 0, 0}},
        {1801, "27", {}, true, {900, 901, 0, 0}},   {1801, "7", "07", true, {0, 0, 1801, 0}},
        {1801, "29", "27", false, {0, 0, 0, 1801}}, {1, {}, {}, true, {0, 1, 0, 0}},
    };
    for (const auto& [total, vendor, buyer, india, split] : cases)
        EXPECT_EQ(TaxSplit::fromPaid(total, vendor, buyer, india), split);
}

TEST(TaxSplitDeathTest, stopsTheProgramInsteadOfWrapping) {
    const TaxSplit large{std::numeric_limits<std::int64_t>::max(), 0, 0, 0};
    const TaxSplit low{0, 0, std::numeric_limits<std::int64_t>::min(), 0};
    EXPECT_EQ((large - large).total(), 0);
    EXPECT_EQ((large + TaxSplit{0, 1, -2, 3}).negated().negated(), (TaxSplit{large.cgst, 1, -2, 3}));
    EXPECT_DEATH((void)(large + TaxSplit{1, 0, 0, 0}), "overflow");
    EXPECT_DEATH((void)(TaxSplit{1, 1, 1, 1} + large).total(), "overflow");
    EXPECT_DEATH((void)(TaxSplit{} - low), "overflow");
    EXPECT_DEATH((void)low.negated(), "overflow");
}

TEST(PlaceOfSupply, startsFromTheClient) {
    EXPECT_EQ(PlaceOfSupply::defaultPOS("29AB", "33", "27"), "29");
    EXPECT_EQ(PlaceOfSupply::defaultPOS("96AB", "33", "27"), "33");
    EXPECT_EQ(PlaceOfSupply::defaultPOS("", "7", "27"), "7");
    EXPECT_EQ(PlaceOfSupply::defaultPOS("", "96", "27"), "27");
    EXPECT_EQ(PlaceOfSupply::defaultPOS("", {}, "27"), "27");
}

TEST(PlaceOfSupply, decidesTheSupply) {
    using enum SupplyType;
    using Regime = TaxRegime;
    const struct {
        TaxRegime regime;
        Optional supplier, pos;
        const char* country;
        bool sez, lut;
        SupplyType supply;
    } cases[] = {
        {Regime::gstComposition, "27", "29", "US", true, true, noTax},
        {Regime::none, "27", "29", "IN", false, true, noTax},
        {Regime::simple, "27", "29", "US", true, true, simple},
        {Regime::gstIndia, "27", "27", "us", false, true, exportLUT},
        {Regime::gstIndia, "27", "27", "US", true, false, exportWithIGST},
        {Regime::gstIndia, "27", "27", "India", true, true, sezLUT},
        {Regime::gstIndia, "27", "27", "INDIA", true, false, sezWithIGST},
        {Regime::gstIndia, "27", "29", "in", false, true, interState},
        {Regime::gstIndia, "27", "27", "IN", false, true, intraState},
        {Regime::gstIndia, "27", "29", "", false, true, interState},
        {Regime::gstIndia, "27", {}, "IN", false, true, intraState},
        {Regime::gstIndia, {}, "27", "IN", false, true, intraState},
        {Regime::gstIndia, "7", "07", "IN", false, true, interState},
        {Regime::gstIndia, "27", "27", " IN", false, true, exportLUT},
    };
    for (const auto& [regime, supplier, pos, country, sez, lut, supply] : cases)
        EXPECT_EQ(PlaceOfSupply::supplyType(regime, supplier, pos, country, sez, lut), supply)
            << title(regime) << " " << country << " " << title(supply);
}

}  // namespace
}  // namespace tamba
