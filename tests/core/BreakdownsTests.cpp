#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Reports/Breakdowns.h"
#include "TambaCore/Reports/TDS.h"
#include "tests/support/Books.h"

namespace tamba {
namespace {

TEST(TDS, isListedByQuarterFromAprilToMarch) {
    Library library = testing::aBook();
    library.business.fyStartMonth = 1;
    const auto pay = [&library](Day date, std::int64_t amount, std::int64_t tds, std::string name,
                                std::string taxID = "") {
        Document d = testing::anInvoice("INV/" + std::to_string(library.documents.size() + 1));
        d.billTo->name = std::move(name);
        d.billTo->taxID = std::move(taxID);
        d.lines = {Line::make("Design", 1000, 100'000, 1800)};
        d.payments = {Payment::make(date, amount, tds, PaymentMethod::bank)};
        library.documents.append(d);
    };
    const std::string saffron = library.clients[0].taxID;
    pay({2026, 3, 31}, 108'000, 10'000, "Saffron Labs", saffron);
    pay({2026, 4, 1}, 108'000, 10'000, "Saffron Labs", saffron);
    pay({2026, 6, 30}, 54'000, 5'000, "Saffron Labs Bengaluru", GSTIN::make("29", "AABCM1234K", "1"));
    pay({2026, 7, 1}, 118'000, 0, "Akshar");
    pay({2026, 9, 30}, 0, 300, "Akshar");
    pay({2026, 12, 31}, 1, 200, "Akshar");
    pay({2027, 3, 31}, 1'000, 100, "Banyan");
    library.documents.update(6, [](Document& d) { d.currency = "USD", d.rateMicros = 80'000'000; });
    pay({2027, 1, 1}, 1'000, 100, "Banyan");
    library.documents.update(7, [](Document& d) { d.currency = "USD", d.rateMicros = 0; });

    const TDS::Year year = TDS::year(library, 2026);
    ASSERT_EQ(year.deductions.size(), 5U);
    const TDS::Deduction& first = year.deductions.front();
    EXPECT_EQ(first.number, "INV/2");
    EXPECT_EQ(first.taxable, 100'000);
    EXPECT_EQ(first.received, 108'000);
    EXPECT_EQ(first.rateBP, 1000);
    EXPECT_EQ(first.pan, "AABCM1234K");
    EXPECT_EQ(year.deductions[2].rateBP, 11'811) << "300 of a share of 254";
    ASSERT_EQ(year.clients.size(), 3U);
    EXPECT_EQ(year.clients[0].name, "Akshar");
    EXPECT_EQ(year.clients[0].quarters, (std::array<std::int64_t, 4>{0, 300, 200, 0}));
    EXPECT_EQ(year.clients[1].total, 8'000) << "dollars at the rate of the invoice";
    EXPECT_EQ(year.clients[2], (TDS::ClientRow{"Saffron Labs",
                                               saffron,
                                               "AABCM1234K",
                                               {15'000, 0, 0, 0},
                                               15'000,
                                               {library.documents[1].id, library.documents[2].id}}))
        << "two registrations of one PAN";
    EXPECT_EQ(year.quarters, (std::array<std::int64_t, 4>{15'000, 300, 200, 8'000}));
    EXPECT_EQ(year.total, 23'500);
    EXPECT_EQ(year.leftOut, std::vector{library.documents[7].id});
}

TEST(Breakdowns, inputTaxKeepsClaimedAndUnclaimedApart) {
    Library library;
    const auto spend = [&library](TaxSplit tax, bool claim, std::string currency = "INR") {
        Expense e = testing::anExpense("Kagaz", {2026, 10, 31});
        e.amount = 1'000'000;
        e.taxSplit = tax;
        e.tax = tax.total();
        e.claimTax = claim;
        e.currency = std::move(currency);
        e.rateMicros = 500'000;
        library.expenses.append(e);
    };
    spend({90'000, 90'000, 0, 0}, true);
    spend({0, 0, 90'000, 0}, true);
    spend({2'500, 2'500, 0, 0}, false);
    spend({101, 101, 0, 0}, true, "USD");
    spend({}, true);
    const auto row = Breakdowns::inputTax(library, {2026, 4})[6];
    EXPECT_EQ(row.claimed, (TaxSplit{90'051, 90'050, 90'000, 0})) << "halves that add up to 101, half of 202";
    EXPECT_EQ(row.notClaimed, 5'000);
    EXPECT_EQ(row.expenseIDs.size(), 4U);
}

TEST(Breakdowns, mileageAddsDistances) {
    Library library;
    for (const Day day : {Day{2026, 4, 1}, Day{2026, 4, 30}, Day{2026, 5, 1}, Day{2027, 4, 1}})
        library.expenses.append(Expenses::mileage(library, Expense::make(day), 12'500, 1'000));
    library.expenses.append(testing::anExpense("Taxi", {2026, 4, 2}));
    const auto rows = Breakdowns::mileage(library, {2026, 4});
    EXPECT_EQ(rows[0].distanceMilli, 25'000);
    EXPECT_EQ(rows[0].amount, 25'000);
    EXPECT_EQ(rows[0].expenseIDs.size(), 2U);
    EXPECT_EQ(rows[1].amount, 12'500);
}

TEST(Breakdowns, linesCountForTheProjectOfTheirExpenseElseTheClientsOnlyOne) {
    Library library = testing::aBook();
    library.clients.append(Client::make("Banyan"));
    const UUID saffron = library.clients[0].id, banyan = library.clients[1].id;
    for (const auto& [name, client] : {std::pair{"Rebrand", saffron}, {"Fair", banyan}, {"Site", banyan}})
        library.projects.append(Project::make(name, client));
    Expense cost = testing::anExpense();
    cost.claimTax = false;
    cost.projectID = library.projects[2].id;
    library.expenses.append(cost);
    const auto bill = [&library](DocKind kind, const UUID& client, std::int64_t price) {
        Document d = testing::anInvoice();
        d.kind = kind;
        d.clientID = client;
        d.lines = {Line::make("Design", 1000, price, 1800)};
        library.documents.append(d);
    };
    bill(DocKind::invoice, saffron, 100'000);
    bill(DocKind::creditNote, saffron, 30'000);
    bill(DocKind::invoice, banyan, 50'000);
    library.documents.update(2, [&cost](Document& d) {
        d.lines.push_back(Line::make("Passed on", 1000, 20'000, 1800));
        d.lines[1].expenseID = cost.id;
    });
    const auto rows = Breakdowns::projects(library, Period::fy({2026, 4}));
    ASSERT_EQ(rows.size(), 3U);
    const struct {
        std::string_view name, client;
        std::int64_t income, expenses;
    } expected[] = {
        {"Rebrand", "Saffron Labs", 70'000, 0}, {"Site", "Banyan", 20'000, 11'800}, {"No project", "", 50'000, 0}};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(rows[i].name, expected[i].name);
        EXPECT_EQ(rows[i].client, expected[i].client);
        EXPECT_EQ(rows[i].income, expected[i].income);
        EXPECT_EQ(rows[i].expenses, expected[i].expenses);
    }
}

}  // namespace
}  // namespace tamba
