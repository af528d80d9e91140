#include "TambaCore/Model/Models.h"
#include "tests/support/Books.h"

#include <gtest/gtest.h>

namespace tamba {
namespace {

TEST(BankTransaction, isTheSameLineWhateverItsSpacingCaseAndBalance) {
    BankTransaction line = BankTransaction::make({2026, 10, 4}, "UPI/DR/123/CHAI-POINT @ हिन्दी", -11'800);
    line.reference = "R 1";
    EXPECT_EQ(line.fingerprint(), "2026-10-04|-11800|upidr123chaipointहिन्दी|R 1");
    BankTransaction again = line;
    again.text = "upi dr 123 chai point हिन्दी";
    again.balance = 5;
    EXPECT_EQ(again.fingerprint(), line.fingerprint());
    again.text = std::string(30, '-') + std::string(45, 'x');
    EXPECT_EQ(again.fingerprint(), "2026-10-04|-11800|" + std::string(40, 'x') + "|R 1") << "filtered first, then cut";
}

TEST(BankTransaction, isOpenUntilItIsMatchedOrSetAside) {
    BankTransaction line = BankTransaction::make({2026, 10, 4}, "x", 1);
    EXPECT_TRUE(line.isOpen());
    line.ignored = true;
    EXPECT_FALSE(line.isOpen() || line.isMatched());
    line.ignored = false;
    line.paymentID = UUID::random();
    EXPECT_TRUE(line.isMatched() && !line.isOpen());
}

TEST(Library, findsTheFinancialYearAndTheRateOfADay) {
    Library library = testing::aLibrary();
    EXPECT_EQ(library.fy({2027, 3, 31}).startYear, 2026);
    EXPECT_EQ(library.fy({2027, 4, 1}).startYear, 2027);
    EXPECT_EQ(library.rate("INR"), 1'000'000);
    EXPECT_EQ(library.rate("USD"), 83'250'000);
    EXPECT_EQ(library.rate("EUR"), std::nullopt);
}

TEST(Expense, costsItsAmountLessTheTaxClaimedBack) {
    Expense expense = testing::anExpense();
    EXPECT_EQ(expense.cost(), 10'000);
    expense.claimTax = false;
    EXPECT_EQ(expense.cost(), 11'800);
}

}  // namespace
}  // namespace tamba
