#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Documents/DocumentCheck.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Rebilling.h"
#include "TambaCore/Documents/Recurring.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Model/Changes.h"
#include "TambaCore/Model/ModelsJSON.h"
#include "tests/support/Books.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

namespace tamba {
namespace {

using Faults = std::vector<std::string>;

/// Somebody who does whatever comes to mind, the same for the same seed.
class Somebody {
public:
    explicit Somebody(unsigned seed) : dice_(seed) {}

    Library worksOn(Library library, int steps) {
        for (int i = 0; i < steps; ++i) {
            try {
                library = step(library);
            } catch (const BooksError&) {
                ++refusals;
            }
        }
        return library;
    }
    int refusals = 0;

private:
    int upTo(int most) { return std::uniform_int_distribution(0, most)(dice_); }
    Day day() { return Day{2026, 4, 1}.addingDays(upTo(500)); }
    template <class T>
    const T& one(const List<T>& list) {
        return list[static_cast<std::size_t>(upTo(static_cast<int>(list.size()) - 1))];
    }
    Line line() { return Line::make("Work", upTo(5000), upTo(99'999), upTo(1) * 1800); }

    /// A document of that kind, or of any when there is none.
    const Document& document(const Library& library, DocKind kind) {
        for (int tries = 0; tries < 8; ++tries)
            if (const Document& found = one(library.documents); found.kind == kind) return found;
        return one(library.documents);
    }

    Library step(const Library& library) {
        const int choice = library.documents.empty() ? 0 : upTo(19);
        switch (choice) {
            case 0:
            case 1: {
                const DocKind kind = upTo(2) == 0 ? DocKind::estimate : DocKind::invoice;
                Document draft = Books::newDocument(library, kind, one(library.clients).id, day());
                for (int n = upTo(3); n >= 0; --n) draft.lines.push_back(line());
                return Books::addDraft(library, draft);
            }
            case 2:
                return Books::replaceDraft(library, edited(library, document(library, DocKind::invoice)));
            case 3:
            case 4:
            case 5:
            case 6: {
                const Document& draft = one(library.documents);
                return Books::issue(library, draft.id, std::max(draft.issueDate, day()));
            }
            case 7:
                return Books::voidDocument(library, one(library.documents).id, "Wrong");
            case 8:
            case 9:
            case 10: {
                const Document& invoice = document(library, DocKind::invoice);
                const std::int64_t due = Books::balance(library, invoice);
                const std::int64_t amount = upTo(1) ? due : due / 3 + upTo(3);
                return Books::recordPayment(library, invoice.id,
                                            Payment::make(invoice.issueDate.addingDays(upTo(40) - 2), amount,
                                                          upTo(2) * amount / 9, PaymentMethod::bank));
            }
            case 11: {
                const Document& invoice = document(library, DocKind::invoice);
                if (invoice.payments.empty()) return library;
                return Books::removePayment(library, invoice.id, invoice.payments.front().id);
            }
            case 12:
            case 13: {
                Document note = Books::creditNoteFor(library, document(library, DocKind::invoice).id, day());
                if (upTo(1)) note.lines.resize(1);
                if (upTo(1)) note.lines[0].qtyMilli /= 2;
                return Books::addDraft(library, note);
            }
            case 14:
                return upTo(1) ? Books::acceptEstimate(library, document(library, DocKind::estimate).id)
                               : Books::declineEstimate(library, document(library, DocKind::estimate).id);
            case 15: {
                const UUID estimate = document(library, DocKind::estimate).id;
                return Books::convertEstimate(library, estimate, Books::invoiceFrom(library, estimate, day()));
            }
            case 16:
                return Books::deleteDraft(library, one(library.documents).id);
            case 17:
                return Books::addDraft(library, Books::duplicateOf(library, one(library.documents).id, day()));
            case 18:
                return spending(library);
            default:
                return Recurring::addDue(library, day(), Instant{}).library;
        }
    }

    /// With expenses billed on, or with a line less.
    Document edited(const Library& library, Document draft) {
        if (upTo(2) == 0 && draft.lines.size() > 1) {
            draft.lines.erase(draft.lines.begin() + upTo(static_cast<int>(draft.lines.size()) - 1));
            return draft;
        }
        const auto candidates = Rebilling::candidates(library, draft);
        if (candidates.empty()) return draft;
        return Rebilling::withExpenses(
            library, draft, {candidates[static_cast<std::size_t>(upTo(static_cast<int>(candidates.size()) - 1))]->id});
    }

    Library spending(const Library& library) {
        if (library.expenses.size() > 3 && upTo(4) == 0) return Expenses::remove(library, one(library.expenses).id);
        if (library.expenses.size() > 3 && upTo(6) == 0)
            return Recurring::repeat(library, one(library.expenses).id, Frequency::monthly);
        Expense expense = testing::anExpense("Cab", day());
        expense.attachments.clear();
        expense.billable = true;
        return Expenses::add(library, expense);
    }

    std::mt19937 dice_;
};

Library someBooks() {
    Library library = testing::aBook();
    library.rates.append({"USD", 83'250'000, {2026, 4, 1}, {}});
    Client abroad = Client::make("Bluebottle");
    abroad.country = "US";
    abroad.currency = "USD";
    library.clients.append(abroad);
    Expense expense = testing::anExpense();
    expense.attachments.clear();
    expense.billable = true;
    return Expenses::add(library, expense);
}

/// Marks of expenses at odds with the lines that bill them.
void addBillingFaults(Faults& faults, const Library& library) {
    std::map<UUID, std::set<UUID>> invoices;
    for (const Document& document : library.documents)
        if (document.kind == DocKind::invoice && document.state != DocState::void_)
            for (const Line& line : document.lines)
                if (line.expenseID) invoices[*line.expenseID].insert(document.id);
    for (const Expense& expense : library.expenses) {
        const auto& billed = invoices[expense.id];
        if (expense.rebilledInvoiceID ? !billed.contains(*expense.rebilledInvoiceID) : !billed.empty())
            faults.push_back("an expense’s mark and the lines disagree");
    }
}

Faults faultsOf(const Library& library) {
    Faults faults;
    for (const auto& problem : LibraryCheck::check(library, LibraryStore("/nonexistent")).problems)
        faults.push_back(problem.sentence);
    for (const auto& problem : DocumentCheck::problems(library)) faults.push_back(problem.sentence);
    addBillingFaults(faults, library);
    std::map<std::string, std::set<int>> counters;
    for (const Document& document : library.documents) {
        if (document.number.has_value() == (document.state == DocState::draft)) faults.push_back("number and state");
        if (!document.number) continue;
        const std::size_t slash = document.number->rfind('/');
        counters[document.number->substr(0, slash)].insert(std::stoi(document.number->substr(slash + 1)));
        const std::int64_t total = DocMath::totals(document).total, balance = Books::balance(library, document);
        if (balance > total) faults.push_back("a balance above the total");
        if (balance < 0 && Books::credits(library, document.id) == 0) faults.push_back("a refund without a credit");
    }
    for (const auto& [period, used] : counters)
        if (*used.begin() != 1 || *used.rbegin() != static_cast<int>(used.size()))
            faults.push_back("a gap in " + period);
    if (ModelsJSON::decode(ModelsJSON::encode(library)) != library) faults.push_back("JSON changes the books");
    return faults;
}

TEST(RandomBooks, keepTheirRulesWhateverSomebodyDoes) {
    int refusals = 0;
    std::size_t issued = 0;
    for (unsigned seed = 1; seed <= 60; ++seed) {
        Somebody somebody(seed);
        Library library = someBooks();
        for (int i = 0; i < 12; ++i) {
            library = somebody.worksOn(std::move(library), 10);
            ASSERT_EQ(faultsOf(library), Faults{}) << "seed " << seed << ", step " << i * 10 + 10;
        }
        refusals += somebody.refusals;
        for (const Document& document : library.documents) issued += document.number ? 1 : 0;
    }
    EXPECT_GT(refusals, 500) << "the steps are too tame to refuse any";
    EXPECT_GT(issued, 500U);
}

/// What was there on one side, new or still there on the other, too, and is gone.
template <class Key>
Faults lost(const std::set<Key>& base, const std::set<Key>& ours, const std::set<Key>& theirs,
            const std::set<Key>& merged, const char* what) {
    Faults faults;
    for (const auto& [one, other] : {std::pair{&ours, &theirs}, {&theirs, &ours}})
        for (const Key& key : *one)
            if ((!base.contains(key) || other->contains(key)) && !merged.contains(key)) faults.push_back(what);
    return faults;
}

std::set<UUID> payments(const Library& library) {
    std::set<UUID> ids;
    for (const Document& document : library.documents)
        for (const Payment& payment : document.payments) ids.insert(payment.id);
    return ids;
}
std::set<std::string> numbers(const Library& library) {
    std::set<std::string> all;
    for (const Document& document : library.documents)
        if (document.number) all.insert(*document.number);
    return all;
}

TEST(RandomBooks, loseNothingWhenTwoMachinesMeet) {
    for (unsigned seed = 1; seed <= 150; ++seed) {
        const Library base = Somebody(seed).worksOn(someBooks(), 60);
        const Library ours = Somebody(seed + 1000).worksOn(base, 25), theirs = Somebody(seed + 2000).worksOn(base, 25);
        const Library merged = merge(base, ours, theirs).library;
        Faults faults = lost(payments(base), payments(ours), payments(theirs), payments(merged), "a payment");
        for (auto& fault : lost(numbers(base), numbers(ours), numbers(theirs), numbers(merged), "a number"))
            faults.push_back(fault);
        addBillingFaults(faults, merged);
        for (const auto& problem : DocumentCheck::problems(merged))
            if (problem.kind == LibraryCheck::Kind::voidSettled) faults.push_back(problem.sentence);
        for (const auto& problem : LibraryCheck::check(merged, LibraryStore("/nonexistent")).problems)
            if (problem.kind != LibraryCheck::Kind::duplicateNumber) faults.push_back(problem.sentence);
        ASSERT_EQ(faults, Faults{}) << "seed " << seed;
    }
}

}  // namespace
}  // namespace tamba
