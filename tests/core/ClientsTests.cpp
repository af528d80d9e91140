#include "TambaCore/Documents/Clients.h"
#include "tests/support/Books.h"

namespace tamba {
namespace {

using testing::aLibrary;
using testing::anExpense;
using testing::anInvoice;

TEST(Clients, areNotRemovedWhileOthersReferToThem) {
    Library library = aLibrary();
    const UUID client = library.clients[0].id, project = library.projects[0].id;
    EXPECT_EQ(Clients::usesOfClient(library, client), "1 project");
    library.documents.update(0, [&](Document& d) { d.clientID = client; });
    library.documents.append(library.documents[0]);
    Document note = anInvoice();
    note.kind = DocKind::creditNote;
    note.clientID = client;
    library.documents.append(note);
    library.expenses.update(0, [&](Expense& e) { e.projectID = project; });
    library.recurring.update(0, [&](RecurringExpense& r) {
        r.template_.clientID = client;
        r.template_.projectID = project;
    });
    EXPECT_EQ(Clients::usesOfClient(library, client), "2 invoices, 1 credit note, 1 project and 1 recurring expense");
    EXPECT_EQ(Clients::usesOfProject(library, project), "1 expense and 1 recurring expense");
    for (const bool isClient : {true, false}) {
        try {
            (void)(isClient ? Clients::removeClient(library, client) : Clients::removeProject(library, project));
            ADD_FAILURE() << isClient;
        } catch (const BooksError& error) {
            EXPECT_EQ(error.code(), BooksError::Code::inUse);
            EXPECT_STREQ(error.what(),
                         isClient ? "“Saffron Labs” is on 2 invoices, 1 credit note, 1 project and 1 recurring "
                                    "expense. Archive it instead: it keeps its history and is offered for nothing new."
                                  : "“Rebrand” is on 1 expense and 1 recurring expense. Archive it instead: it keeps "
                                    "its history and is offered for nothing new.");
        }
    }
    library = Clients::setProjectArchived(Clients::setClientArchived(library, client, true), project, true);
    EXPECT_TRUE(library.clients[0].archived && library.projects[0].archived);
    EXPECT_EQ(Clients::setClientArchived(library, UUID::random(), false), library);

    library = aLibrary();
    library = Clients::removeClient(Clients::removeProject(library, library.projects[0].id), library.clients[0].id);
    EXPECT_TRUE(library.clients.empty() && library.projects.empty());
    EXPECT_EQ(Clients::removeClient(library, client), library);
}

TEST(Clients, tellWhatIsWrongWithATaxNumber) {
    const struct {
        const char *taxID, *state, *country;
        const char* problem;
    } cases[] = {
        {"27AAPFU0939F1ZV", "27", "IN", nullptr},
        {"27aapfu0939f1zv ", "", "", nullptr},
        {" ", "27", "IN", nullptr},
        {"27AAPFU0939F1ZW", "27", "US", nullptr},
        {"27AAPFU0939F1ZW", "27", "IN", "The last character doesn’t match. Check for a typo."},
        {"27AAPFU0939", "27", "IN", "A GSTIN has 15 characters."},
        {"27AAPFU0939F1ZV", "7", "IN", "This GSTIN is of 27 · Maharashtra, the address says 07 · Delhi."},
        {"27AAPFU0939F1ZV", "98", "IN", nullptr},
    };
    for (const auto& [taxID, state, country, problem] : cases) {
        Client client = Client::make("x");
        client.taxID = taxID;
        if (*state) client.stateCode = state;
        client.country = country;
        EXPECT_EQ(Clients::taxIDProblem(client), problem ? std::optional<std::string>(problem) : std::nullopt) << taxID;
    }
}

/// An invoice of 1,000.00 without tax.
Document invoiceTo(const UUID& client, Day date, std::vector<Payment> payments = {}) {
    Document invoice = anInvoice();
    invoice.clientID = client;
    invoice.issueDate = date;
    invoice.dueDate = date.addingDays(10);
    invoice.lines = {Line::make("Design", 1000, 100'000, 0)};
    invoice.payments = std::move(payments);
    return invoice;
}

TEST(Clients, accountsTellWhatIsOwedAndHowTheyPay) {
    Library library = aLibrary();
    const UUID saffron = library.clients[0].id, dollar = UUID::random(), quiet = UUID::random();
    const auto paid = [](Day day, std::int64_t amount, std::int64_t tds = 0) {
        return Payment::make(day, amount, tds, PaymentMethod::bank);
    };
    Document draft = invoiceTo(quiet, {2026, 10, 1});
    draft.state = DocState::draft;
    Document accepted = invoiceTo(saffron, {2026, 10, 31});
    accepted.state = DocState::accepted;
    Document note = invoiceTo(saffron, {2026, 10, 5});
    note.kind = DocKind::creditNote;
    note.lines[0].priceMinor = 30'000;
    const Document overdue = invoiceTo(saffron, {2026, 9, 1}, {paid({2026, 9, 5}, 20'000)});
    note.linkedID = overdue.id;
    Document abroad = invoiceTo(dollar, {2026, 10, 20});
    abroad.currency = "USD";
    abroad.rateMicros = 83'250'000;
    Document unrated = abroad, absurd = invoiceTo(dollar, {2026, 10, 21}), vast = absurd;
    unrated.rateMicros = 0;
    absurd.lines[0].priceMinor = maximumAmount + 1;
    vast.lines[0].priceMinor = maximumAmount;
    library.documents = {
        draft,
        accepted,
        note,
        overdue,
        invoiceTo(saffron, {2026, 10, 1}, {paid({2026, 10, 8}, 50'000), paid({2026, 10, 21}, 40'000, 10'000)}),
        invoiceTo(saffron, {2026, 8, 1}, {paid({2026, 8, 2}, 100'000)}),
        invoiceTo(saffron, {2026, 10, 30}),
        abroad,
        unrated,
        absurd,
        vast};
    const auto accounts = Clients::accounts(library, {2026, 11, 1});
    ASSERT_EQ(accounts.size(), 3U);
    const Clients::Account& of = accounts.at(saffron);
    EXPECT_EQ(of.invoiced, 370'000);
    EXPECT_EQ(of.received, 220'000);
    EXPECT_EQ(of.owed, 150'000);
    EXPECT_EQ(of.overdue, 50'000);
    EXPECT_EQ(of.invoices, 4U);
    EXPECT_EQ(of.leftOut, 0U);
    EXPECT_EQ(of.lastInvoice, (Day{2026, 10, 30}));
    EXPECT_EQ(of.daysLate, 1) << "10 days late and 9 days early";
    const Clients::Account& dollars = accounts.at(dollar);
    EXPECT_EQ(dollars.owed, 8'325'000);
    EXPECT_EQ(dollars.leftOut, 3U) << "what would pass belief together with the rest is left out as well";
    EXPECT_EQ(dollars.daysLate, std::nullopt);
    EXPECT_EQ(accounts.at(quiet).invoices, 0U);
}

}  // namespace
}  // namespace tamba
