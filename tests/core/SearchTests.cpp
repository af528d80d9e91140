#include "TambaCore/Documents/Search.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Fixtures/Dice.h"
#include "tests/support/Books.h"

#include <gtest/gtest.h>

namespace tamba {
namespace {

using Search::Index;
using Search::Kind;

Library books() {
    Library library = testing::aLibrary();
    library.clients.update(0, [](Client& c) { c.notes = "Pays by cheque", c.email = "asha@saffron.example"; });
    library.documents.update(0, [](Document& d) { d.lines[0] = Line::make("Design", 1000, 3'000'000, 1800); });
    Expense tea = testing::anExpense("चाय की दुकान", {2026, 10, 20});
    tea.ocrText = "Kullhad chai, two cups\n" + std::string(30, 'x') + "\nTable 7  Thank you, come\nagain";
    tea.notes.clear();
    library.expenses.append(tea);
    library.expenses.append(testing::anExpense("CAFÉ NOIR", {2026, 9, 1}));
    library.accounts.append(BankAccount::make("Yen", "JPY"));
    BankTransaction yen = BankTransaction::make({2026, 10, 1}, "WIRE", 64'000);
    yen.accountID = library.accounts.back().id;
    library.transactions.append(yen);
    return library;
}

/// "kind title" of each hit.
std::vector<std::string> titles(const std::vector<Search::Group>& groups) {
    static constexpr const char* names[] = {"expense", "invoice", "estimate", "note",
                                            "client",  "project", "item",     "line"};
    std::vector<std::string> all;
    for (const Search::Group& group : groups)
        for (const Search::Hit& hit : group.hits)
            all.push_back(names[static_cast<int>(group.kind)] + std::string(" ") + hit.title);
    return all;
}

TEST(Search, findsWordsFromTheirBeginningInAnyOrder) {
    const Index index(books());
    using Titles = std::vector<std::string>;
    const Titles invoice{"invoice INV/26-27/001 · Saffron Labs"}, tea{"expense चाय की दुकान"};
    const Titles saffron{invoice[0], "client Saffron Labs", "project Rebrand"};
    struct Case {
        std::string_view words;
        Titles found;
    };
    const Case cases[] = {
        {"", {}},
        {" · ₹ ", {}},
        {"saffron", saffron},
        {"LABS saff", saffron},
        {"affron", {}},
        {"saffron nothing", {}},
        {"35400", invoice},
        {"35,400", invoice},
        {"₹35,400.00", invoice},
        {"35,4", invoice},
        {"5400", {}},
        {"118.00 chai", {"expense Chai Point", tea[0], "line UPI/DR/1/CHAI POINT"}},
        {"inv/26-27/001", invoice},
        {"invoice", {}},
        {"1 labs", invoice},
        {"cheque", {"client Saffron Labs"}},
        {"asha@saffron.example", {"client Saffron Labs"}},
        {"चाय", tea},
        {"चा", tea},
        {"दुकान kullhad", tea},
        {"café", {"expense CAFÉ NOIR"}},
        {"logo", {"item Logo"}},
        {"64,000", {"line WIRE"}},
    };
    for (const Case& each : cases) EXPECT_EQ(titles(index.find(each.words)), each.found) << each.words;
}

TEST(Search, ordersByTitleThenDateAndCountsBeyondTheLimit) {
    Library library = Library::make();
    for (int i = 0; i < 20; ++i) {
        Expense expense = testing::anExpense(i % 2 == 0 ? "Chai Point" : "Uber", Day{2026, 1, 1}.addingDays(i));
        expense.ocrText = "chai";
        library.expenses.append(expense);
    }
    const auto groups = Index(library).find("chai", 12);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].count, 20U);
    ASSERT_EQ(groups[0].hits.size(), 12U);
    EXPECT_EQ(groups[0].hits[0].detail, "₹118.00 · 19 Jan 2026");
    EXPECT_EQ(groups[0].hits[9].detail, "₹118.00 · 1 Jan 2026");
    EXPECT_EQ(groups[0].hits[10].title, "Uber");
    EXPECT_EQ(groups[0].hits[10].detail, "₹118.00 · 20 Jan 2026");
}

TEST(Search, showsTheWordsThatTitleAndDetailDoNot) {
    const Index index(books());
    const auto found = [&](std::string_view words) { return index.find(words)[0].hits[0].found; };
    EXPECT_EQ(found("दुकान 118"), "");
    EXPECT_EQ(found("kullhad"), "Kullhad chai, two cups " + std::string(30, 'x') + " Table 7 …");
    EXPECT_EQ(found("दुकान again"), "… 7 Thank you, come again");
}

TEST(Search, whatIsTakenOverFindsWhatAnIndexOfItsOwnWould) {
    Library library = Fixtures::library({2026, 11, 20});
    Fixtures::Dice dice(7);
    const auto any = [&dice](const auto& list) {
        return static_cast<std::size_t>(dice.below(static_cast<std::int64_t>(list.size())));
    };
    Index index(library);
    for (int round = 0; round < 60; ++round) {
        switch (dice.below(6)) {
            case 0:
                library.expenses.update(any(library.expenses), [](Expense& e) { e.vendor = "Chai Saffron"; });
                break;
            case 1:
                library.expenses.erase(any(library.expenses));
                break;
            case 2:
                library.documents.update(any(library.documents), [](Document& d) { d.notes = "Chai"; });
                break;
            case 3:
                library.transactions.append(BankTransaction::make({2026, 11, 20}, "CHAI POINT", -11800));
                break;
            case 4:
                library.clients.append(Client::make("Chai Traders"));
                break;
            default:
                if (round % 4 == 0) library.clients.update(any(library.clients), [&](Client& c) { c.name += " Chai"; });
        }
        index = Index(library, &index);
        const Index fresh(library);
        for (const std::string_view words : {"chai", "ch", "2", "inv", "saffron"}) {
            const auto here = index.find(words, 500), there = fresh.find(words, 500);
            ASSERT_EQ(here.size(), there.size()) << words;
            for (std::size_t i = 0; i < here.size(); ++i) {
                EXPECT_EQ(here[i].count, there[i].count) << words;
                EXPECT_TRUE(std::is_permutation(here[i].hits.begin(), here[i].hits.end(), there[i].hits.begin(),
                                                there[i].hits.end()))
                    << words;
            }
        }
    }
}

}  // namespace
}  // namespace tamba
