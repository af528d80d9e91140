#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/GSTRules.h"
#include "TambaCore/Reports/Reports.h"
#include "tests/support/Books.h"
#include "tests/support/RandomBooks.h"
#include "tests/support/ReadBack.h"

#include <algorithm>
#include <functional>

namespace tamba {
namespace {

using namespace GSTReturns;
using enum SupplyType;

Library seller() {
    Library library = Library::make();
    library.business.name = "Studio Tamarind";
    library.business.taxID = "27AAPFU0939F1ZV";
    return library;
}

Line software(std::int64_t priceMinor, int taxBP = 1800) {
    Line line = Line::make("Software development", 1000, priceMinor, taxBP);
    line.hsn = "998314";
    return line;
}

TEST(GSTReturns, useCreditInTheOrderOfTheLaw) {
    const struct {
        TaxSplit liability, credit, cash, left;
    } cases[] = {
        {{100'00, 100'00, 0, 0}, {0, 0, 150'00, 0}, {0, 50'00, 0, 0}, {}},
        {{100'00, 100'00, 0, 0}, {100'00, 0, 100'00, 0}, {}, {}},
        {{100'00, 0, 50'00, 0}, {0, 200'00, 0, 0}, {100'00, 0, 0, 0}, {0, 150'00, 0, 0}},
        {{10'00, 10'00, 100'00, 0}, {60'00, 60'00, 0, 0}, {}, {0, 0, 0, 0}},
        {{10'00, 10'00, 30'00, 0}, {10'00, 10'00, 50'00, 0}, {}, {10'00, 10'00, 0, 0}},
        {{10'50, 10'49, -5'00, 0}, {}, {11'00, 10'00, 0, 0}, {}},
    };
    for (const auto& [liability, credit, cash, left] : cases) {
        const SetOff result = setOff(liability, credit);
        EXPECT_EQ(result.cash, cash) << liability.cgst << " " << liability.igst;
        EXPECT_EQ(result.creditLeft, left) << liability.cgst << " " << liability.igst;
    }
}

TEST(GSTReturns, creditIsThatOfAllMonthsOfThePeriod) {
    Library library = seller();
    for (const Day day : {Day{2025, 12, 31}, {2026, 1, 1}, {2026, 3, 31}, {2026, 4, 1}, {2026, 12, 31}, {2027, 1, 1}})
        library.expenses.append(testing::anExpense("Chai Point", day));
    const auto months = [&](const Period& period) {
        return gstr3b(library, gstr1(library, period)).credit.total() / 1800;
    };
    EXPECT_EQ(months(Period::fy({2026, 1})), 4);
    EXPECT_EQ(months(Period::fy({2026, 4})), 3);
    EXPECT_EQ(months(Period::month({2026, 4, 1})), 1);
}

TEST(GSTReturns, problemsSayWhatThePortalRefuses) {
    using Change = std::function<void(Library&, Document&)>;
    constexpr auto refused = Problem::Severity::refused, look = Problem::Severity::look;
    const struct {
        const char* says;  ///< part of the sentence; empty: nothing is wrong
        Problem::Severity severity;
        Change change;
    } cases[] = {
        {"", look, [](Library&, Document&) {}},
        {"have no GSTIN", refused, [](Library& l, Document&) { l.business.taxID = ""; }},
        {"own GSTIN is wrong", refused, [](Library& l, Document&) { l.business.taxID = "27AAPFU0939F1ZZ"; }},
        {"regular GST regime", refused, [](Library& l, Document&) { l.business.regime = TaxRegime::simple; }},
        {"in rupees", refused, [](Library& l, Document& d) { l.business.homeCurrency = d.currency = "AED"; }},
        {"number the portal refuses", refused, [](Library&, Document& d) { d.number = "INV 1"; }},
        {"number the portal refuses", refused, [](Library&, Document& d) { d.number = "00-0"; }},
        {"has no number", refused, [](Library&, Document& d) { d.number.reset(); }},
        {"number of another document", refused,
         [](Library& l, Document& d) {
             l.documents.append(d), l.documents.update(1, [](Document& o) { o.number = "inv/26-27/001"; });
         }},
        {"left out", refused, [](Library&, Document& d) { d.currency = "USD", d.rateMicros = 0; }},
        {"too large", refused, [](Library&, Document& d) { d.lines[0].priceMinor = maximumAmount + 1; }},
        {"without a valid GSTIN", refused, [](Library&, Document& d) { d.supply = sezLUT, d.billTo->taxID = ""; }},
        {"lines without an HSN", refused, [](Library&, Document& d) { d.lines[0].hsn = ""; }},
        {"lines without an HSN", look, [](Library&, Document& d) { d.lines[0].hsn = d.billTo->taxID = ""; }},
        {"code “998”", refused, [](Library&, Document& d) { d.lines[0].hsn = "998"; }},
        {"code “99831”", refused, [](Library&, Document& d) { d.lines[0].hsn = "99831"; }},
        {"code “SAC1”", refused, [](Library&, Document& d) { d.lines[0].hsn = "SAC1"; }},
        {"at 17%", refused, [](Library&, Document& d) { d.lines[0].taxBP = 1700; }},
        {"own state", look, [](Library&, Document& d) { d.supply = interState; }},
        {"own state", refused, [](Library&, Document& d) { d.supply = interState, d.billTo->taxID = ""; }},
        {"another state", look, [](Library&, Document& d) { d.placeOfSupply = "29"; }},
        {"not valid", look, [](Library&, Document& d) { d.billTo->taxID = "27AABCM1234K1Z"; }},
        {"no supply under GST", look, [](Library&, Document& d) { d.supply = noTax; }},
        {"still a draft", look, [](Library&, Document& d) { d.state = DocState::draft; }},
        {"differs by ₹0.02", look,
         [](Library&, Document& d) { d.lines = {software(1005), software(1005), software(1005)}; }},
        {"comes to nothing", look, [](Library&, Document& d) { d.lines = {software(0)}; }},
        {"before GST began", refused, [](Library&, Document& d) { d.issueDate = {2017, 6, 30}; }},
    };
    for (const auto& [says, severity, change] : cases) {
        Library library = seller();
        Document document = Document::make(DocKind::invoice, {2026, 10, 1}, {2026, 10, 1});
        document.state = DocState::issued;
        document.number = "INV/26-27/001";
        document.billTo = PartySnapshot{"Buyer", "", "27AABCM1234K1ZM", {}, "IN", "", {}};
        document.placeOfSupply = "27";
        document.supply = intraState;
        document.lines = {software(10'000'000)};
        library.documents.append(document);
        change(library, document);
        library.documents.update(0, [&document](Document& d) { d = document; });
        const auto found = problems(library, gstr1(library, Period::month(document.issueDate)));
        ASSERT_EQ(found.empty(), std::string_view(says).empty()) << says;
        if (found.empty()) continue;
        EXPECT_NE(found[0].sentence.find(says), std::string::npos) << found[0].sentence << " for " << says;
        EXPECT_EQ(found[0].severity, severity) << found[0].sentence;
    }
}

/// Random books whose returns the portal would take.
Library randomSupplies(std::uint64_t seed) {
    Library library = testing::randomBooks(seed);
    library.business = seller().business;
    for (std::size_t i = 0; i < library.documents.size(); ++i)
        library.documents.update(i, [i](Document& d) {
            d.billTo.emplace().taxID = i % 2 == 0 ? "29AACCB5678L1Z2" : "";
            d.number = "INV/" + std::to_string(i);
            d.placeOfSupply = d.supply == intraState ? "27" : "29";
            for (Line& line : d.lines) {
                line.hsn = i % 3 == 0 ? "4911" : i % 3 == 1 ? "998391" : "9983";
                line.unit = i % 4 == 0 ? "kg" : "hour";
            }
        });
    return library;
}

TaxedAmount sum(const std::vector<Entry>& entries) {
    TaxedAmount total;
    for (const Entry& entry : entries)
        for (const RateGroup& rate : entry.rates) total.taxable += rate.taxable, total.tax = total.tax + rate.tax;
    return total;
}
void add(TaxedAmount& total, const TaxedAmount& part, int sign = 1) {
    total.taxable += sign * part.taxable;
    total.tax = sign > 0 ? total.tax + part.tax : total.tax - part.tax;
}

TEST(GSTReturns, tablesHoldEverySupplyOnce) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE(seed);
        const Library library = randomSupplies(seed);
        for (const Period& period : {Period::month({2026, 10, 1}), Period::quarter({2026, 5, 1}, 4)}) {
            const GSTR1 result = gstr1(library, period);
            const auto isIn = [](const std::vector<UUID>& ids, const UUID& id) {
                return std::find(ids.begin(), ids.end(), id) != ids.end();
            };
            TaxedAmount books, sections, codes;
            std::int64_t elsewhere = 0;  // income that is in no table
            for (const Document& d : library.documents) {
                if (!GSTFigures::counts(d) || !period.contains(d.issueDate) || !DocMath::isBelievable(d)) continue;
                const DocTotals totals = DocMath::totals(d);
                const int sign = d.kind == DocKind::invoice ? 1 : -1;
                const auto home = [&](std::int64_t amount) {
                    return Books::inHomeCurrency(library, d, amount).value_or(0);
                };
                if (isIn(result.leftOut, d.id) || isIn(result.outside, d.id))
                    elsewhere += sign * home(totals.taxable);
                else
                    add(books,
                        {home(totals.taxable),
                         {home(totals.tax.cgst), home(totals.tax.sgst), home(totals.tax.igst), 0}},
                        sign);
                for (const auto* table : {&result.b2b, &result.b2cl, &result.exports, &result.cdnr, &result.cdnur})
                    for (const Entry& entry : *table)
                        for (const RateGroup& rate : entry.rates)
                            for (const RateGroup& own : totals.byRate)
                                if (entry.id == d.id && own.rateBP == rate.rateBP) {
                                    EXPECT_LE(std::abs(home(own.taxable) - rate.taxable), 1) << entry.number;
                                    EXPECT_LE(std::abs(home(own.tax.igst) - rate.tax.igst), 1) << entry.number;
                                }
            }
            for (const auto* table : {&result.b2b, &result.b2cl, &result.exports}) add(sections, sum(*table));
            for (const auto* table : {&result.cdnr, &result.cdnur}) add(sections, sum(*table), -1);
            for (const ConsumerRow& row : result.b2cs) add(sections, {row.taxable, row.tax});
            for (const NilRow& row : result.nilRated) add(sections, {row.taxable, {}});
            EXPECT_EQ(sections, books);
            for (const auto* half : {&result.hsnB2B, &result.hsnB2C})
                for (const HSNRow& row : *half) add(codes, {row.taxable, row.tax});
            EXPECT_EQ(codes, books);
            const GSTR3B summary = gstr3b(library, result);
            TaxedAmount total{summary.nilRated, {}};
            add(total, summary.taxed);
            add(total, summary.zeroRated);
            EXPECT_EQ(total, books);
            const Reports reports{library, period.to};
            EXPECT_EQ(reports.income(IncomeBasis::accrual, period), books.taxable + elsewhere);
        }
    }
}

TEST(GSTReturns, filesHaveTheShapeThePortalAsksFor) {
    std::string outward, summaries;
    for (std::uint64_t seed = 1; seed <= 8; ++seed) {
        Library library = randomSupplies(seed);
        if (seed == 8) library.documents = {};
        for (const Period& period : {Period::month({2025, 10, 1}), Period::quarter({2026, 5, 1}, 4)}) {
            const GSTR1 result = gstr1(library, period);
            outward += uploadText(result);
            summaries += uploadText(gstr3b(library, result));
        }
    }
    const std::string folder = std::string(TEST_DATA) + "/gst/", portal = "/usr/bin/python3 " + folder + "portal.py";
    outward += Text::replaceAll(Text::replaceAll(Files::read(folder + "gstr1-102026.json"), "\n", ""), "  ", "") + "\n";
    EXPECT_EQ(testing::readBack(portal, outward, folder + "gstr1.schema.json", "gstr1"), "");
    EXPECT_EQ(testing::readBack(portal, summaries, folder + "gstr3b.schema.json", "gstr3b"), "");
}

TEST(GSTRules, followTheDate) {
    using namespace GSTRules;
    EXPECT_EQ(value(Rule::largeConsumerLimit, {2016, 1, 1}), 25'000'000);
    EXPECT_EQ(value(Rule::largeConsumerLimit, {2026, 11, 21}), 10'000'000);
    EXPECT_EQ(value(Rule::hsnSplit, {2025, 4, 30}), 0);
    EXPECT_EQ(value(Rule::hsnSplit, {2025, 5, 1}), 1);
    for (const Row& row : table())
        for (const Row& other : table())
            if (row.rule == other.rule && row.from < other.from) {
                EXPECT_TRUE(row.to && *row.to < other.from) << row.source;
            }
    for (const RateList& list : slabs())
        for (const int rate : list.ratesBP) EXPECT_TRUE(isPortalRate(rate)) << rate;
    EXPECT_FALSE(isPortalRate(1700));
}

}  // namespace
}  // namespace tamba
