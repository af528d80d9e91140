#include "TambaCore/Model/Conflicts.h"
#include "tests/support/Books.h"

#include <gtest/gtest.h>

namespace tamba {
namespace {

/// Books from which two sides go apart.
struct Apart {
    Library base = Library::make(), ours, theirs;

    Apart() {
        Expense expense = Expense::make({2026, 10, 14});
        expense.vendor = "Chai Point";
        expense.amount = 12'000;
        base.expenses.append(expense);
        base.clients.append(Client::make("Monsoon Tea"));
        Document draft = Document::make(DocKind::invoice, {2026, 10, 1}, {2026, 10, 16});
        draft.clientID = base.clients[0].id;
        base.documents.append(draft);
        ours = theirs = base;
    }
    [[nodiscard]] Merged merged() const { return merge(base, ours, theirs); }
};

TEST(Conflicts, aFieldIsTakenFromTheOtherSide) {
    Apart books;
    books.ours.expenses.update(0, [](Expense& e) { e.amount = 13'000, e.notes = "tea"; });
    books.theirs.expenses.update(0, [](Expense& e) { e.amount = 14'000; });
    books.ours.business.name = "Kagaz";
    books.theirs.business.name = "Kaghaz";
    auto [library, conflicts] = books.merged();
    ASSERT_EQ(conflicts.size(), 2U);
    for (const Conflict& conflict : conflicts) {
        ASSERT_TRUE(Conflicts::isOpen(library, conflict, books.theirs));
        library = Conflicts::taking(std::move(library), conflict, books.theirs);
    }
    EXPECT_EQ(library.business.name, "Kaghaz");
    EXPECT_EQ(library.expenses[0].amount, 14'000);
    EXPECT_EQ(library.expenses[0].notes, "tea");
}

TEST(Conflicts, aRecordGoesOnlyWhereNothingNamesIt) {
    Apart books;
    books.theirs.expenses.erase(0);
    books.ours.expenses.update(0, [](Expense& e) { e.amount = 13'000; });
    books.theirs.clients.erase(0);
    books.ours.clients.update(0, [](Client& c) { c.phone = "98200"; });
    auto [library, conflicts] = books.merged();
    ASSERT_EQ(conflicts.size(), 2U);
    const Conflict& client = conflicts[0].list == "clients" ? conflicts[0] : conflicts[1];
    const Conflict& expense = conflicts[0].list == "clients" ? conflicts[1] : conflicts[0];
    EXPECT_FALSE(Conflicts::isOpen(library, client, books.theirs));
    EXPECT_EQ(Conflicts::taking(library, client, books.theirs), library);
    EXPECT_TRUE(Conflicts::taking(library, expense, books.theirs).expenses.empty());
}

TEST(Conflicts, whatWentToAClientAndLinksAreClosed) {
    Apart books;
    books.ours.documents.update(0, [](Document& d) { d.state = DocState::issued, d.number = "A/1", d.notes = "now"; });
    books.theirs.documents.update(0, [](Document& d) { d.notes = "later"; });
    books.ours.expenses.update(0, [](Expense& e) { e.bankTxnID = UUID::random(); });
    books.theirs.expenses.update(0, [](Expense& e) { e.bankTxnID = UUID::random(); });
    const auto [library, conflicts] = books.merged();
    ASSERT_EQ(conflicts.size(), 2U);
    for (const Conflict& conflict : conflicts) {
        EXPECT_FALSE(Conflicts::isOpen(library, conflict, books.theirs)) << conflict.field;
        EXPECT_EQ(Conflicts::taking(library, conflict, books.theirs), library);
    }
}

}  // namespace
}  // namespace tamba
