#include "TambaCore/Documents/Categories.h"

#include <gtest/gtest.h>

namespace tamba {
namespace {

Library booksThatUse(const UUID& category, Library library) {
    for (int i = 0; i < 2; ++i) {
        Expense expense = Expense::make({2026, 10, 14});
        expense.categoryID = category;
        library.expenses.append(expense);
    }
    library.recurring.append(RecurringExpense::make(library.expenses[0], Frequency::monthly, {2026, 11, 1}));
    library.rules.append(CategoryRule::make("chai", category, ""));
    return library;
}

TEST(Categories, whatIsFiledUnderOneGoesWhereItIsSent) {
    const Library empty = Library::make();
    const UUID gone = empty.categories[4].id, other = empty.categories[0].id;
    const Library library = booksThatUse(gone, empty);
    EXPECT_EQ(Categories::use(library, gone), (Categories::Use{2, 1, 1}));
    EXPECT_EQ(Categories::use(library, other), Categories::Use());

    const Library moved = Categories::remove(library, gone, other);
    EXPECT_EQ(moved.category(gone), nullptr);
    EXPECT_EQ(Categories::use(moved, other), Categories::use(library, gone));

    const Library unfiled = Categories::remove(library, gone, std::nullopt);
    EXPECT_FALSE(unfiled.expenses[1].categoryID);
    EXPECT_FALSE(unfiled.recurring[0].template_.categoryID);
    EXPECT_TRUE(unfiled.rules.empty());
}

TEST(Categories, nothingIsLostToAMistake) {
    const Library empty = Library::make();
    const UUID category = empty.categories[4].id;
    const Library library = booksThatUse(category, empty);
    EXPECT_EQ(Categories::remove(library, UUID::random(), std::nullopt), library);
    EXPECT_EQ(Categories::remove(library, category, category), library);
    EXPECT_EQ(Categories::remove(library, category, UUID::random()), library);
}

}  // namespace
}  // namespace tamba
