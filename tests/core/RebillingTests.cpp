#include "TambaCore/Documents/Rebilling.h"
#include "tests/support/Books.h"
#include "tests/support/Refusal.h"

namespace tamba {
namespace {

using testing::aLibrary;
using testing::anExpense;

struct RebillingTest : ::testing::Test {
    Library library = [] {
        Library books = aLibrary();
        books.expenses = {};
        return books;
    }();
    Document draft = [this] {
        Document document = Document::make(DocKind::invoice, {2026, 11, 1}, {2026, 11, 16});
        document.clientID = library.clients[0].id;
        return document;
    }();

    UUID spent(std::string vendor, Day day, const std::function<void(Expense&)>& change = [](Expense&) {}) {
        Expense expense = anExpense(std::move(vendor), day);  // ₹118.00, of which ₹18.00 tax claimed back
        expense.billable = true;
        change(expense);
        library.expenses.append(expense);
        return expense.id;
    }
    std::optional<BooksError::Code> refusal(const Document& document, const UUID& expense) {
        return testing::refusal<BooksError>([&] { return Rebilling::withExpenses(library, document, {expense}); });
    }
};

TEST_F(RebillingTest, offersTheClientsCostsFirstThenThoseOfNobody) {
    const UUID client = library.clients[0].id, other = UUID::random();
    draft.lines.push_back(Line::make("Design", 1000, 100, 1800));
    spent("Nobody's, early", {2026, 10, 1});
    spent("Late", {2026, 10, 9}, [&](Expense& e) { e.clientID = client; });
    spent("Early", {2026, 10, 2}, [&](Expense& e) { e.clientID = client; });
    spent("Taken off this draft", {2026, 10, 3}, [&](Expense& e) { e.rebilledInvoiceID = draft.id; });
    spent("Another's", {2026, 10, 1}, [&](Expense& e) { e.clientID = other; });
    spent("Billed", {2026, 10, 1}, [&](Expense& e) { e.rebilledInvoiceID = other; });
    spent("Not billable", {2026, 10, 1}, [](Expense& e) { e.billable = false; });
    spent("Refund", {2026, 10, 1}, [](Expense& e) { e.amount = e.tax = -100; });
    spent("Beyond belief", {2026, 10, 1}, [](Expense& e) { e.amount = std::numeric_limits<std::int64_t>::min(); });
    draft.lines[0].expenseID = spent("On the draft", {2026, 10, 1});
    const auto offered = [&] {
        std::vector<std::string> vendors;
        for (const Expense* expense : Rebilling::candidates(library, draft)) vendors.push_back(expense->vendor);
        return vendors;
    };
    EXPECT_THAT(offered(), ::testing::ElementsAre("Early", "Late", "Nobody's, early", "Taken off this draft"));
    draft.clientID.reset();
    EXPECT_THAT(offered(), ::testing::ElementsAre("Nobody's, early", "Taken off this draft"));
    draft.kind = DocKind::estimate;
    EXPECT_TRUE(offered().empty());
}

TEST_F(RebillingTest, billsTheCostInTheDraftsCurrency) {
    library.business.homeCurrency = "INR";
    const struct {
        const char* currency;
        std::int64_t rateMicros;
        bool claimTax;
        const char* draftCurrency;
        std::int64_t draftRate, price;
        const char* detail;
    } cases[] = {
        {"INR", 1'000'000, true, "INR", 1'000'000, 10'000, "14 Oct 2026"},
        {"INR", 1'000'000, false, "INR", 1'000'000, 11'800, "14 Oct 2026"},
        {"USD", 83'250'000, false, "INR", 1'000'000, 982'350, "14 Oct 2026 · USD 118.00"},
        {"USD", 83'250'000, false, "USD", 90'000'000, 11'800, "14 Oct 2026"},
        {"USD", 0, false, "USD", 0, 11'800, "14 Oct 2026"},
        {"INR", 1'000'000, true, "USD", 83'250'000, 120, "14 Oct 2026 · INR 100.00"},
        {"INR", 1'000'000, true, "JPY", 565'000, 177, "14 Oct 2026 · INR 100.00"},
    };
    for (const auto& c : cases) {
        const UUID id = spent("Vaayu Air", {2026, 10, 14}, [&](Expense& e) {
            e.currency = c.currency;
            e.rateMicros = c.rateMicros;
            e.claimTax = c.claimTax;
        });
        draft.currency = c.draftCurrency;
        draft.rateMicros = c.draftRate;
        draft.lines = {Line::make("Design", 1000, 100, 500)};
        draft.lines[0].hsn = "998391";
        const Document billed = Rebilling::withExpenses(library, draft, {id, UUID::random(), id});
        ASSERT_EQ(billed.lines.size(), 2U);
        const Line& line = billed.lines[1];
        EXPECT_EQ(line.name, "Vaayu Air");
        EXPECT_EQ(line.detail, c.detail);
        EXPECT_EQ(line.priceMinor, c.price) << c.currency << " for " << c.draftCurrency;
        EXPECT_EQ(line.qtyMilli, 1000);
        EXPECT_EQ(line.taxBP, 500);
        EXPECT_EQ(line.hsn, "998391");
        EXPECT_EQ(line.expenseID, id);
    }
    draft.currency = "INR";
    draft.lines = {};
    const UUID drive = spent("Pune – Mulshi", {2026, 10, 14}, [](Expense& e) {
        e.kind = ExpenseKind::mileage;
        e.distanceMilli = 88'400;
    });
    const Line line = Rebilling::withExpenses(library, draft, {drive}).lines[0];
    EXPECT_EQ(line.detail, "14 Oct 2026 · 88.4 km");
    EXPECT_EQ(line.taxBP, 1800) << "of the business, on a draft without lines";
    library.business.regime = TaxRegime::none;
    EXPECT_EQ(Rebilling::withExpenses(library, draft, {drive}).lines[0].taxBP, 0);
}

TEST_F(RebillingTest, refusesWhatCannotBeBilled) {
    using enum BooksError::Code;
    const UUID good = spent("Vaayu Air", {2026, 10, 14});
    const UUID unrated = spent("x", {2026, 10, 14}, [](Expense& e) {
        e.currency = "USD";
        e.rateMicros = 0;
    });
    const UUID vast = spent("x", {2026, 10, 14}, [](Expense& e) {
        e.currency = "USD";
        e.amount = e.rateMicros = maximumAmount;
    });
    const UUID refund = spent("x", {2026, 10, 14}, [](Expense& e) { e.amount = -5; });
    EXPECT_EQ(refusal(draft, good), std::nullopt);
    EXPECT_EQ(refusal(draft, unrated), missingRate);
    EXPECT_EQ(refusal(draft, vast), figures);
    EXPECT_EQ(refusal(draft, refund), figures);
    Document other = draft;
    other.currency = "USD";
    other.rateMicros = 0;
    EXPECT_EQ(refusal(other, good), missingRate);
    other = draft;
    other.state = DocState::issued;
    EXPECT_EQ(refusal(other, good), notDraft);
    other = draft;
    other.kind = DocKind::creditNote;
    EXPECT_EQ(refusal(other, good), notInvoice);
}

TEST_F(RebillingTest, whatTwoMachinesBilledStaysOnTheOtherInvoice) {
    const UUID twice = spent("Vaayu Air", {2026, 10, 14});
    Document other = Rebilling::withExpenses(library, draft, {twice});
    other.id = UUID::random();
    library = Books::addDraft(std::move(library), Rebilling::withExpenses(library, draft, {twice}));
    library.documents.append(other);
    Document without = draft;
    without.lines.clear();
    EXPECT_EQ(Books::replaceDraft(library, without).expenses[0].rebilledInvoiceID, other.id);
    EXPECT_EQ(Books::deleteDraft(library, draft.id).expenses[0].rebilledInvoiceID, other.id);
    EXPECT_EQ(Books::deleteDraft(library, other.id).expenses[0].rebilledInvoiceID, draft.id);
}

}  // namespace
}  // namespace tamba
