#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"

#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <limits>
#include <random>

namespace tamba {
namespace {

using enum SupplyType;

Line line(std::int64_t qtyMilli, std::int64_t priceMinor, int taxBP, int discountBP = 0, std::string hsn = "") {
    Line made = Line::make("Design", qtyMilli, priceMinor, taxBP);
    made.discountBP = discountBP;
    made.hsn = std::move(hsn);
    return made;
}

Document document(SupplyType supply, std::vector<Line> lines, bool roundOff = false) {
    Document made;
    made.supply = supply;
    made.lines = std::move(lines);
    made.roundOff = roundOff;
    return made;
}

TEST(DocMath, worksOutKnownDocuments) {
    const struct {
        const char* what;
        Document document;
        std::int64_t taxable;
        TaxSplit tax;
        std::int64_t roundOff, total;
    } cases[] = {
        {"each step rounds", document(intraState, {line(1500, 333, 1800, 1000)}), 450, {41, 41}, 0, 532},
        {"then the total", document(intraState, {line(1500, 333, 1800, 1000)}, true), 450, {41, 41}, -32, 500},
        {"below zero too", document(noTax, {line(1000, -150, 0)}, true), -150, {}, -50, -200},
        {"no tax under LUT", document(exportLUT, {line(1000, 250000, 1800)}), 250000, {}, 0, 250000},
    };
    for (const auto& [what, document, taxable, tax, roundOff, total] : cases) {
        SCOPED_TRACE(what);
        const DocTotals totals = DocMath::totals(document);
        EXPECT_EQ(totals.taxable, taxable);
        EXPECT_EQ(totals.tax, tax);
        EXPECT_EQ(totals.roundOff, roundOff);
        EXPECT_EQ(totals.total, total);
    }
}

// oracle.tsv is made by tests/data/documents/oracle.py with exact fractions.

std::string text(const std::string& value) { return value; }
std::string text(std::int64_t value) { return std::to_string(value); }
std::string text(const TaxSplit& tax) {
    return Text::join({text(tax.cgst), text(tax.sgst), text(tax.igst), text(tax.other)}, ",");
}
template <class... Fields>
std::string record(const Fields&... fields) {
    return Text::join({text(fields)...}, ",") + ";";
}

std::string asColumns(const DocTotals& totals) {
    std::string lines, rates, codes;
    for (const LineTotals& one : totals.lines) lines += record(one.gross, one.discount, one.taxable, one.tax);
    for (const RateGroup& one : totals.byRate) rates += record(one.rateBP, one.taxable, one.tax);
    for (const HSNGroup& one : totals.byHSN)
        codes += record(one.hsn, one.rateBP, one.qtyMilli, one.unit, one.taxable, one.tax);
    const std::string sums =
        record(totals.subtotal, totals.discount, totals.taxable, totals.tax, totals.roundOff, totals.total);
    return lines + "\t" + sums + "\t" + rates + "\t" + codes;
}

Document documentOf(const std::vector<std::string>& columns) {
    static const std::vector<std::string> supplies{"intraState", "interState",  "exportLUT", "exportWithIGST",
                                                   "sezLUT",     "sezWithIGST", "simple",    "noTax"};
    Document made;
    const auto supply = std::find(supplies.begin(), supplies.end(), columns.at(0)) - supplies.begin();
    made.supply = static_cast<SupplyType>(supply);
    made.currency = columns.at(1);
    made.roundOff = columns.at(2) == "1";
    for (const std::string& one : Text::split(columns.at(3), ';')) {
        if (one.empty()) continue;
        const auto field = Text::split(one, ',');
        made.lines.push_back(line(std::stoll(field.at(0)), std::stoll(field.at(1)), std::stoi(field.at(3)),
                                  std::stoi(field.at(2)), field.at(4)));
        made.lines.back().unit = field.at(5);
    }
    return made;
}

TEST(DocMath, agreesWithExactFractions) {
    std::ifstream file(TEST_DATA "/documents/oracle.tsv");
    int documents = 0;
    for (std::string row; std::getline(file, row); ++documents) {
        SCOPED_TRACE(row);
        const Document made = documentOf(Text::split(row, '\t'));
        EXPECT_TRUE(row.ends_with("\t" + asColumns(DocMath::totals(made)))) << asColumns(DocMath::totals(made));
    }
    EXPECT_EQ(documents, 300);
    EXPECT_EQ((HSNGroup{.hsn = "998391", .rateBP = 1800, .unit = {}, .tax = {}}).id(), "998391|1800");
}

/// Mostly what people type, now and then what nobody does. Drawn by a cheap engine, so that many documents are tried.
class Drawer {
public:
    explicit Drawer(std::uint64_t seed) : engine_(seed) {}

