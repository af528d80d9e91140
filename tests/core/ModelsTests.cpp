#include "TambaCore/Model/Models.h"

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

}  // namespace
}  // namespace tamba
