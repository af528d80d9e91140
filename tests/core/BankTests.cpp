#include "TambaCore/Bank/Bank.h"
#include "TambaCore/Bank/BankImport.h"
#include "TambaCore/Model/Fields.h"
#include "tests/support/Cases.h"

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
    for (const auto& row : testing::casesOf(TEST_DATA "/banks/dates.tsv")) {
        const auto day = BankImport::parseDate(row.at(0), *fromWord<DateOrder>(row.at(1)));
        EXPECT_EQ(day ? day->iso() : "none", row.at(2)) << row[0];
    }
}

TEST(BankImport, namesTheOtherSideAsAPersonReadsIt) {
    for (const auto& row : testing::casesOf(TEST_DATA "/banks/payees.tsv")) {
        const std::string payee = BankImport::cleanVendor(row.at(0));
        EXPECT_EQ(payee.empty() ? "none" : payee, row.at(1)) << row[0];
    }
}

TEST(BankImport, readsAnAmountOnlyWhenTheWholeCellIsOne) {
    for (const auto& row : testing::casesOf(TEST_DATA "/banks/amounts.tsv")) {
        // A second line, so that the table has one; it says nothing about decimal marks.
        const std::string text = "Date;Text;Amount\n1/4/2026;a;-1\n1/4/2026;b;" + row.at(0) + "\n";
        const auto parsed = BankImport::csv(text, DateOrder::dmy, Currency::inr());
        std::optional<std::int64_t> minor;
        if (parsed.transactions.size() == 2) minor = parsed.transactions[1].amount;
        EXPECT_EQ(minor, testing::numberOf(row.at(1))) << row[0];
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
