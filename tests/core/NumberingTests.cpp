#include "TambaCore/Documents/Numbering.h"
#include "tests/support/Books.h"

#include <limits>

namespace tamba {
namespace {

using testing::aBook;
using testing::anInvoice;

TEST(Numbering, makesNumbersAndPeriods) {
    const struct {
        const char* pattern;
        std::int64_t counter;
        Day date;
        int fyStart;
        const char *number, *period;
    } cases[] = {
        {"INV/{FY}/{###}", 7, {2026, 10, 14}, 4, "INV/26-27/007", "26-27"},
        {"INV/{FY}/{###}", 7, {2027, 2, 14}, 4, "INV/26-27/007", "26-27"},
        {"INV/{FY}/{###}", 1, {2027, 4, 1}, 4, "INV/27-28/001", "27-28"},
        {"INV/{FY}/{###}", 1, {2027, 3, 31}, 1, "INV/2027/001", "2027"},
        {"{FY}/{YYYY}/{#}", 1, {2027, 3, 31}, 4, "26-27/2027/1", "26-27"},
        {"{YYYY}-{MM}-{##}", 3, {2026, 9, 30}, 4, "2026-09-03", "2026-09"},
        {"{YY}{###}", 3, {2009, 1, 1}, 4, "09003", "2009"},
        {"{MM}/{###}", 3, {2026, 9, 1}, 4, "09/003", "all"},
        {"A-{###}", 1234, {2026, 9, 1}, 4, "A-1234", "all"},
        {"INV", 5, {2026, 9, 1}, 4, "INV5", "all"},
        {"", 12, {2026, 9, 1}, 4, "12", "all"},
        {"{##}-{####}", 5, {2026, 9, 1}, 4, "05-{####}", "all"},
        {"{}{fy}{#x}", 5, {2026, 9, 1}, 4, "{}{fy}{#x}5", "all"},
        {"{{##}}", 5, {2026, 9, 1}, 4, "{05}", "all"},
        {"{FY}{FY}{#}", 5, {2026, 9, 1}, 4, "26-2726-275", "26-27"},
    };
    for (const auto& [pattern, counter, date, fyStart, number, period] : cases) {
        EXPECT_EQ(Numbering::format(pattern, counter, date, fyStart), number);
        EXPECT_EQ(Numbering::periodKey(pattern, date, fyStart), period) << pattern;
    }
    EXPECT_EQ(Numbering::preview("INV/{FY}/{###}", {2026, 10, 14}, 4), "INV/26-27/001");
}

TEST(Numbering, passesOverNumbersInUse) {
    Library library = aBook();
    const Day date{2026, 10, 14};
    const auto next = [&] { return Numbering::next(library, library.series[0], date); };
    EXPECT_EQ(next().counter, 1);
    library.documents.append(anInvoice("inv/26-27/001"));
    Document void_ = anInvoice("INV/26-27/002");
    void_.state = DocState::void_;
    library.documents.append(void_);
    Document estimate = anInvoice("INV/26-27/003");
    estimate.kind = DocKind::estimate;
    library.documents.append(estimate);
    EXPECT_EQ(next().counter, 3);
    EXPECT_EQ(next().number, "INV/26-27/003");

    library = Numbering::startAt(std::move(library), library.series[0].id, {2027, 3, 31}, 41);
    EXPECT_EQ(next().number, "INV/26-27/041");
    EXPECT_EQ(Numbering::nextNumber(library, library.series[0], {2027, 4, 1}), "INV/27-28/001");
    for (const std::int64_t counter : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1'000'000'000}})
        EXPECT_EQ(Numbering::startAt(library, library.series[0].id, date, counter), library);

    for (const std::int64_t damaged : {std::int64_t{-5}, std::numeric_limits<std::int64_t>::max()}) {
        library.series.update(0, [&](NumberSeries& series) { series.next["26-27"] = damaged; });
        EXPECT_EQ(next().counter, 3);
    }
}

TEST(Numbering, marksPatternsThatWillNotDo) {
    const struct {
        const char *pattern, *begin;
        TaxRegime regime = TaxRegime::gstIndia;
    } cases[] = {
        {"INV/{FY}/{###}", ""},
        {"INV/{FY}/{######}", ""},
        {"INV/{FY}/{#######}", "· too long for GST (16 max)"},
        {"INV/{fy}/{###}", "“{fy}” means nothing here."},
        {"INV/{DD}/{#}", "“{DD}” means nothing here."},
        {"{##}/{##}", "Only the first counter counts."},
        {"INV {###}", "GST allows only"},
        {"चालान/{###}", "GST allows only"},
        {"INV {###}", "", TaxRegime::simple},
        {"INV/{FY}/", "There is no counter"},
        {"est/{FY}/{###}", "“Estimates” has the same pattern."},
    };
    for (const auto& [pattern, begin, regime] : cases) {
        Library library = aBook();
        library.business.regime = regime;
        library.series.update(0, [&](NumberSeries& series) { series.pattern = pattern; });
        const auto problem = Numbering::problem(library, library.series[0], {2026, 10, 14});
        EXPECT_EQ(problem.has_value(), *begin != '\0') << pattern;
        EXPECT_TRUE(problem.value_or("").starts_with(begin)) << *problem;
    }
}

TEST(Numbering, aSeriesGoesOnlyWhereItLeavesNoHole) {
    Library library = aBook();
    const UUID first = library.series[0].id, second = UUID::random();
    EXPECT_EQ(Numbering::remove(library, first), library) << "the only one for invoices";
    library.series.append({second, DocKind::invoice, "Exports", "EX/{FY}/{###}", {}, {}});
    Document draft = Document::make(DocKind::invoice, {2026, 10, 14}, {2026, 10, 29});
    draft.seriesID = second;
    library.documents.append(draft);
    const Library without = Numbering::remove(library, second);
    EXPECT_EQ(without.series.size(), 3U);
    EXPECT_FALSE(without.documents[without.documents.size() - 1].seriesID);
    library.documents.update(library.documents.size() - 1, [](Document& d) { d.number = "EX/26-27/001"; });
    EXPECT_EQ(Numbering::remove(library, second), library) << "it has numbered one";
}

TEST(Numbering, knowsWhatMayStandOnATaxDocument) {
    for (const char* good : {"INV/26-27/000001", "a", "-"}) EXPECT_TRUE(Numbering::isAllowed(good)) << good;
    for (const char* bad : {"", "INV/26-27/0000001", "INV 1", "INV.1", "INV#1", "é1"})
        EXPECT_FALSE(Numbering::isAllowed(bad)) << bad;
}

}  // namespace
}  // namespace tamba