    Document document() {
        Document made;
        made.supply = static_cast<SupplyType>(below(8));
        made.currency = std::array{"INR", "JPY", "KWD", "USD"}.at(below(4));
        made.roundOff = below(2) == 0;
        for (std::size_t count = below(5); made.lines.size() < count;) {
            const auto percent = [this] { return static_cast<int>(below(20) ? below(10'001) : below(1u << 31)); };
            made.lines.push_back(line(figure(), figure(), percent(), percent(), std::to_string(below(3))));
        }
        for (std::size_t count = below(3); made.payments.size() < count;)
            made.payments.push_back(Payment::make({}, figure(), figure(), PaymentMethod::upi));
        return made;
    }

private:
    std::uint64_t below(std::uint64_t end) { return engine_() % end; }
    std::int64_t figure() {
        if (below(40)) return static_cast<std::int64_t>(below(std::uint64_t{1} << below(40)));
        return static_cast<std::int64_t>(engine_() >> below(64));
    }
    std::mt19937_64 engine_;
};

RC_GTEST_PROP(DocMath, keepsItsIdentities, ()) {
    Drawer drawer(*rc::gen::arbitrary<std::uint64_t>());
    int believable = 0;
    for (int i = 0; i < 1000; ++i) {
        const Document drawn = drawer.document();
        if (!DocMath::isBelievable(drawn)) continue;
        ++believable;
        const DocTotals totals = DocMath::totals(drawn);
        RC_ASSERT(totals.subtotal - totals.discount == totals.taxable);
        RC_ASSERT(totals.total == totals.taxable + totals.tax.total() + totals.roundOff);
        RC_ASSERT(isBelievable(totals.subtotal) && isBelievable(totals.total));
        LineTotals rates, codes;
        for (const RateGroup& one : totals.byRate) rates.taxable += one.taxable, rates.tax = rates.tax + one.tax;
        for (const HSNGroup& one : totals.byHSN) codes.taxable += one.taxable, codes.tax = codes.tax + one.tax;
        RC_ASSERT(rates == (LineTotals{0, 0, totals.taxable, totals.tax}));
        RC_ASSERT(codes == rates);
    }
    RC_ASSERT(believable > 500);
}

TEST(DocMath, knowsWhatNobodyCanMean) {
    constexpr std::int64_t most = maximumAmount, highest = std::numeric_limits<std::int64_t>::max();
    const auto paying = [](std::int64_t amount, std::int64_t tds) {
        Document paid = document(noTax, {line(1000, 100, 0)});
        paid.payments.assign(2, Payment::make({}, amount, tds, PaymentMethod::upi));
        return paid;
    };
    Document wrongRate = document(noTax, {});
    wrongRate.rateMicros = -1;
    const struct {
        Document document;
        bool believable;
    } cases[] = {
        {document(noTax, {line(1000, most, 0)}), true},
        {document(noTax, {line(most, 1000, 0)}), true},
        {document(noTax, {line(most, most, 0)}), false},
        {document(noTax, {line(highest, highest, 0)}), false},
        {document(noTax, {line(1000, most, 0), line(1000, 1, 0)}), false},
        {document(noTax, {line(most, 0, 0), line(1, 0, 0)}), false},
        {document(noTax, std::vector<Line>(10'000, line(1000, most, 0, 10'000))), false},
        {document(interState, {line(1000, most / 2, 10'000)}), true},
        {document(interState, {line(1000, most / 2 + 1, 10'000)}), false},
        {document(interState, {line(1000, most, std::numeric_limits<int>::max())}), false},
        {document(noTax, {line(1000, 100, 0, 10'000)}), true},
        {document(noTax, {line(1000, 100, 0, 10'001)}), false},
        {document(noTax, {line(1000, 100, 0, -1)}), false},
        {document(noTax, {line(1000, 100, -1)}), false},
        {document(noTax, {line(-1, 100, 0)}), false},
        {document(noTax, {line(1000, -1, 0)}), false},
        {document(noTax, {line(std::numeric_limits<std::int64_t>::min(), highest, 0)}), false},
        {paying(most / 2, 0), true},
        {paying(most / 2, 1), false},
        {paying(highest, highest), false},
        {paying(-1, 5), false},
        {wrongRate, false},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(DocMath::isBelievable(cases[i].document), cases[i].believable) << "case " << i;
}

}  // namespace
}  // namespace tamba
