#include "TambaCore/Documents/Standing.h"
#include "tests/support/Books.h"

#include <limits>

namespace tamba {
namespace {

using namespace Books;
using testing::anInvoice;

Document like(DocKind kind, DocState state, std::int64_t paid = 0, bool linked = false) {
    Document document = anInvoice();  // total 590, due on 16 October 2026
    document.kind = kind;
    document.state = state;
    document.payments.clear();
    if (paid) document.payments.push_back(Payment::make({2026, 10, 20}, 0, paid, PaymentMethod::upi));
    if (linked) document.linkedID = UUID::random();
    return document;
}

TEST(Standing, saysHowDocumentsStand) {
    using enum DocKind;
    using enum DocState;
    const Day due{2026, 10, 16};
    const Day late{2026, 11, 1};
    const struct {
        Document document;
        Day today;
        std::string_view title;
    } cases[] = {
        {like(invoice, draft), late, "Draft"},
        {like(invoice, void_), late, "Void"},
        {like(invoice, issued), due, "Sent"},
        {like(invoice, issued), late, "Overdue"},
        {like(invoice, issued, 589), due, "Part paid"},
        {like(invoice, issued, 589), late, "Overdue"},
        {like(invoice, issued, 590), late, "Paid"},
        {like(invoice, issued, 591), late, "Paid"},
        {like(invoice, accepted), late, "Sent"},
        {like(invoice, declined), late, "Sent"},
        {like(estimate, draft), late, "Draft"},
        {like(estimate, issued), due, "Sent"},
        {like(estimate, issued), late, "Expired"},
        {like(estimate, accepted), late, "Accepted"},
        {like(estimate, accepted, 0, true), late, "Converted"},
        {like(estimate, declined), due, "Declined"},
        {like(estimate, void_, 0, true), late, "Void"},
        {like(creditNote, issued, 0, true), late, "Applied"},
        {like(creditNote, void_, 0, true), late, "Void"},
    };
    for (const auto& [document, today, expected] : cases) {
        const Library library;
        EXPECT_EQ(title(status(library, document, today)), expected);
        EXPECT_EQ(title(Standings(library, today).of(document)->status), expected);
    }
}

TEST(Standing, countsIssuedCreditNotes) {
    Library library;
    library.documents.append(like(DocKind::invoice, DocState::issued, 100));
    const Document& invoice = library.documents[0];
    for (const DocState state : {DocState::issued, DocState::draft, DocState::void_}) {
        Document note = like(DocKind::creditNote, state);
        note.lines = {Line::make("Back", 1000, 90, 0)};
        note.linkedID = invoice.id;
        library.documents.append(note);
    }
    Document estimate = like(DocKind::estimate, DocState::accepted);
    estimate.linkedID = invoice.id;
    library.documents.append(estimate);
    const Standing standing = *Standings(library, {2026, 10, 20}).of(library.documents[0]);
    EXPECT_EQ(standing.credited, 90);
    EXPECT_EQ(standing.paid, 100);
    EXPECT_EQ(standing.tds, 100);
    EXPECT_EQ(standing.balance, 590 - 90 - 100);
    EXPECT_EQ(standing.daysLate, 4);
    EXPECT_EQ(balance(library, library.documents[0]), standing.balance);
    EXPECT_EQ(Standings(library, {2026, 10, 20}).of(library.documents[1])->balance, 0) << "a credit note owes nothing";
}

TEST(Standing, leavesOutWhatIsBeyondBelief) {
    Library library;
    library.documents.append(like(DocKind::invoice, DocState::issued));
    const UUID invoice = library.documents[0].id;
    Document note = like(DocKind::creditNote, DocState::issued);
    note.linkedID = invoice;
    note.lines = {Line::make("Back", 1000, maximumAmount, 0)};
    for (int i = 0; i < 10'000; ++i) library.documents.append(note);
    EXPECT_FALSE(Standings(library, {}).of(library.documents[0]));
    EXPECT_LT(balance(library, library.documents[0]), 0);

    Document enormous = like(DocKind::invoice, DocState::issued);
    enormous.lines[0].priceMinor = std::numeric_limits<std::int64_t>::max();
    enormous.payments = {Payment::make({}, std::numeric_limits<std::int64_t>::max(), 1, PaymentMethod::upi)};
    EXPECT_FALSE(Standings(library, {}).of(enormous));
    EXPECT_EQ(balance(library, enormous), 0);
    EXPECT_EQ(status(library, enormous, {}), DocStatus::sent);
}

TEST(Standing, convertsAtTheRateOfTheDocument) {
    const Library library = testing::aBook();
    const struct {
        const char* currency;
        std::int64_t rateMicros, amount;
        std::optional<std::int64_t> home, back;
    } cases[] = {
        {"USD", 83'250'000, 250000, 20812500, 250000},
        {"KWD", 272'500'000, 1000500, 27263625, 1000500},
        {"JPY", 565'000, 150000, 8475000, 150000},
        {"INR", 0, 5, 5, 5},
        {"USD", 0, 5, {}, {}},
        {"USD", maximumAmount, maximumAmount, {}, {}},
        {"USD", 1, maximumAmount, 1'000'000'000, maximumAmount},
    };
    for (const auto& [currency, rateMicros, amount, home, back] : cases) {
        Document document;
        document.currency = currency;
        document.rateMicros = rateMicros;
        EXPECT_EQ(inHomeCurrency(library, document, amount), home) << currency;
        EXPECT_EQ(home ? fromHomeCurrency(library, document, *home) : home, back) << currency;
    }
    Document cheap;
    cheap.currency = "USD";
    cheap.rateMicros = 1;
    EXPECT_EQ(fromHomeCurrency(library, cheap, maximumAmount), std::nullopt);
}

}  // namespace
}  // namespace tamba
