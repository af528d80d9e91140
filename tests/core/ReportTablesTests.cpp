#include "TambaCore/Reports/ReportTables.h"
#include "tests/support/RandomBooks.h"

#include <gtest/gtest.h>

#include <limits>

namespace tamba {
namespace {

using Kind = Table::Kind;
constexpr Day today{2026, 11, 21};
constexpr FinancialYear year{2026, 4};

TEST(Tables, printCellsForPeopleAndForPrograms) {
    const struct {
        Table::Cell cell;
        Kind kind;
        std::string shown, plain;
    } cases[] = {
        {{}, Kind::amount, "", ""},
        {"Chai", Kind::text, "Chai", "Chai"},
        {"Total", Kind::day, "Total", "Total"},
        {Day{2026, 9, 4}, Kind::day, "4 Sept 2026", "2026-09-04"},
        {Day{2026, 10, 1}, Kind::month, "October 2026", "2026-10"},
        {Table::Amount{-12345600, "INR"}, Kind::amount, "−₹1,23,456.00", "-123456.00"},
        {Table::Amount{1500, "JPY"}, Kind::amount, "¥1,500", "1500"},
        {Table::Amount{1000500, "KWD"}, Kind::amount, "KD 1,000.500", "1000.500"},
        {std::int64_t{1200}, Kind::count, "1200", "1200"},
        {std::int64_t{12500}, Kind::quantity, "12.5", "12.5"},
        {std::int64_t{25}, Kind::percent, "0.25%", "0.25"},
        {std::int64_t{1800}, Kind::percent, "18%", "18"},
    };
    for (const auto& [cell, kind, shown, plain] : cases) {
        EXPECT_EQ(Tables::shown(cell, kind), shown);
        EXPECT_EQ(Tables::plain(cell, kind), plain);
    }
}

TEST(Tables, filesLeaveOutSumsAndTheClipboardRunsNothing) {
    Table table;
    table.columns = {{"Vendor"}, {"Amount", Kind::amount}};
    table.rows = {{{"=SUM(A1)\tx\ny", Table::Amount{-500, "INR"}}, {}, {}},
                  {{"Total", Table::Amount{-500, "INR"}}, {}, {}, true}};
    EXPECT_EQ(Tables::csv(table).rows, (std::vector<CSV::Row>{{"=SUM(A1)\tx\ny", "-5.00"}}));
    EXPECT_EQ(Tables::text(table), "Vendor\tAmount\n'=SUM(A1) x y\t−₹5.00\nTotal\t−₹5.00\n");
}

std::vector<Table> everyTable(const Library& library, const Period& period) {
    const Reports reports{library, today};
    std::vector<Table> all{ReportTables::profit(reports, IncomeBasis::accrual, year),
                           ReportTables::profit(reports, IncomeBasis::cash, year),
                           ReportTables::spending(reports, period),
                           ReportTables::clients(reports, period),
                           ReportTables::aging(reports),
                           ReportTables::owed(reports),
                           ReportTables::tdsDeductions(library, 2026),
                           ReportTables::tdsClients(library, 2026),
                           ReportTables::inputTax(library, year),
                           ReportTables::mileage(library, year),
                           ReportTables::projects(library, period),
                           ReportTables::composition(library, GSTReturns::composition(library, period))};
    const auto outward = GSTReturns::gstr1(library, period);
    for (const auto& tables :
         {ReportTables::gstr1(library, outward), ReportTables::gstr3b(library, GSTReturns::gstr3b(library, outward))})
        all.insert(all.end(), tables.begin(), tables.end());
    return all;
}

void isDrawn(const Library& library, const Period& period) {
    for (const Table& table : everyTable(library, period)) {
        for (const Table::Row& row : table.rows) EXPECT_EQ(row.cells.size(), table.columns.size()) << table.title;
        EXPECT_FALSE(Tables::text(table).empty()) << table.title;
        EXPECT_FALSE(Tables::csv(table).text().empty()) << table.title;
    }
}

std::int64_t sumOf(const Table& table, std::size_t column) {
    EXPECT_TRUE(table.rows.back().isSum) << table.title;
    return std::get<Table::Amount>(table.rows.back().cells[column]).minor;
}

TEST(ReportTables, addUpToTheReportsWhateverTheBooksHold) {
    const Period period = Period::fy(year);
    for (const std::uint64_t seed : {1, 2, 3, 4}) {
        Library library = tamba::testing::randomBooks(seed);
        library.business.taxID = "27AAPFU0939F1ZV";
        const Reports reports{library, today};
        for (const IncomeBasis basis : allIncomeBases())
            EXPECT_EQ(sumOf(ReportTables::profit(reports, basis, year), 1), reports.income(basis, period));
        EXPECT_EQ(sumOf(ReportTables::spending(reports, period), 2), reports.spending(period));
        EXPECT_EQ(sumOf(ReportTables::owed(reports), 6), sumOf(ReportTables::aging(reports), 2))
            << "each invoice with a balance stands in the list";
        const Table projects = ReportTables::projects(library, period);
        EXPECT_EQ(sumOf(projects, 4), reports.income(IncomeBasis::accrual, period) - reports.spending(period));
        isDrawn(library, period);
    }
}

TEST(ReportTables, areDrawnForBooksOfEveryKind) {
    Library one = Library::make(), abroad = testing::randomBooks(1), composition = testing::randomBooks(2);
    one.expenses.append(Expense::make(today));
    abroad.business.regime = TaxRegime::simple;
    abroad.business.country = "AE";
    abroad.business.homeCurrency = "AED";
    abroad.business.fyStartMonth = 1;
    composition.business.regime = TaxRegime::gstComposition;  // with tax documents of the years before it joined
    for (const Library& library : {Library(), Library::make(), one, abroad, composition})
        for (const Period& period : {Period::month(today), Period::fy(library.fy(today)), Period{today, {2026, 1, 1}}})
            isDrawn(library, period);
    EXPECT_EQ(ReportTables::profit({one, today}, IncomeBasis::cash, year).rows.size(), 13U);
}

TEST(ReportTables, sharesStandOnlyWhereNothingCameBack) {
    Library library = Library::make();
    const auto spend = [&library](std::int64_t amount, std::size_t category) {
        Expense expense = Expense::make({2026, 10, 1});
        expense.amount = amount;
        expense.categoryID = library.categories[category].id;
        library.expenses.append(expense);
    };
    const auto shares = [&library] {
        std::string text;
        const Table table = ReportTables::spending({library, today}, Period::fy(year));
        for (const Table::Row& row : table.rows) text += Tables::shown(row.cells[3], Kind::percent) + " ";
        return text;
    };
    spend(200'00, 0);
    spend(100'00, 1);
    EXPECT_EQ(shares(), "66.7% 33.3%  ");
    spend(-299'99, 2);
    EXPECT_EQ(shares(), "    ") << "of one paisa in all";
}

}  // namespace
}  // namespace tamba
