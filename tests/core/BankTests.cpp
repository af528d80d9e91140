#include "TambaCore/Bank/Bank.h"
#include "TambaCore/Bank/BankImport.h"

#include <gtest/gtest.h>

namespace tamba {
namespace {

BankTransaction line(Day date, const char* text, std::int64_t amount, const char* reference = "") {
    BankTransaction one = BankTransaction::make(date, text, amount);
    one.reference = reference;
    return one;
}

std::vector<std::string> texts(const Library& library) {
    std::vector<std::string> result;
    for (const BankTransaction& one : library.transactions) result.push_back(one.text);
    return result;
}

TEST(Bank, addsWhatTheBooksDoNotHoldSortedByDate) {
    const UUID account = UUID::random();
    Library books = Library::make();
    books.transactions.append(line({2026, 4, 5}, "Rent, April", -2000000));
    const std::vector<BankTransaction> lines{
        line({2026, 4, 9}, "late", -100),    line({2026, 4, 5}, "RENT APRIL", -2000000),  // punctuation, case: equal
        line({2026, 4, 5}, "b", -100),       line({2026, 4, 5}, "a", -100),
        line({2026, 4, 5}, "a", -100, "R1"), line({2026, 4, 5}, "A!", -100),
        line({2026, 4, 5}, "a", 100),        line({2026, 4, 1}, "early", -100)};
    const auto first = Bank::addTransactions(books, lines, account);
    EXPECT_EQ(first.added, 6);
    EXPECT_EQ(first.skipped, 2);
    EXPECT_EQ(texts(first.library), (std::vector<std::string>{"early", "Rent, April", "b", "a", "a", "a", "late"}));
    EXPECT_EQ(first.library.transactions[0].accountID, account);
    EXPECT_EQ(first.library.transactions[1].accountID, std::nullopt);
    ASSERT_EQ(first.skippedLines.size(), 2u);
    EXPECT_EQ(first.repeated, 1);
    EXPECT_TRUE(!first.skippedLines[0].repeated && first.skippedLines[1].repeated);
    EXPECT_EQ(first.skippedLines[0].equal, books.transactions[0].id);
    EXPECT_EQ(first.skippedLines[1].line.text, "A!");
    EXPECT_EQ(first.skippedLines[1].equal, lines[3].id);

    const auto second = Bank::addTransactions(first.library, lines, std::nullopt);
    EXPECT_EQ(second.added, 0);
    EXPECT_EQ(second.skipped, 8);
    EXPECT_EQ(second.library, first.library);

    const Library twice = Bank::addAnyway(second.library, first.skippedLines[1].line, account);
    EXPECT_EQ(texts(twice), (std::vector<std::string>{"early", "Rent, April", "b", "a", "a", "a", "A!", "late"}));
}

TEST(BankImport, readsDates) {
    using enum DateOrder;
    const struct {
        const char* text;
        DateOrder order;
        const char* day;
    } cases[] = {
        {"2026-04-01", dmy, "2026-04-01"},
        {"2026-04-01T10:00:00Z", mdy, "2026-04-01"},
        {"03/04/2025", dmy, "2025-04-03"},
        {"03/04/2025", mdy, "2025-03-04"},
        {"03/04/25 19:40", dmy, "2025-04-03"},
        {"26/10/14", ymd, "2026-10-14"},
        {"01-08-26", dmy, "2026-08-01"},  // as year-month-day it would be the year 1
        {"1 Apr 2026", mdy, "2026-04-01"},
        {"01-APR-26", dmy, "2026-04-01"},
        {"1st August 2026", dmy, "2026-08-01"},
        {"Aug 29, 2026", dmy, "2026-08-29"},
        {"Sept 3, 2026", dmy, "2026-09-03"},
        {"SAT 01/08/2026 (value 02/08/2026)", dmy, "2026-08-01"},
        {"2026/04/01", mdy, "2026-04-01"},
        {"31/02/2026", dmy, ""},
        {"13/13/2026", mdy, ""},
        {"2026-02-30", dmy, ""},
        {"41/02/20267", dmy, ""},
        {"", dmy, ""},
        {"tomorrow", dmy, ""},
    };
    for (const auto& one : cases) {
        const auto day = BankImport::parseDate(one.text, one.order);
        EXPECT_EQ(day ? day->iso() : "", one.day) << one.text;
    }
}

TEST(BankImport, readsAnAmountOnlyWhenTheWholeCellIsOne) {
    struct Case {
        const char* cell;
        std::optional<std::int64_t> minor;
    };
    const Case cases[] = {
        {"1,23,456.78", 12345678},
        {"-500", -50000},
        {"\u2212500", -50000},
        {"(1,234.50)", -123450},
        {"500 DR", -50000},
        {"500.00Dr.", -50000},
        {"(500) DR", -50000},
        {"1,500.00(Cr)", 150000},
        {"20 C", 2000},
        {"Rs.1,855.26", 185526},
        {"Rs. 500", 50000},
        {"-£10.99", -1099},
        {"£-10.99", -1099},
        {"₹ 2,000", 200000},
        {"2000 INR", 200000},
        {"1'234.50", 123450},
        {"1 234,56", 123456},
        {"1.234,50", 123450},
        {"12,5", 1250},
        {"500-", -50000},
        {"+1,000", 100000},
        {".5", 50},
        {"5.", 500},
        {"0.125", 13},
        {"10000000000000.00", 1'000'000'000'000'000},
        {"10000000000000.01", std::nullopt},
        {"123456789012345678901234567890", std::nullopt},
        {"1,2,3", std::nullopt},
        {"1,2345.00", std::nullopt},
        {"1.2.3", std::nullopt},
        {"500 600", std::nullopt},
        {"UPI/412345678901", std::nullopt},
        {"500 paid", std::nullopt},
        {"--5", std::nullopt},
        {"12:30", std::nullopt},
        {"5%", std::nullopt},
        {"1.234", std::nullopt},  // 1234 or 1.23
        {"٥٠٠", std::nullopt},
        {"-", std::nullopt},
        {"", std::nullopt},
    };
    for (const Case& one : cases) {
        // A second line, so that the table has one; it says nothing about decimal marks.
        const std::string text = "Date;Text;Amount\n1/4/2026;a;-1\n1/4/2026;b;" + std::string(one.cell) + "\n";
        const auto parsed = BankImport::csv(text, DateOrder::dmy, Currency::inr());
        std::optional<std::int64_t> minor;
        if (parsed.transactions.size() == 2) minor = parsed.transactions[1].amount;
        EXPECT_EQ(minor, one.minor) << one.cell;
    }
}

const char* const ofHand = "Wann,Was,Betrag\n18/03/2026,Tea,20.00\n19/03/2026,Rent,500.00\n";

TEST(BankImport, takesColumnsThatAPersonChose) {
    using BankImport::Role;
    const auto table = BankImport::table(ofHand, "a.csv");
    ASSERT_TRUE(table);
    EXPECT_THROW((void)BankImport::recognise(*table), BankImport::ImportError);

    BankImport::Columns columns;
    EXPECT_THROW((void)BankImport::interpret(*table, columns, DateOrder::dmy, Currency::inr()),
                 BankImport::ImportError);
    columns.header = 0;
    columns[Role::date] = 0;
    columns[Role::description] = 1;
    columns[Role::amount] = 2;
    auto parsed = BankImport::interpret(*table, columns, DateOrder::dmy, Currency::inr());
    EXPECT_EQ(parsed.transactions.at(1).amount, 50000);
    EXPECT_EQ(parsed.notes.size(), 1u);
    columns.signs = BankImport::Columns::Signs::turned;
    parsed = BankImport::interpret(*table, columns, DateOrder::dmy, Currency::inr());
    EXPECT_EQ(parsed.transactions.at(1).amount, -50000);
    EXPECT_EQ(parsed.rows, (std::vector<std::size_t>{2, 3}));

    // Without a header all rows are data; places beyond a row are blank.
    columns.header.reset();
    columns[Role::balance] = 9;
    EXPECT_EQ(BankImport::interpret(*table, columns, DateOrder::dmy, Currency::inr()).skipped, 1);
}

TEST(BankImport, knowsALayoutAgain) {
    const auto key = [](const char* text) {
        const auto table = BankImport::table(text, "a.csv");
        return BankImport::layoutKey(*table, BankImport::recognise(*table));
    };
    const std::string one = key("Bank\nTxn Date,Narration,Dr / Cr,Amount\n18/03/2026,Tea,DR,20.00\n");
    EXPECT_EQ(key("Other month\n\nTxn  date,NARRATION,Dr/Cr,amount\n18/04/2026,Tea,CR,90.00\n"), one);
    EXPECT_NE(key("Txn Date,Narration,Amount\n18/03/2026,Tea,20.00\n"), one);
}

TEST(BankImport, saysWhichRowsWereSkippedAndHowColumnsWereRead) {
    using BankImport::Role;
    const auto parsed = BankImport::csv(
        "A/c,1\n\nTxn Date,Value "
        "Date,Narration,Amount,Balance\n13/04/2026,12/04/2026,Tea,-20,80\n31/4/2026,,Bad,-1,79\n"
        "14/04/2026,,Rent,-50,29\n",
        DateOrder::dmy, Currency::inr());
    EXPECT_EQ(parsed.headerRow, 3u);
    EXPECT_EQ(parsed.columns[Role::date], 0u);
    EXPECT_EQ(parsed.rows, (std::vector<std::size_t>{4, 6}));
    ASSERT_EQ(parsed.skippedRows.size(), 1u);
    EXPECT_EQ(parsed.skippedRows[0].row, 5u);
    EXPECT_EQ(parsed.skippedRows[0].cells[2], "Bad");
    EXPECT_EQ(parsed.skippedRows[0].reason, "“31/4/2026” is no day when read as day, month, year.");
    ASSERT_EQ(parsed.balanceBreaks.size(), 1u);
    EXPECT_EQ(parsed.balanceBreaks[0].row, 6u);
    EXPECT_EQ(parsed.balanceBreaks[0].expected, 3000);
    EXPECT_EQ(parsed.balanceBreaks[0].found, 2900);
    EXPECT_EQ(parsed.balanceProof->opening, 10000);
    EXPECT_FALSE(parsed.balanceProof->closes());
}

}  // namespace
}  // namespace tamba
