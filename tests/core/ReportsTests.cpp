#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Reports.h"
#include "tests/support/RandomBooks.h"

#include <algorithm>
#include <limits>

namespace tamba {
namespace {

constexpr Day today{2026, 11, 21};
constexpr FinancialYear year{2026, 4};

/// A document of 1,000.00 without tax.
Document document(DocKind kind, DocState state, Day issued, Day due = today) {
    Document d = Document::make(kind, issued, due);
    d.state = state;
    d.lines = {Line::make("Design", 1000, 100'000, 0)};
    return d;
}
Document invoice(Day issued, Day due = today) { return document(DocKind::invoice, DocState::issued, issued, due); }

TEST(Reports, agingCountsWholeDaysPastDue) {
    const struct {
        int daysLate;
        std::size_t row;
    } cases[] = {{-400, 0}, {0, 0}, {1, 1}, {30, 1}, {31, 2}, {60, 2}, {61, 3}, {90, 3}, {91, 4}, {4000, 4}};
    for (const auto& [daysLate, row] : cases) {
        Library library;
        library.documents.append(invoice({2015, 1, 1}, today.addingDays(-daysLate)));
        const auto rows = Reports{library, today}.aging();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            EXPECT_EQ(rows[i].count, i == row ? 1 : 0) << daysLate << " in " << rows[i].label;
            EXPECT_EQ(rows[i].amount, i == row ? 100'000 : 0) << daysLate;
        }
        EXPECT_EQ((Reports{library, today}.overdue().size()), daysLate > 0 ? 1U : 0U) << daysLate;
    }
}

TEST(Reports, whatIsSettledIsOwedNoMore) {
    Library library;
    Document paid = invoice({2026, 1, 1}, {2026, 1, 2});
    paid.payments = {Payment::make(today, 90'000, 10'000, PaymentMethod::bank)};
    const Document credited = invoice({2026, 1, 1}, {2026, 1, 2});
    Document note = document(DocKind::creditNote, DocState::issued, today);
    note.linkedID = credited.id;
    Document overpaid = invoice({2026, 1, 1}, {2026, 1, 2});
    overpaid.payments = {Payment::make(today, 100'700, 0, PaymentMethod::bank)};
    library.documents = {paid, credited, note, overpaid};
    const Reports reports{library, today};
    for (const AgingRow& row : reports.aging()) EXPECT_EQ(row.count, 0) << row.label;
    EXPECT_TRUE(reports.overdue().empty());
    EXPECT_EQ(reports.outstanding(), -700);
}

TEST(Reports, spendingGroupsByCategoryLargestFirst) {
    Library library = Library::make();
    const auto spend = [&library](std::int64_t amount, std::optional<UUID> category, std::int64_t claimed = 0) {
        Expense e = Expense::make(today);
        e.amount = amount;
        e.tax = claimed;
        e.claimTax = claimed != 0;
        e.categoryID = category;
        library.expenses.append(e);
    };
    spend(100, library.categories[0].id);
    spend(1180, library.categories[1].id, 180);
    spend(100, std::nullopt);
    spend(900, library.categories[0].id);
    spend(1000, UUID::random());
    const auto rows = Reports{library, today}.byCategory(Period::month(today));
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0].name, library.categories[0].name) << "of equal amounts the group that was seen first";
    EXPECT_EQ(rows[0].count, 2);
    EXPECT_EQ(rows[0].expenseIDs, (std::vector{library.expenses[0].id, library.expenses[3].id}));
    EXPECT_EQ(rows[1].amount, 1000) << "less the claimed tax";
    EXPECT_EQ(rows[2], (CategoryRow{library.expenses[4].categoryID,
                                    "Uncategorised",
                                    "questionmark",
                                    "8A8174",
                                    1000,
                                    1,
                                    {library.expenses[4].id}}));
    EXPECT_EQ(rows[3].name, "Uncategorised");
    EXPECT_FALSE(rows[3].categoryID);
}

TEST(Reports, leaveOutWhatCannotBeConvertedAndSayWhich) {
    Library library;
    const auto add = [&library](std::string currency, std::int64_t rate, std::int64_t price) {
        Document d = invoice(today);
        d.currency = currency;
        d.rateMicros = rate;
        d.lines[0].priceMinor = price;
        library.documents.append(d);
        Expense e = Expense::make(today);
        e.currency = currency;
        e.rateMicros = rate;
        e.amount = price;
        e.tax = e.claimTax = price < 0;
        library.expenses.append(e);
    };
    constexpr auto beyond = std::numeric_limits<std::int64_t>::max();
    add("USD", 83'250'000, 10'000);
    add("USD", 0, 10'000);
    add("INR", 0, 10'000);
    add("INR", 1'000'000, beyond);
    add("USD", beyond, 10'000);
    for (int i = 0; i < 10'000; ++i) add("INR", 0, maximumAmount);
    const Reports reports{library, today};
    const Period month = Period::month(today);
    const std::vector documents{library.documents[1].id, library.documents[3].id, library.documents[4].id};
    const std::vector expenses{library.expenses[1].id, library.expenses[3].id, library.expenses[4].id};
    EXPECT_EQ(reports.leftOut(month), (LeftOut{documents, expenses}));
    EXPECT_EQ(reports.leftOut(), (LeftOut{documents, expenses}));
    EXPECT_EQ(reports.leftOut(Period::month({2026, 10, 1})).count(), 0U);
    constexpr std::int64_t most = 4'000'000'000'000'000'000;
    EXPECT_EQ(reports.income(IncomeBasis::accrual, month), most) << "a sum beyond 64 bits stops nothing";
    EXPECT_EQ(reports.spending(month), most);
    EXPECT_EQ(reports.months(IncomeBasis::accrual, year)[7].profit(), 0);
    EXPECT_EQ(reports.aging()[0].count, 10'002);
}

TEST(Reports, clientsGoByTheNameTheyHaveNow) {
    Library library = Library::make();
    library.clients.append(Client::make("Saffron Labs"));
    Document known = invoice(today), gone = invoice(today), nobody = invoice(today);
    known.clientID = library.clients[0].id;
    known.billTo.emplace().name = "Old Name";
    gone.clientID = UUID::random();
    gone.billTo.emplace().name = "Saffron Labs";
    nobody.lines[0].priceMinor = 500'000;
    library.documents = {known, gone, nobody};
    const auto rows = Reports{library, today}.byClient(Period::month(today));
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0], (ClientRow{"No client", 500'000, {nobody.id}}));
    EXPECT_EQ(rows[1], (ClientRow{"Saffron Labs", 200'000, {known.id, gone.id}}));
}

/// The reports as they are defined: a scan of the books for each figure.
namespace Slow {

std::int64_t home(const Library& library, std::int64_t amount, const std::string& currency, std::int64_t rate) {
    return MoneyMath::tryConvert(amount, Currency::of(currency), library.home(), rate).value_or(0);
}

std::int64_t income(const Library& library, IncomeBasis basis, const Period& period) {
    std::int64_t sum = 0;
    for (const Document& d : library.documents) {
        if (d.state != DocState::issued || d.kind == DocKind::estimate || !DocMath::isBelievable(d)) continue;
        const DocTotals totals = DocMath::totals(d);
        const auto converted = [&](std::int64_t amount) { return home(library, amount, d.currency, d.rateMicros); };
        if (basis == IncomeBasis::accrual && period.contains(d.issueDate))
            sum += (d.kind == DocKind::invoice ? 1 : -1) * converted(totals.taxable);
        if (basis == IncomeBasis::cash && d.kind == DocKind::invoice && totals.total >= 1)
            for (const Payment& p : d.payments)
                if (period.contains(p.date))
                    sum += converted(MoneyMath::mulDiv(p.amount + p.tds, totals.taxable, totals.total));
    }
    return sum;
}

std::int64_t spending(const Library& library, const Period& period) {
    std::int64_t sum = 0;
    for (const Expense& e : library.expenses)
        if (period.contains(e.date) && isBelievable(e.amount))
            sum += home(library, e.amount - (e.claimTax ? e.tax : 0), e.currency, e.rateMicros);
    return sum;
}

}  // namespace Slow

TEST(Reports, equalTwelveScansOverRandomBooks) {
    for (std::uint64_t seed = 1; seed <= 8; ++seed) {
        const Library library = testing::randomBooks(seed);
        const Reports reports{library, today};
        for (const IncomeBasis basis : allIncomeBases())
            for (const int start : {1, 4, 10})
                for (const MonthRow& row : reports.months(basis, {2026, start})) {
                    const Period month = Period::month(row.month);
                    EXPECT_EQ(row.income, Slow::income(library, basis, month)) << seed << " " << row.month.iso();
                    EXPECT_EQ(row.income, reports.income(basis, month)) << seed;
                    EXPECT_EQ(row.expenses, Slow::spending(library, month)) << seed << " " << row.month.iso();
                }
        std::int64_t spent = 0, owed = 0, late = 0, open = 0;
        const Period all{{1900, 1, 1}, {2100, 1, 1}};
        for (const CategoryRow& row : reports.byCategory(all)) spent += row.amount;
        EXPECT_EQ(spent, Slow::spending(library, all)) << seed;
        for (const Document* d : reports.issuedInvoices()) {
            const std::int64_t balance = Slow::home(library, Books::balance(library, *d), d->currency, d->rateMicros);
            owed += balance;
            open += std::max<std::int64_t>(balance, 0);
        }
        EXPECT_EQ(reports.outstanding(), owed) << seed;
        for (const AgingRow& row : reports.aging()) late += row.amount;
        EXPECT_EQ(late, open) << seed;
        const auto overdue = reports.overdue();
        for (const Document& d : library.documents) {
            const bool listed = std::find(overdue.begin(), overdue.end(), &d) != overdue.end();
            const bool issued = d.kind == DocKind::invoice && d.state == DocState::issued;
            EXPECT_EQ(listed, issued && Books::status(library, d, today) == DocStatus::overdue) << seed;
        }
    }
}

}  // namespace
}  // namespace tamba
