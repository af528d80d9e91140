#include "TambaCore/Reports/Deadlines.h"
#include "tests/support/Books.h"

#include <algorithm>

namespace tamba {
namespace {

using namespace Deadlines;
using testing::aBook;

/// Adds an issued document with one line of 18 %.
void add(Library& library, DocKind kind, Day date, std::int64_t priceMinor,
         SupplyType supply = SupplyType::intraState) {
    Document document = testing::aDraft(library, kind, {Line::make("Design", 1000, priceMinor, 1800)});
    document.lines.front().hsn = "998391";
    document.issueDate = date;
    document.supply = supply;
    document.state = DocState::issued;
    document.number = "D/" + std::to_string(library.documents.size() + 1);
    library.documents.append(document);
}

std::vector<std::string> datesOf(const Library& library, Day today, int days) {
    std::vector<std::string> result;
    for (const Deadline& each : upcoming(library, today, days)) result.push_back(each.due.iso() + " " + each.title);
    return result;
}

Library under(TaxRegime regime, std::string country = "IN") {
    Library library = aBook();
    library.business.regime = regime;
    library.business.country = std::move(country);
    return library;
}

TEST(Deadlines, followTheRegime) {
    using enum TaxRegime;
    using Dates = std::vector<std::string>;
    const std::string lastInstalment = "2026-03-15 Advance tax for 2025-26, up to 100 %";
    const struct {
        Library library;
        Day today;
        int days;
        Dates expected;
    } cases[] = {
        {under(gstIndia),
         {2026, 11, 21},
         30,
         {"2026-12-11 GSTR-1 for November 2026", "2026-12-15 Advance tax for 2026-27, up to 75 %",
          "2026-12-20 GSTR-3B for November 2026"}},
        // The day itself still counts, the last day too; the year turns.
        {under(gstIndia),
         {2027, 1, 11},
         9,
         {"2027-01-11 GSTR-1 for December 2026", "2027-01-20 GSTR-3B for December 2026"}},
        {under(gstIndia), {2027, 1, 12}, 7, {}},
        {under(gstComposition), {2026, 9, 16}, 40, {"2026-10-18 CMP-08 for July–September 2026"}},
        {under(gstComposition), {2026, 4, 1}, 20, {"2026-04-18 CMP-08 for January–March 2026"}},
        {under(gstComposition), {2025, 6, 16}, 20, {"2025-06-30 GSTR-4 for 2024-25"}},
        {under(gstComposition), {2024, 4, 20}, 20, {"2024-04-30 GSTR-4 for 2023-24"}},
        {under(none), {2026, 3, 1}, 60, {lastInstalment}},
        {under(simple), {2026, 3, 1}, 60, {lastInstalment}},
        {under(simple, "AE"), {2026, 3, 1}, 60, {}},
    };
    for (const auto& [library, today, days, expected] : cases) EXPECT_EQ(datesOf(library, today, days), expected);
}

TEST(Deadlines, askForTheUndertakingOnlyWhereItIsUsed) {
    const Day march{2027, 3, 21};
    const auto letter = [&](const Library& library) -> std::optional<Deadline> {
        for (const Deadline& each : upcoming(library, march, 10))
            if (each.kind == Kind::lut) return each;
        return {};
    };
    Library library = aBook();
    add(library, DocKind::invoice, {2026, 5, 2}, 100'000);
    add(library, DocKind::invoice, {2026, 3, 31}, 100'000, SupplyType::exportLUT);  // the year before
    add(library, DocKind::invoice, {2026, 6, 2}, 100'000, SupplyType::exportWithIGST);
    EXPECT_FALSE(letter(library));
    add(library, DocKind::invoice, {2026, 4, 1}, 100'000, SupplyType::sezLUT);
    EXPECT_EQ(letter(library)->due, (Day{2027, 3, 31}));
    EXPECT_EQ(letter(library)->title, "Letter of undertaking for 2027-28");
    EXPECT_EQ(letter(library)->problems, 1U);
    library.business.lutReference = "AD270326000001A";
    EXPECT_EQ(letter(library)->holds, "1 invoice this year under AD270326000001A");
    EXPECT_EQ(letter(library)->problems, 0U);
}

TEST(Deadlines, tellWhatIsInThem) {
    const auto holds = [](const Library& library, Day today, Kind kind) -> std::string {
        const auto all = upcoming(library, today, 45);
        const auto found = std::find_if(all.begin(), all.end(), [&](const Deadline& d) { return d.kind == kind; });
        return found == all.end() ? "none" : found->holds;
    };
    Library library = aBook();
    EXPECT_EQ(holds(library, {2026, 12, 1}, Kind::gstr1), "Nil return");
    EXPECT_EQ(holds(library, {2026, 11, 21}, Kind::gstr1), "Nil return so far");
    add(library, DocKind::invoice, {2026, 11, 3}, 10'000'000);
    add(library, DocKind::creditNote, {2026, 11, 30}, 1'000'000);
    add(library, DocKind::invoice, {2026, 12, 1}, 7'777);                      // the next month
    add(library, DocKind::invoice, {2026, 11, 5}, 50'000, SupplyType::noTax);  // no supply of GST
    Expense paper = testing::anExpense("Paper", {2026, 11, 9});
    paper.amount = 118'000, paper.tax = 18'000, paper.taxSplit = {9'000, 9'000, 0, 0};
    library.expenses.append(paper);
    EXPECT_EQ(holds(library, {2026, 12, 1}, Kind::gstr1), "2 documents · ₹90,000.00 taxable");
    // 18 % of 90,000.00 less the 180.00 paid on paper.
    EXPECT_EQ(holds(library, {2026, 12, 1}, Kind::gstr3b), "₹90,000.00 taxable · ₹16,020.00 to pay");
    EXPECT_EQ(holds(library, {2026, 12, 1}, Kind::advanceTax), "₹89,577.77 profit so far");
    library.business.regime = TaxRegime::gstComposition;
    EXPECT_EQ(holds(library, {2027, 1, 2}, Kind::cmp08), "₹90,577.77 turnover · ₹5,434.66 to pay");
    EXPECT_EQ(holds(library, {2026, 12, 5}, Kind::cmp08), "₹90,577.77 turnover · ₹5,434.66 to pay so far");
}

}  // namespace
}  // namespace tamba
