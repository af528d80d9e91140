#include "TambaCore/Documents/DocumentCheck.h"
#include "TambaCore/Model/Changes.h"
#include "tests/support/Books.h"

#include <gtest/gtest.h>

namespace tamba {
namespace {

using LibraryCheck::Kind;
constexpr Day today{2026, 10, 14};

struct Meeting {
    Library base = testing::aBook();
    UUID invoice =
        testing::issued(base, testing::aDraft(base, DocKind::invoice, {Line::make("Work", 1000, 10'000, 1800)}));

    /// The books after two people who know `base` have met.
    template <class Ours, class Theirs>
    Merged of(Ours ours, Theirs theirs) const {
        return merge(base, ours(base), theirs(base));
    }
};

Library paid(const Library& library, const UUID& invoice, std::int64_t amount) {
    return Books::recordPayment(library, invoice, Payment::make(today, amount, 0, PaymentMethod::upi));
}
Library credited(Library library, const UUID& invoice) {
    testing::issued(library, Books::creditNoteFor(library, invoice, today));
    return library;
}

std::vector<Kind> kinds(const Library& library) {
    std::vector<Kind> result;
    for (const auto& problem : DocumentCheck::problems(library)) result.push_back(problem.kind);
    return result;
}

TEST(DocumentCheck, anInvoiceVoidedHereAndPaidOrCreditedThereStands) {
    const Meeting meeting;
    const auto voids = [&](const Library& l) { return Books::voidDocument(l, meeting.invoice, "Wrong client"); };
    const auto pays = [&](const Library& l) { return paid(l, meeting.invoice, 5'000); };
    const auto credits = [&](const Library& l) { return credited(l, meeting.invoice); };
    for (const Merged& merged : {meeting.of(voids, pays), meeting.of(pays, voids), meeting.of(voids, credits)}) {
        const Document& invoice = *merged.library.document(meeting.invoice);
        EXPECT_EQ(invoice.state, DocState::issued);
        EXPECT_EQ(invoice.reason, "");
        ASSERT_EQ(merged.conflicts.size(), 1U);
        EXPECT_EQ(merged.conflicts[0].field, "state");
        EXPECT_EQ(kinds(merged.library), std::vector<Kind>{});
    }
    EXPECT_TRUE(meeting.of(voids, pays).conflicts[0].keptTheirs);
    EXPECT_FALSE(meeting.of(pays, voids).conflicts[0].keptTheirs);
}

TEST(DocumentCheck, namesWhatIsSettledTwice) {
    const Meeting meeting;
    const auto pays = [&](const Library& l) { return paid(l, meeting.invoice, 11'800); };
    const auto credits = [&](const Library& l) { return credited(l, meeting.invoice); };
    const Library paidTwice = meeting.of(pays, pays).library;
    EXPECT_EQ(kinds(paidTwice), std::vector{Kind::overSettled});
    EXPECT_EQ(
        DocumentCheck::problems(paidTwice)[0].sentence,
        "More was paid on the invoice “INV/26-27/001” than it comes to. Look whether a payment is recorded twice.");
    EXPECT_EQ(kinds(meeting.of(credits, credits).library), std::vector{Kind::overSettled});
    EXPECT_EQ(kinds(meeting.of(pays, credits).library), std::vector<Kind>{}) << "a refund is due";
}

TEST(DocumentCheck, namesAnExpenseOnTwoInvoices) {
    Meeting meeting;
    meeting.base.expenses.append(testing::anExpense("Cab"));
    const auto bills = [&](const Library& l) {
        Line line = Line::make("Cab", 1000, 11'800, 1800);
        line.expenseID = meeting.base.expenses[0].id;
        return Books::addDraft(l, testing::aDraft(l, DocKind::invoice, {line}));
    };
    EXPECT_EQ(kinds(meeting.of(bills, bills).library), std::vector{Kind::billedTwice});
}

TEST(DocumentCheck, namesPaymentsAndCreditNotesOfVoidInvoices) {
    Meeting meeting;
    Library books = credited(paid(meeting.base, meeting.invoice, 5'000), meeting.invoice);
    books.documents.update(0, [](Document& invoice) { invoice.state = DocState::void_; });
    EXPECT_EQ(kinds(books), (std::vector{Kind::voidSettled, Kind::voidSettled}));
}

}  // namespace
}  // namespace tamba
