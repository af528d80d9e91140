#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Model/Changes.h"
#include "TambaCore/Model/ModelsJSON.h"
#include "tests/support/Books.h"

#include <rapidcheck/gtest.h>

#include <set>
#include <string>

namespace tamba {
namespace {

using testing::aLibrary;
using testing::anExpense;

void rename(Library& library, std::size_t index, const char* vendor) {
    library.expenses.update(index, [&](Expense& e) { e.vendor = vendor; });
}

TEST(Changes, nameWhatWasAddedRemovedAndAltered) {
    Library before = aLibrary();
    for (int i = 0; i < 50; ++i) before.expenses.append(anExpense("v" + std::to_string(i)));
    Library after = before;
    EXPECT_TRUE(Changes::between(before, after).empty());

    rename(after, 3, "other");
    const UUID gone = after.expenses[10].id;
    after.expenses.erase(10);
    after.expenses.append(anExpense("new"));
    after.business.name = "x";
    after.rates.append({"EUR", 1, {2026, 1, 1}, {}});
    const Changes changes = Changes::between(before, after);
    EXPECT_EQ(changes.expenses.altered, std::vector{before.expenses[3].id});
    EXPECT_EQ(changes.expenses.removed, std::vector{gone});
    EXPECT_EQ(changes.expenses.added, std::vector{after.expenses.back().id});
    EXPECT_TRUE(changes.business && changes.other && changes.clients.empty());

    const Library reread = ModelsJSON::decode(ModelsJSON::encode(before));
    EXPECT_TRUE(Changes::between(before, reread).empty()) << "equal records need not be the same objects";
}

TEST(Merge, takesWhatOnlyOneSideChanged) {
    Library base = aLibrary();
    base.expenses.append(anExpense("two"));
    base.expenses.append(anExpense("three"));
    Library ours = base;
    Library theirs = base;
    rename(ours, 0, "ours");
    ours.expenses.append(anExpense("added here"));
    ours.expenses.erase(1);
    rename(theirs, 2, "theirs");
    theirs.expenses.append(anExpense("added there"));
    theirs.business.upiID = "studio@okaxis";
    ours.business.phone = "98";
    const Merged merged = merge(base, ours, theirs);
    EXPECT_TRUE(merged.conflicts.empty());
    std::vector<std::string> vendors;
    for (const Expense& e : merged.library.expenses) vendors.push_back(e.vendor);
    EXPECT_EQ(vendors, (std::vector<std::string>{"ours", "theirs", "added here", "added there"}));
    EXPECT_EQ(merged.library.business.upiID, "studio@okaxis");
    EXPECT_EQ(merged.library.business.phone, "98");
}

TEST(Merge, joinsFieldsOfOneRecordAndNamesThoseBothChanged) {
    const Library base = aLibrary();
    Library ours = base;
    Library theirs = base;
    ours.expenses.update(0, [](Expense& e) { e.vendor = "Chai", e.notes = "ours"; });
    theirs.expenses.update(0, [](Expense& e) { e.amount = 5, e.notes = "theirs"; });
    ours.series.update(0, [](NumberSeries& s) { s.next["26-27"] = 5; });
    theirs.series.update(0, [](NumberSeries& s) { s.next["26-27"] = 9, s.next["27-28"] = 2; });
    const Merged merged = merge(base, ours, theirs);
    EXPECT_EQ(merged.library.expenses[0].vendor, "Chai");
    EXPECT_EQ(merged.library.expenses[0].amount, 5);
    EXPECT_EQ(merged.library.expenses[0].notes, "ours");
    EXPECT_EQ(merged.conflicts,
              (std::vector<Conflict>{{"expenses", base.expenses[0].id.text(), "notes", "\"ours\"", "\"theirs\""}}));
    EXPECT_EQ(merged.library.series[0].next, (std::map<std::string, std::int64_t>{{"26-27", 9}, {"27-28", 2}}))
        << "no number is given twice";
}

TEST(Merge, keepsWhatOneSideRemovedAndTheOtherChanged) {
    const Library base = aLibrary();
    Library changed = base;
    Library removed = base;
    rename(changed, 0, "changed");
    removed.expenses.erase(0);
    for (const auto& [ours, theirs] : {std::pair{&changed, &removed}, {&removed, &changed}}) {
        const Merged merged = merge(base, *ours, *theirs);
        ASSERT_EQ(merged.library.expenses.size(), 1u);
        EXPECT_EQ(merged.library.expenses[0].vendor, "changed");
        EXPECT_EQ(merged.conflicts.size(), 1u);
    }
}

TEST(Merge, anOlderCopyTakesNoNumberedDocumentBack) {
    Library base = aLibrary();
    ASSERT_TRUE(base.documents[0].number);
    Library without = base, draft = base;
    without.documents.erase(0);
    draft.documents.update(0, [](Document& document) {
        document.state = DocState::draft;
        document.number.reset();
    });
    Library ours = base;
    ours.documents.update(0, [](Document& document) { document.notes = "ours"; });
    for (const auto* mine : {&base, &ours})
        for (const auto* older : {&without, &draft}) EXPECT_EQ(merge(base, *mine, *older).library, *mine);
}

TEST(Merge, keepsWhatOneSideDeletedAndTheOtherPutToUse) {
    Library base = Library::make();
    base.expenses.append(anExpense("Chai"));
    base.clients.append(Client::make("Client"));
    base.projects.append(Project::make("Project", base.clients[0].id));
    Library deleted = base, used = base;
    deleted.projects = {};
    deleted.clients = {};
    used.expenses.update(0, [&base](Expense& expense) { expense.projectID = base.projects[0].id; });
    for (const auto& [ours, theirs] : {std::pair{&deleted, &used}, {&used, &deleted}}) {
        const Library merged = merge(base, *ours, *theirs).library;
        EXPECT_EQ(merged.projects, base.projects);
        EXPECT_EQ(merged.clients, base.clients) << "the project’s";
    }
}

TEST(Merge, losesNoPaymentThatBothSidesRecordedOnOneInvoice) {
    const Library base = aLibrary();
    Library ours = base;
    Library theirs = base;
    const auto pay = [](Library& library, std::int64_t amount) {
        library.documents.update(
            0, [&](Document& d) { d.payments.push_back(Payment::make({2026, 11, 1}, amount, 0, PaymentMethod::upi)); });
    };
    pay(ours, 1);
    pay(theirs, 2);
    const auto amounts = [](const Library& library) {
        std::vector<std::int64_t> result;
        for (const Payment& payment : library.documents[0].payments) result.push_back(payment.amount);
        return result;
    };
    Merged merged = merge(base, ours, theirs);
    EXPECT_EQ(amounts(merged.library), (std::vector<std::int64_t>{400, 1, 2}));
    EXPECT_TRUE(merged.conflicts.empty());

    ours.documents.update(0, [](Document& d) { d.payments[0].tds = 5; });
    theirs.documents.update(0, [](Document& d) { d.payments[0].tds = 6; });
    merged = merge(base, ours, theirs);
    EXPECT_EQ(amounts(merged.library), (std::vector<std::int64_t>{400, 1, 2}));
    EXPECT_EQ(merged.library.documents[0].payments[0].tds, 5);
    ASSERT_EQ(merged.conflicts.size(), 1u);
    EXPECT_EQ(merged.conflicts[0].field, "payments");
}

TEST(Merge, mixesNoEditsIntoWhatWasIssued) {
    Library base = testing::aBook();
    const Document draft = testing::aDraft(base, DocKind::invoice, {Line::make("Design", 1000, 100, 0)});
    base = Books::addDraft(std::move(base), draft);
    const Library edited = [&] {
        Document changed = draft;
        changed.lines[0].priceMinor = 999;
        return Books::replaceDraft(base, changed);
    }();
    const Library issued = Books::issue(base, draft.id, {2026, 10, 15});
    for (const auto& [ours, theirs] : {std::pair{&edited, &issued}, {&issued, &edited}}) {
        const Merged merged = merge(base, *ours, *theirs);
        EXPECT_EQ(merged.library.documents, issued.documents);
        ASSERT_EQ(merged.conflicts.size(), 1u);
        EXPECT_EQ(merged.conflicts[0].field, "lines");
        EXPECT_EQ(merged.conflicts[0].keptTheirs, theirs == &issued);
    }
    // Issued on both sides: two papers, and the day that equals the draft's own is news like the other.
    const Library later = Books::issue(edited, draft.id, {2026, 10, 20});
    for (const bool firstIsOurs : {true, false}) {
        const Merged merged = firstIsOurs ? merge(base, issued, later) : merge(base, later, issued);
        EXPECT_EQ(merged.library.documents, (firstIsOurs ? issued : later).documents);
        std::set<std::string> told;
        for (const Conflict& conflict : merged.conflicts) told.insert(conflict.field);
        EXPECT_EQ(told, (std::set<std::string>{"dueDate", "issueDate", "lines"}));
    }
}

TEST(Merge, keepsBothDocumentsThatGotOneNumber) {
    const Library base = testing::aBook();
    const auto issuing = [&] {
        Library side = base;
        (void)testing::issued(side, testing::aDraft(side, DocKind::invoice, {Line::make("Design", 1000, 100, 0)}));
        return side;
    };
    Library merged = merge(base, issuing(), issuing()).library;
    ASSERT_EQ(merged.documents.size(), 2u);
    EXPECT_EQ(merged.documents[0].number, merged.documents[1].number);
    merged = Books::voidDocument(std::move(merged), merged.documents[1].id, "Number given twice");
    const Document again = Books::duplicateOf(merged, merged.documents[1].id, {2026, 10, 15});
    merged = Books::issue(Books::addDraft(std::move(merged), again), again.id, {2026, 10, 15});
    EXPECT_EQ(merged.document(again.id)->number, "INV/26-27/002");
}

TEST(Merge, anOlderCopyPaysTheDocumentThatHasItsNumber) {
    Library base = testing::aBook();
    const Document draft = testing::aDraft(base, DocKind::invoice, {Line::make("Design", 1000, 100, 0)});
    const Document first = testing::aDraft(base, DocKind::invoice, {Line::make("Print", 1000, 100, 0)});
    base = Books::addDraft(Books::addDraft(std::move(base), draft), first);
    const Library theirs = Books::issue(base, draft.id, {2026, 10, 15});
    const Library ours = Books::issue(Books::issue(base, first.id, {2026, 10, 15}), draft.id, {2026, 10, 15});
    const Library met = merge(base, ours, theirs).library;
    const Library paid =
        Books::recordPayment(theirs, draft.id, Payment::make({2026, 10, 20}, 50, 0, PaymentMethod::upi));
    for (const Library* known : {&theirs, &met}) {
        const Library again = merge(*known, met, paid).library;
        ASSERT_EQ(again.documents.size(), 3u);
        EXPECT_EQ(again.document(draft.id)->number, "INV/26-27/002");
        EXPECT_TRUE(again.document(draft.id)->payments.empty());
        const Document* other = again.document(UUID::derived(draft.id, "INV/26-27/001"));
        ASSERT_TRUE(other);
        EXPECT_EQ(other->payments.size(), 1u);
        EXPECT_EQ(merge(paid, again, paid).library, again);
    }
}

/// What one side did to each expense of the base; those beyond it are new.
struct Side {
    std::vector<int> done;
    Library apply(const Library& base, const std::vector<UUID>& ids, const char* name) const {
        Library library = base;
        library.expenses = {};
        for (std::size_t i = 0; i < ids.size(); ++i) {
            const Expense* old = find(base.expenses, ids[i]);
            Expense expense = old ? *old : Expense{};
            expense.id = ids[i];
            switch (done[i]) {
                case 0:  // left alone
                    if (old) library.expenses.append(expense);
                    break;
                case 1:  // removed, or never added
                    break;
                case 2:
                    expense.vendor = name;
                    library.expenses.append(expense);
                    break;
                default:
                    expense.notes = name;
                    library.expenses.append(expense);
            }
        }
        return library;
    }
};

RC_GTEST_PROP(Merge, losesNothingAndBringsNothingBack, ()) {
    constexpr std::size_t most = 12;
    std::vector<UUID> ids(most);
    for (std::size_t i = 0; i < most; ++i) ids[i].bytes[0] = static_cast<std::uint8_t>(i + 1);
    const auto steps = rc::gen::container<std::vector<int>>(most, rc::gen::inRange(0, 4));
    Library base;
    for (std::size_t i = 0; i < most / 2; ++i) {
        Expense expense;
        expense.id = ids[i];
        expense.vendor = expense.notes = "base";
        base.expenses.append(expense);
    }
    const Side here{*steps}, there{*steps};
    const Library ours = here.apply(base, ids, "ours"), theirs = there.apply(base, ids, "theirs");
    const Merged merged = merge(base, ours, theirs);

    std::size_t expected = 0, decided = 0;
    for (std::size_t i = 0; i < most; ++i) {
        const Expense* old = find(base.expenses, ids[i]);
        const Expense *mine = find(ours.expenses, ids[i]), *other = find(theirs.expenses, ids[i]);
        const Expense* result = find(merged.library.expenses, ids[i]);
        const bool changedHere = mine && (!old || *mine != *old), changedThere = other && (!old || *other != *old);
        const bool stays = changedHere || changedThere || (mine && other);
        RC_ASSERT(stays == (result != nullptr));
        if (!stays) continue;
        ++expected;
        for (const auto field : {&Expense::vendor, &Expense::notes}) {
            const std::string before = old ? old->*field : "";
            const std::string here = mine ? mine->*field : before, there = other ? other->*field : before;
            const std::string& kept = result->*field;
            RC_ASSERT(kept == (here != before ? here : there));
            decided += here != before && there != before && here != there ? 1 : 0;
        }
        decided += old && ((changedHere && !other) || (changedThere && !mine)) ? 1 : 0;
    }
    RC_ASSERT(merged.library.expenses.size() == expected);
    RC_ASSERT(merged.conflicts.size() == decided);
    RC_ASSERT(merge(base, ours, base).library == ours);
    RC_ASSERT(merge(base, base, theirs).library == theirs);
    RC_ASSERT(merge(theirs, merged.library, theirs).library == merged.library);
}

TEST(Merge, leavesBankLinesAndWhatTheyPaidNamingEachOther) {
    Library base = aLibrary();
    const UUID chai = base.expenses[0].id, line = base.transactions[0].id;
    base.expenses.append(anExpense());
    base.transactions.append(BankTransaction::make({2026, 10, 15}, "UPI/DR/2/CHAI POINT", -11800));
    const UUID other = base.expenses[1].id, later = base.transactions[1].id;
    const auto matched = [](const Library& library, const UUID& one, const UUID& expense) {
        return Bank::matchToExpense(library, one, expense);
    };
    const Library none = base, both = matched(base, line, chai);
    Library renamed = both;
    renamed.expenses.update(0, [](Expense& e) { e.vendor = "Chai"; });
    const struct {
        const char* what;
        Library base, ours, theirs;
        std::vector<std::pair<UUID, UUID>> links;
    } cases[] = {
        {"one line, two expenses", none, both, matched(none, line, other), {{line, chai}}},
        {"one expense, two lines", none, both, matched(none, later, chai), {{line, chai}}},
        {"set aside there", none, both, Bank::setIgnored(none, line, true), {{line, chai}}},
        {"removed here, renamed there", both, Expenses::remove(both, chai), renamed, {{line, chai}}},
        {"freed here, renamed there", both, Bank::unmatch(both, line), renamed, {}},
    };
    for (const auto& [what, before, ours, theirs, links] : cases) {
        const Library merged = merge(before, ours, theirs).library;
        std::vector<std::pair<UUID, UUID>> byLine, byExpense;
        for (const BankTransaction& each : merged.transactions) {
            if (each.expenseID) byLine.emplace_back(each.id, *each.expenseID);
            EXPECT_FALSE(each.ignored && each.isMatched()) << what;
        }
        for (const Expense& each : merged.expenses)
            if (each.bankTxnID) byExpense.emplace_back(*each.bankTxnID, each.id);
        EXPECT_EQ(byLine, links) << what;
        EXPECT_EQ(byExpense, links) << what;
    }
}

TEST(Merge, keepsBankLinesInDateOrder) {
    Library base = aLibrary();
    Library ours = base;
    Library theirs = base;
    ours.transactions.append(BankTransaction::make({2026, 12, 1}, "late", 1));
    theirs.transactions.append(BankTransaction::make({2026, 11, 1}, "early", 1));
    const Merged merged = merge(base, ours, theirs);
    EXPECT_EQ(merged.library.transactions[1].text, "early");
    EXPECT_EQ(merged.library.transactions[2].text, "late");
}

}  // namespace
}  // namespace tamba
