#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Numbering.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/GSTRules.h"
#include "TambaCore/Reports/ReportTables.h"
#include "tests/support/RandomBooks.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <tuple>

namespace tamba {
namespace {

using namespace GSTReturns;
using enum SupplyType;

const Period october = Period::month({2026, 10, 1});
constexpr std::string_view maharashtra = "27AABCM1234K1ZM", karnataka = "29AACCB5678L1Z2", zone = "27AADCS4321P1Z2";

Library seller() {
    Library library = Library::make();
    library.business.name = "Studio Tamarind";
    library.business.taxID = "27AAPFU0939F1ZV";
    return library;
}

struct Buyer {
    std::string_view gstin, place;
};

Line line(std::string_view name, std::string_view hsn, std::int64_t priceMinor, int taxBP = 1800,
          std::int64_t qtyMilli = 1000) {
    Line line = Line::make(std::string(name), qtyMilli, priceMinor, taxBP);
    line.hsn = hsn;
    return line;
}
Line software(std::int64_t priceMinor, int taxBP = 1800) {
    return line("Software development", "998314", priceMinor, taxBP);
}

/// Adds an issued document and gives its id. Rupee totals are rounded to whole rupees.
UUID add(Library& library, DocKind kind, std::string number, Day date, Buyer buyer, SupplyType supply,
         std::vector<Line> lines, std::optional<UUID> linked = {}) {
    Document d = Document::make(kind, date, date);
    d.state = DocState::issued;
    d.seriesID = library.defaultSeries(kind)->id;
    d.number = std::move(number);
    PartySnapshot& party = d.billTo.emplace();
    party.name = "Buyer";
    party.taxID = buyer.gstin;
    if (!buyer.place.empty()) d.placeOfSupply = buyer.place;
    d.supply = supply;
    d.lines = std::move(lines);
    d.roundOff = true;
    d.linkedID = linked;
    library.documents.append(d);
    return d.id;
}
UUID invoice(Library& library, Day date, Buyer buyer, SupplyType supply, std::vector<Line> lines) {
    const std::string number = "INV/26-27/" + std::to_string(1001 + library.documents.size()).substr(1);
    return add(library, DocKind::invoice, number, date, buyer, supply, std::move(lines));
}
UUID creditNote(Library& library, Day date, Buyer buyer, SupplyType supply, std::vector<Line> lines,
                std::optional<UUID> linked = {}) {
    const std::string number = "CN/26-27/" + std::to_string(1001 + library.documents.size()).substr(1);
    return add(library, DocKind::creditNote, number, date, buyer, supply, std::move(lines), linked);
}
void change(Library& library, const UUID& id, const std::function<void(Document&)>& with) {
    library.documents.update(indexOf(library.documents, id), with);
}
void inCurrency(Library& library, const UUID& id, std::string code, std::int64_t rateMicros) {
    change(library, id, [&](Document& d) { d.currency = code, d.rateMicros = rateMicros, d.roundOff = false; });
}

Library workedMonth() {
    Library library = seller();
    const auto number = [](int n) { return "INV/26-27/0" + std::to_string(n); };
    const auto issue = [&](int n, int day, Buyer buyer, SupplyType supply, std::vector<Line> lines) {
        return add(library, DocKind::invoice, number(n), {2026, 10, day}, buyer, supply, std::move(lines));
    };
    const UUID first = issue(41, 3, {maharashtra, "27"}, intraState, {software(10'000'000)});
    issue(
        42, 7, {karnataka, "29"}, interState,
        {line("Graphic design", "998391", 240'000, 1800, 12'500), line("Printed charts", "4911", 49'950, 500, 3'000)});
    library.documents.update(1, [](Document& d) { d.lines[0].discountBP = 1000, d.lines[1].unit = "Nos."; });
    issue(43, 9, {"", "07"}, interState, {software(8'475'000)});
    issue(44, 12, {"", "27"}, intraState, {software(2'000'000)});
    issue(45, 15, {"", "29"}, interState, {software(1'500'000)});
    inCurrency(library, issue(46, 18, {}, exportLUT, {software(250'000)}), "USD", 83'250'000);
    issue(47, 20, {zone, "27"}, sezLUT, {software(6'000'000)});
    change(library, issue(48, 22, {"", "27"}, intraState, {software(100)}),
           [](Document& d) { d.state = DocState::void_; });
    issue(49, 25, {maharashtra, "27"}, intraState, {software(1'000'000), line("Workshop", "9992", 400'000, 0)});
    const UUID small =
        add(library, DocKind::invoice, "INV/26-27/030", {2026, 9, 20}, {"", "29"}, interState, {software(1'500'000)});
    add(library, DocKind::creditNote, "CN/26-27/003", {2026, 10, 28}, {maharashtra, "27"}, intraState,
        {software(2'000'000)}, first);
    add(library, DocKind::creditNote, "CN/26-27/004", {2026, 10, 30}, {"", "29"}, interState, {software(500'000)},
        small);
    const auto spend = [&library](std::int64_t amount, TaxSplit tax, bool claim, std::string currency = "INR") {
        Expense e = Expense::make({2026, 10, 15});
        e.amount = amount;
        e.taxSplit = tax;
        e.tax = tax.total();
        e.claimTax = claim;
        e.currency = std::move(currency);
        e.rateMicros = 83'250'000;
        library.expenses.append(e);
    };
    spend(1'180'000, {90'000, 90'000, 0, 0}, true);
    spend(590'000, {0, 0, 90'000, 0}, true);
    spend(105'000, {2'500, 2'500, 0, 0}, false);
    spend(2'000, {}, false, "USD");
    for (const DocKind kind : {DocKind::invoice, DocKind::invoice, DocKind::estimate}) {
        Document draft = library.documents[0];
        draft.id = UUID::random();
        draft.kind = kind;
        draft.state = DocState::draft;
        draft.number.reset();
        library.documents.append(draft);
    }
    return library;
}

/// A file as one line.
std::string expected(const std::string& name) {
    std::string result;
    bool quoted = false;
    for (const char c : Files::read(std::string(TEST_DATA) + "/gst/" + name)) {
        if (c == '"') quoted = !quoted;
        if (quoted || (c != ' ' && c != '\n')) result += c;
    }
    return result + "\n";
}

TEST(GSTReturns, writeTheWorkedMonthForThePortal) {
    const Library library = workedMonth();
    const GSTR1 outward = gstr1(library, october);
    EXPECT_EQ(uploadText(outward), expected("gstr1-102026.json"));
    const GSTR3B summary = gstr3b(library, outward);
    EXPECT_EQ(uploadText(summary), expected("gstr3b-102026.json"));
    EXPECT_EQ(summary.interState, (std::vector<PlaceRow>{{"07", 8'475'000, 1'525'500}, {"29", 1'000'000, 180'000}}));
    EXPECT_EQ(summary.notClaimed, 5'000);
    EXPECT_EQ(summary.foreign, std::vector{library.expenses[3].id});
    EXPECT_EQ(summary.withoutGSTIN, (std::vector{library.expenses[0].id, library.expenses[1].id}));
    EXPECT_EQ(summary.setOff.payable, (TaxSplit{990'000, 990'000, 2'199'000, 0}));
    EXPECT_EQ(summary.setOff.cash, (TaxSplit{900'000, 900'000, 2'109'000, 0}));
    for (const Problem& problem : problems(library, outward))
        EXPECT_EQ(problem.severity, Problem::Severity::look) << problem.sentence;
}

TEST(GSTReturns, writeTheSheetsOfTheOfflineTool) {
    const auto text = [](const Library& library, const Period& period) {
        std::string all;
        for (const auto& section : ReportTables::gstr1Sections(gstr1(library, period)))
            all += section.fileName + "\n" + Text::replaceAll(section.csv.text(), "\r\n", "\n");
        return all;
    };
    EXPECT_EQ(text(workedMonth(), october), Files::read(std::string(TEST_DATA) + "/gst/sections-102026.csv"));

    // September has three letters, four places their own spelling, and before May 2025 there was one HSN sheet.
    Library library = seller();
    const UUID large = invoice(library, {2024, 9, 5}, {"", "31"}, interState, {software(20'000'000)});
    creditNote(library, {2024, 9, 6}, {"", "31"}, interState, {software(100)}, large);
    creditNote(library, {2024, 9, 7}, {}, exportLUT, {software(100)});
    invoice(library, {2024, 9, 8}, {zone, "26"}, sezWithIGST, {software(100'00)});
    const std::string old = text(library, Period::month({2024, 9, 1}));
    for (const char* row :
         {",05-Sep-2024,236000.00,31-Lakshdweep,,18,", "\nB2CL,CN/26-27/002,06-Sep-2024,C,31-Lakshdweep,",
          "\nEXPWOP,CN/26-27/003,07-Sep-2024,C,,1.00,,18,1.00,0.00\n", "\nhsn.csv\n",
          ",26-Dadra & Nagar Haveli & Daman & Diu,N,,SEZ supplies with payment,,18,100.00,0.00\n"})
        EXPECT_NE(old.find(row), old.npos) << row << " in\n" << old;
    EXPECT_EQ(old.find("hsn(b2c)"), old.npos);
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

/// Where a sale to a consumer in Delhi goes, by its taxable value and date.
std::string_view tableOf(std::int64_t taxable, Day date, bool roundOff, Buyer buyer = {"", "07"},
                         SupplyType supply = interState) {
    Library library = seller();
    const UUID id = invoice(library, date, buyer, supply, {software(taxable)});
    change(library, id, [roundOff](Document& d) { d.roundOff = roundOff; });
    const GSTR1 result = gstr1(library, Period::month(date));
    EXPECT_EQ(result.b2b.size() + result.b2cl.size() + result.b2cs.size() + result.exports.size(), 1U);
    return !result.b2b.empty() ? "b2b" : !result.b2cl.empty() ? "b2cl" : !result.b2cs.empty() ? "b2cs" : "exp";
}

TEST(GSTReturns, largeConsumerInvoicesStandOnTheirOwn) {
    const Day now{2026, 10, 9}, july{2024, 7, 31}, august{2024, 8, 1};
    EXPECT_EQ(tableOf(8'474'576, now, false), "b2cs") << "a total of exactly 1,00,000.00";
    EXPECT_EQ(tableOf(8'474'600, now, false), "b2cl");
    EXPECT_EQ(tableOf(8'474'600, now, true), "b2cs") << "rounded to 1,00,000";
    EXPECT_EQ(tableOf(8'475'000, now, true), "b2cl");
    EXPECT_EQ(tableOf(8'475'000, july, true), "b2cs");
    EXPECT_EQ(tableOf(8'475'000, august, true), "b2cl");
    EXPECT_EQ(tableOf(21'186'500, july, true), "b2cl") << "above 2,50,000";
    EXPECT_EQ(tableOf(50'000'000, now, true, {"", "27"}, intraState), "b2cs");
    EXPECT_EQ(tableOf(50'000'000, now, true, {karnataka, "29"}), "b2b");
}

TEST(GSTReturns, convertForeignDocumentsFigureByFigure) {
    const struct {
        std::string currency;
        std::int64_t price, rate;
        SupplyType supply;
        std::int64_t taxable, igst, value;
    } cases[] = {
        {"USD", 250'000, 83'250'000, exportLUT, 20'812'500, 0, 20'812'500},
        {"KWD", 1'000'500, 272'500'000, exportLUT, 27'263'625, 0, 27'263'625},
        {"JPY", 150'000, 565'000, exportLUT, 8'475'000, 0, 8'475'000},
        {"EUR", 123'456, 90'123'400, exportWithIGST, 11'126'274, 2'002'722, 13'128'997},
    };
    for (const auto& [currency, price, rate, supply, taxable, igst, value] : cases) {
        Library library = seller();
        const UUID sold = invoice(library, {2026, 10, 18}, {}, supply, {software(price)});
        inCurrency(library, sold, currency, rate);
        const GSTR1 result = gstr1(library, october);
        ASSERT_EQ(result.exports.size(), 1U) << currency;
        EXPECT_EQ(result.exports[0].value, value) << currency;
        EXPECT_EQ(result.exports[0].rates, (std::vector<RateGroup>{{1800, taxable, {0, 0, igst, 0}}})) << currency;
        ASSERT_EQ(result.hsnB2C.size(), 1U) << "exports belong to the half of consumers";
        EXPECT_EQ(gstr3b(library, result).zeroRated, (TaxedAmount{taxable, {0, 0, igst, 0}})) << currency;
        EXPECT_EQ(result.exports[0].place, "27");

        const UUID note = creditNote(library, {2026, 10, 30}, {}, supply, {software(price / 2)}, sold);
        inCurrency(library, note, currency, rate);
        EXPECT_EQ(gstr1(library, october).cdnur.size(), 1U) << currency;
    }
}

TEST(GSTReturns, specialZonesInTheOwnStateAreInterStateInLaw) {
    Library library = seller();
    invoice(library, {2026, 10, 1}, {zone, "27"}, sezWithIGST, {software(5'000'000)});
    invoice(library, {2026, 10, 2}, {zone, "27"}, sezLUT, {software(6'000'000)});
    const UUID unknown = invoice(library, {2026, 10, 3}, {"", "27"}, sezLUT, {software(6'000'000)});
    const GSTR1 result = gstr1(library, october);
    const GSTR3B summary = gstr3b(library, result);
    EXPECT_EQ(summary.zeroRated, (TaxedAmount{11'000'000, {0, 0, 900'000, 0}}));
    EXPECT_TRUE(summary.interState.empty() && result.hsnB2C.empty());
    EXPECT_EQ(result.leftOut, std::vector{unknown});
    const std::string text = uploadText(result);
    EXPECT_NE(
        text.find(R"("inv_typ":"SEWP","itms":[{"num":1801,"itm_det":{"txval":50000,"rt":18,"iamt":9000,"csamt":0}}])"),
        text.npos);
    EXPECT_NE(
        text.find(R"("inv_typ":"SEWOP","itms":[{"num":1801,"itm_det":{"txval":60000,"rt":18,"iamt":0,"csamt":0}}])"),
        text.npos);
}

TEST(GSTReturns, creditNotesCountInTheirOwnMonth) {
    Library library = seller();
    const UUID sold = invoice(library, {2026, 10, 3}, {maharashtra, "27"}, intraState, {software(10'000'000)});
    creditNote(library, {2026, 11, 2}, {maharashtra, "27"}, intraState, {software(2'000'000)}, sold);
    const auto taxed = [&library](const Period& period) { return gstr3b(library, gstr1(library, period)).taxed; };
    EXPECT_EQ(taxed(october), (TaxedAmount{10'000'000, {900'000, 900'000, 0, 0}}));
    EXPECT_EQ(taxed(Period::month({2026, 11, 1})), (TaxedAmount{-2'000'000, {-180'000, -180'000, 0, 0}}));
    EXPECT_EQ(taxed(Period::quarter({2026, 11, 1}, 4)), (TaxedAmount{8'000'000, {720'000, 720'000, 0, 0}}));
    const GSTR1 november = gstr1(library, Period::month({2026, 11, 1}));
    EXPECT_EQ(november.cdnr[0].rates[0].taxable, 2'000'000) << "positive: the letter C makes it a credit";
    EXPECT_EQ(november.hsnB2B[0].taxable, -2'000'000);
}

TEST(GSTReturns, creditNotesToConsumersFollowTheirInvoice) {
    Library library = seller();
    const UUID large = invoice(library, {2026, 9, 9}, {"", "07"}, interState, {software(8'475'000)});
    const UUID small = invoice(library, {2026, 9, 9}, {"", "29"}, interState, {software(1'500'000)});
    const UUID old = invoice(library, {2024, 7, 9}, {"", "08"}, interState, {software(8'475'000)});
    creditNote(library, {2026, 10, 1}, {"", "07"}, interState, {software(3'000'000)}, large);
    creditNote(library, {2026, 10, 2}, {"", "29"}, interState, {software(500'000)}, small);
    creditNote(library, {2026, 10, 3}, {"", "08"}, interState, {software(100'000)}, old);
    const GSTR1 result = gstr1(library, october);
    ASSERT_EQ(result.cdnur.size(), 1U);
    EXPECT_EQ(result.cdnur[0].value, 3'540'000);
    ASSERT_EQ(result.b2cs.size(), 2U) << "the limit of the invoice's own day decides";
    EXPECT_EQ(result.b2cs[1].taxable, -500'000);
    EXPECT_EQ(result.b2cs[1].tax.igst, -90'000);
    EXPECT_EQ(
        gstr3b(library, result).interState,
        (std::vector<PlaceRow>{{"07", -3'000'000, -540'000}, {"08", -100'000, -18'000}, {"29", -500'000, -90'000}}));
}

TEST(GSTReturns, numbersRunPerSeriesAndCounter) {
    Library library = seller();
    const auto use = [&library](std::string pattern, std::initializer_list<std::pair<Day, int>> months) {
        library.series.update(0, [&pattern](NumberSeries& s) { s.pattern = pattern; });
        for (const auto& [date, count] : months)
            for (int i = 1; i <= count; ++i)
                add(library, DocKind::invoice, Numbering::format(pattern, i, date, 4), date, {"", "27"}, intraState,
                    {software(100)});
    };
    use("{YY}{MM}-{##}", {{{2026, 1, 5}, 4}, {{2026, 2, 5}, 2}, {{2026, 3, 5}, 10}});
    auto runs = gstr1(library, Period::quarter({2026, 3, 1}, 4)).numbers;
    ASSERT_EQ(runs.size(), 3U);
    EXPECT_EQ(runs[0].used, 4U);
    EXPECT_EQ(runs[1].used, 2U);
    EXPECT_EQ(runs[2].from + " " + runs[2].to, "2603-01 2603-10");

    library.documents = {};
    use("{#}/{FY}", {{{2026, 10, 5}, 12}});
    library.documents.erase(10);
    library.documents.update(3, [](Document& d) { d.state = DocState::void_; });
    add(library, DocKind::invoice, "OLD7", {2026, 10, 1}, {"", "27"}, intraState, {software(100)});
    runs = gstr1(library, october).numbers;
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs[0].from + " " + runs[0].to, "1/26-27 12/26-27") << "by counter, not by text";
    EXPECT_EQ(runs[0].used, 11U);
    EXPECT_EQ(runs[0].cancelled, 1U);
    EXPECT_EQ(runs[0].missing, 1U);
    EXPECT_EQ(runs[1].from, "OLD7");
}

TEST(GSTReturns, codesAreSummedByUnitToo) {
    Library library = seller();
    std::vector<Line> lines;
    for (const auto& [hsn, unit, qty] : {std::tuple{"4911", "nos", 1'000},
                                         {" 4911", "Pieces", 2'500},
                                         {"4911", "No.", 3'000},
                                         {"4911", "page", 4'000},
                                         {"998391", "hour", 5'000}}) {
        lines.push_back(line("Chärts & more: on good paper, A3", hsn, 100, 500, qty));
        lines.back().unit = unit;
    }
    invoice(library, {2026, 10, 1}, {karnataka, "29"}, interState, lines);
    const GSTR1 result = gstr1(library, october);
    std::string text;
    for (const HSNRow& row : result.hsnB2B)
        text += row.code + " " + row.unit + " " + MoneyFormat::quantity(row.qtyMilli) + " " +
                std::to_string(row.taxable) + "; ";
    EXPECT_EQ(text, "4911 NOS 4 400; 4911 OTH 4 400; 4911 PCS 2.5 250; 998391 NA 0 500; ");
    EXPECT_EQ(result.hsnB2B[0].description, "Chrts & more on good paper A3");

    const GSTR1 before = gstr1(workedMonth(), Period::month({2025, 4, 30}));
    EXPECT_TRUE(before.hsnB2C.empty());
    library.documents.update(0, [](Document& d) { d.issueDate = {2025, 4, 30}, d.billTo->taxID = ""; });
    EXPECT_NE(uploadText(gstr1(library, Period::month({2025, 4, 30}))).find(R"("hsn":{"data":[)"), std::string::npos);
}

TEST(GSTReturns, compositionTaxesTheTurnover) {
    Library library = seller();
    library.business.regime = TaxRegime::gstComposition;
    const auto bill = [&library](DocKind kind, std::int64_t value, DocState state) {
        const UUID id = kind == DocKind::invoice
                            ? invoice(library, {2026, 10, 1}, {"", "27"}, noTax, {software(value, 0)})
                            : creditNote(library, {2026, 12, 31}, {"", "27"}, noTax, {software(value, 0)});
        change(library, id, [state](Document& d) { d.state = state; });
        return id;
    };
    bill(DocKind::invoice, 35'000'000, DocState::issued);
    bill(DocKind::invoice, 12'533'333, DocState::issued);
    bill(DocKind::creditNote, 1'500'000, DocState::issued);
    bill(DocKind::invoice, 9'900'000, DocState::void_);
    for (const auto& [rate, tax] : {std::pair{600, 1'381'000}, {100, 230'167}, {500, 1'150'833}}) {
        const Composition result = composition(library, Period::quarter({2026, 11, 1}, 4), rate);
        EXPECT_EQ(result.turnover, 46'033'333) << "round-off is no turnover";
        EXPECT_EQ(result.cgst, tax) << rate;
        EXPECT_EQ(result.sgst, tax) << rate;
        EXPECT_TRUE(result.outOfState.empty());
    }
    EXPECT_TRUE(gstr1(library, october).outside.empty() && gstr1(library, october).b2cs.empty());
    change(library, bill(DocKind::invoice, 100, DocState::issued), [](Document& d) { d.placeOfSupply = "29"; });
    EXPECT_EQ(composition(library, october).outOfState.size(), 1U);
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
        invoice(library, {2026, 10, 1}, {maharashtra, "27"}, intraState, {software(10'000'000)});
        Document document = library.documents[0];
        change(library, document);
        library.documents.update(0, [&document](Document& d) { d = document; });
        const auto found = problems(library, gstr1(library, Period::month(document.issueDate)));
        ASSERT_EQ(found.empty(), std::string_view(says).empty()) << says;
        if (found.empty()) continue;
        EXPECT_NE(found[0].sentence.find(says), std::string::npos) << found[0].sentence << " for " << says;
        EXPECT_EQ(found[0].severity, severity) << found[0].sentence;
    }
}

TEST(GSTReturns, tablesHoldEverySupplyOnce) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        Library library = testing::randomBooks(seed);
        library.business = seller().business;
        for (std::size_t i = 0; i < library.documents.size(); ++i)
            library.documents.update(i, [i](Document& d) {
                d.billTo.emplace().taxID = i % 2 == 0 ? std::string(karnataka) : "";
                d.number = "INV/" + std::to_string(i);
                d.placeOfSupply = i % 3 == 0 ? "29" : "27";
            });
        for (const Period& period : {october, Period::quarter({2026, 5, 1}, 4)}) {
            const GSTR1 result = gstr1(library, period);
            TaxedAmount books;
            std::int64_t nil = 0, cut = 0;
            for (const Document& d : library.documents) {
                const bool isOut =
                    std::find(result.leftOut.begin(), result.leftOut.end(), d.id) != result.leftOut.end();
                if (!GSTFigures::counts(d) || !period.contains(d.issueDate) || isOut) continue;
                if (d.supply == simple || d.supply == noTax) continue;
                const DocTotals totals = DocMath::totals(d);
                const int sign = d.kind == DocKind::invoice ? 1 : -1;
                const auto home = [&](std::int64_t amount) {
                    return sign * *Books::inHomeCurrency(library, d, amount);
                };
                books.taxable += home(totals.taxable);
                books.tax =
                    books.tax + TaxSplit{home(totals.tax.cgst), home(totals.tax.sgst), home(totals.tax.igst), 0};
            }
            const GSTR3B summary = gstr3b(library, result);
            EXPECT_EQ(summary.taxed.taxable + summary.zeroRated.taxable + summary.nilRated, books.taxable) << seed;
            EXPECT_EQ(summary.taxed.tax + summary.zeroRated.tax, books.tax) << seed;
            TaxSplit tax;
            for (const auto* half : {&result.hsnB2B, &result.hsnB2C})
                for (const HSNRow& row : *half) cut += row.taxable, tax = tax + row.tax;
            EXPECT_EQ(cut, books.taxable) << seed;
            EXPECT_EQ(tax, books.tax) << seed;
            for (const NilRow& row : result.nilRated) nil += row.taxable;
            EXPECT_EQ(summary.nilRated, nil) << seed;
        }
    }
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
