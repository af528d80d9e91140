#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Numbering.h"
#include "TambaCore/Documents/Standing.h"
#include "tests/support/Books.h"
#include "tests/support/Refusal.h"

#include <functional>

namespace tamba {
namespace {

using namespace Books;
using testing::aBook;
using testing::aDraft;
using testing::anExpense;
using testing::issued;
using testing::refusal;
using Code = BooksError::Code;

const Day day{2026, 10, 14};

Line work(std::int64_t priceMinor, int taxBP = 1800, std::int64_t qtyMilli = 1000) {
    return Line::make("Design", qtyMilli, priceMinor, taxBP);
}

Payment payment(std::int64_t amount, std::int64_t tds = 0, Day date = {2026, 10, 20}) {
    return Payment::make(date, amount, tds, PaymentMethod::bank);
}

/// Books with a document in every state that operations ask for.
struct Desk {
    Library library = aBook();
    UUID draft, invoice, credited, voided, estimate, converted, note, expense;

    Desk() {
        library.expenses.append(anExpense());
        expense = library.expenses[0].id;
        Document first = aDraft(library, DocKind::invoice, {work(100000)});
        draft = first.id;
        library = addDraft(std::move(library), first);
        Document billing = aDraft(library, DocKind::invoice, {work(100)});
        billing.lines[0].expenseID = expense;
        library = addDraft(std::move(library), billing);
        invoice = issued(library, aDraft(library, DocKind::invoice, {work(10000000)}));
        library = recordPayment(std::move(library), invoice, payment(100));
        credited = issued(library, aDraft(library, DocKind::invoice, {work(100000)}));
        note = issued(library, creditNoteFor(library, credited, day));
        voided = issued(library, aDraft(library, DocKind::invoice, {work(100000)}));
        library = voidDocument(std::move(library), voided, "Wrong client");
        estimate = issued(library, aDraft(library, DocKind::estimate, {work(100000)}));
        converted = issued(library, aDraft(library, DocKind::estimate, {work(100000)}));
        library = convertEstimate(std::move(library), converted, invoiceFrom(library, converted, day));
    }
    Document changedDraft(const std::function<void(Document&)>& change) const {
        Document changed = *library.document(draft);
        change(changed);
        return changed;
    }
};

TEST(Books, refuseWhatCannotBe) {
    const Desk desk;
    const auto replacing = [&](const std::function<void(Document&)>& change) {
        return [&desk, change](Library l) { return replaceDraft(std::move(l), desk.changedDraft(change)); };
    };
    const auto paying = [&](const UUID& id, const Payment& paid) {
        return [id, paid](Library l) { return recordPayment(std::move(l), id, paid); };
    };
    const auto issuing = [&](const std::function<void(Document&)>& change) {
        return [&desk, change](Library l) {
            l = replaceDraft(std::move(l), desk.changedDraft(change));
            return issue(std::move(l), desk.draft, day);
        };
    };
    const auto crediting = [&](const UUID& id) {
        return [id](Library l) { return addDraft(std::move(l), creditNoteFor(l, id, day)); };
    };
    constexpr std::int64_t beyond = maximumAmount + 1;
    const struct {
        const char* what;
        Code code;
        std::function<Library(Library)> operation;
    } cases[] = {
        {"deleting an issued one", Code::issuedCannotDelete, [&](Library l) { return deleteDraft(l, desk.voided); }},
        {"issuing twice", Code::notDraft, [&](Library l) { return issue(l, desk.invoice, day); }},
        {"changing an issued one", Code::notDraft,
         [&](Library l) { return replaceDraft(l, *l.document(desk.invoice)); }},
        {"adding what was issued elsewhere", Code::notDraft,
         [&](Library l) { return addDraft(l, testing::anInvoice()); }},
        {"a draft that takes an issued one's place", Code::notDraft,
         replacing([&](Document& d) { d.id = desk.invoice; })},
        {"negative quantity", Code::figures, replacing([](Document& d) { d.lines[0].qtyMilli = -1; })},
        {"enormous price", Code::figures, replacing([](Document& d) { d.lines[0].priceMinor = beyond; })},
        {"enormous product", Code::figures, replacing([](Document& d) { d.lines[0].qtyMilli = maximumAmount; })},
        {"enormous sum", Code::figures,
         replacing([](Document& d) { d.lines.assign(2, work(maximumAmount / 2 + 1, 0)); })},
        {"discount above all", Code::figures, replacing([](Document& d) { d.lines[0].discountBP = 10'001; })},
        {"tax above all", Code::figures, replacing([](Document& d) { d.lines[0].taxBP = 10'001; })},
        {"enormous rate", Code::figures, replacing([](Document& d) { d.currency = "USD", d.rateMicros = beyond; })},
        {"due before issue", Code::dueBeforeIssue, replacing([](Document& d) { d.dueDate = day.addingDays(-1); })},
        {"an expense of another invoice", Code::alreadyBilled,
         replacing([&](Document& d) { d.lines[0].expenseID = desk.expense; })},
        {"nobody to bill", Code::noClient, issuing([](Document& d) { d.clientID.reset(); })},
        {"a client who is gone", Code::noClient, issuing([](Document& d) { d.clientID = UUID::random(); })},
        {"nothing to bill", Code::noLines, issuing([](Document& d) { d.lines.clear(); })},
        {"less than a paisa", Code::noLines, issuing([](Document& d) { d.lines[0] = work(1, 1800, 499); })},
        {"no exchange rate", Code::missingRate, issuing([](Document& d) { d.currency = "USD", d.rateMicros = 0; })},
        {"paying a draft", Code::notIssued, paying(desk.draft, payment(1))},
        {"paying a void one", Code::notIssued, paying(desk.voided, payment(1))},
        {"paying an estimate", Code::notInvoice, paying(desk.estimate, payment(1))},
        {"paying a paisa too much", Code::overpaid, paying(desk.invoice, payment(11800000 - 100 - 4, 5))},
        {"paying what was credited", Code::overpaid, paying(desk.credited, payment(1))},
        {"paying nothing", Code::badPayment, paying(desk.invoice, payment(0, 0))},
        {"paying less than nothing", Code::badPayment, paying(desk.invoice, payment(-1, 5))},
        {"deducting less than nothing", Code::badPayment, paying(desk.invoice, payment(5, -1))},
        {"paying beyond belief", Code::badPayment, paying(desk.invoice, payment(beyond))},
        {"paying too early", Code::paidBeforeIssue, paying(desk.invoice, payment(1, 0, day.addingDays(-1)))},
        {"voiding a draft", Code::notIssued, [&](Library l) { return voidDocument(l, desk.draft, ""); }},
        {"voiding twice", Code::alreadyVoid, [&](Library l) { return voidDocument(l, desk.voided, ""); }},
        {"voiding what was paid", Code::hasPayments, [&](Library l) { return voidDocument(l, desk.invoice, ""); }},
        {"voiding what was credited", Code::hasCreditNotes,
         [&](Library l) { return voidDocument(l, desk.credited, ""); }},
        {"crediting a draft", Code::notIssued, crediting(desk.draft)},
        {"crediting an estimate", Code::notInvoice, crediting(desk.estimate)},
        {"crediting all twice", Code::creditExceeds, crediting(desk.credited)},
        {"accepting an invoice", Code::notEstimate, [&](Library l) { return acceptEstimate(l, desk.invoice); }},
        {"declining what was converted", Code::alreadyConverted,
         [&](Library l) { return declineEstimate(l, desk.converted); }},
        {"converting twice", Code::alreadyConverted,
         [&](Library l) { return addDraft(l, invoiceFrom(l, desk.converted, day)); }},
        {"sending a draft", Code::notIssued, [&](Library l) { return markSent(l, desk.draft, day); }},
    };
    for (const auto& [what, code, operation] : cases) {
        const Library before = desk.library;
        EXPECT_EQ(refusal<BooksError>([&] { return operation(before); }), code) << what;
        EXPECT_EQ(before, desk.library) << what;
    }
    EXPECT_STREQ(BooksError(Code::creditExceeds).what(),
                 "A credit note can’t be more than what’s left on the invoice.");
    EXPECT_STREQ(BooksError(Code::numberTooLong, "A").what(),
                 "“A” is longer than the 16 characters GST allows. Shorten the series pattern in Settings.");
    EXPECT_STREQ(BooksError(Code::missingRate, "USD").what(),
                 "Add the exchange rate from USD to your home currency first.");
}

TEST(Books, refuseToIssueInTheOrderPeopleMend) {
    Library library = aBook();
    library.business.taxID = " ";
    library.series = {};
    Document draft = aDraft(library, DocKind::invoice, {});
    draft.clientID.reset();
    draft.currency = "USD";
    draft.dueDate = day.addingDays(-1);
    library.documents.append(draft);
    const auto mend = [&](const std::function<void(Document&)>& change) { library.documents.update(0, change); };
    const auto next = [&] { return refusal<BooksError>([&] { return issue(library, draft.id, {2026, 11, 1}); }); };
    EXPECT_EQ(next(), Code::noClient);
    mend([&](Document& d) { d.clientID = library.clients[0].id; });
    EXPECT_EQ(next(), Code::noLines);
    mend([](Document& d) { d.lines = {work(-5000)}; });
    EXPECT_EQ(next(), Code::figures);
    mend([](Document& d) { d.lines = {work(5000)}; });
    EXPECT_EQ(next(), Code::dueBeforeIssue);
    library.expenses.append(anExpense());
    library.expenses.update(0, [](Expense& e) { e.rebilledInvoiceID = UUID::random(); });
    mend(
        [&](Document& d) { d.dueDate = d.issueDate, d.rateMicros = 0, d.lines[0].expenseID = library.expenses[0].id; });
    EXPECT_EQ(next(), Code::alreadyBilled);
    mend([](Document& d) { d.lines[0].expenseID.reset(); });
    EXPECT_EQ(next(), Code::missingRate);
    mend([](Document& d) { d.rateMicros = 1; });
    EXPECT_EQ(next(), Code::noGSTIN);
    library.business.regime = TaxRegime::none;
    EXPECT_EQ(next(), Code::noSeries);
    library.series.append({UUID::random(), DocKind::invoice, "Invoices", "INVOICE/{FY}/{###}", {}, {}});
    EXPECT_EQ(next(), Code::numberTooLong);
    EXPECT_TRUE(library.series[0].next.empty());
    EXPECT_EQ(library.documents[0].state, DocState::draft);
    library.series.update(0, [](NumberSeries& series) { series.pattern = "INVOICES/{FY}/{##}"; });
    EXPECT_EQ(next(), Code::numberTooLong) << "17 characters";
    library.series.update(0, [](NumberSeries& series) { series.pattern = "INVOICE/{FY}/{##}"; });
    EXPECT_EQ(next(), std::nullopt) << "16 characters";
}

TEST(Books, leaveNoGapInTheNumbers) {
    Library library = aBook();
    const auto drafted = [&] { return aDraft(library, DocKind::invoice, {work(100000)}); };
    const UUID first = issued(library, drafted());
    EXPECT_EQ(library.document(first)->number, "INV/26-27/001");
    EXPECT_EQ(library.document(first)->billTo->name, "Saffron Labs");
    EXPECT_EQ(library.document(first)->seller->taxID, library.business.taxID);
    const Document note = creditNoteFor(library, first, day);
    library = addDraft(std::move(library), note);
    library = voidDocument(std::move(library), first, "Typing error");
    EXPECT_EQ(refusal<BooksError>([&] { return issue(library, note.id, day); }), Code::notIssued);
    const Document gone = drafted();
    library = deleteDraft(addDraft(std::move(library), gone), gone.id);
    EXPECT_EQ(library.document(issued(library, drafted()))->number, "INV/26-27/002");
    Document later = drafted();
    later.number = "INV/26-27/999";
    later.rateMicros = 5;
    library = addDraft(std::move(library), later);
    EXPECT_FALSE(library.document(later.id)->number);
    EXPECT_EQ(library.document(later.id)->rateMicros, 1'000'000);
    library = issue(std::move(library), later.id, {2027, 4, 1});
    EXPECT_EQ(library.document(later.id)->number, "INV/27-28/001");
    EXPECT_EQ(library.document(later.id)->dueDate, (Day{2027, 4, 16})) << "the due date keeps its distance";
    EXPECT_EQ(library.document(issued(library, drafted()))->number, "INV/26-27/003");
    EXPECT_EQ(library.series[0].next, (std::map<std::string, std::int64_t>{{"26-27", 4}, {"27-28", 2}}));
    EXPECT_EQ(library.document(first)->reason, "Typing error");
    EXPECT_EQ(issue(library, UUID::random(), day), library) << "an id that is not there";
}

TEST(Books, areSettledByPaymentsAndTaxDeducted) {
    Library library = aBook();
    const UUID id = issued(library, aDraft(library, DocKind::invoice, {work(10000000)}));
    const Document invoice = *library.document(id);
    EXPECT_EQ(suggestedTDS(invoice, 11800000, 1000), 1000000);
    EXPECT_EQ(suggestedTDS(invoice, 5900000, 1000), 500000);
    EXPECT_EQ(suggestedTDS(invoice, 59'050, 1000), 5000) << "50.04 rupees";
    EXPECT_EQ(suggestedTDS(invoice, maximumAmount, 10), 10000);
    EXPECT_EQ(suggestedTDS(invoice, 0, 1000) + suggestedTDS(invoice, 1, -1), 0);
    for (const auto& [received, tds] : {std::pair{10800000, 1000000}, {5400000, 500000}, {1, 0}, {0, 0}, {-5, 0}})
        EXPECT_EQ(tdsBeside(library, invoice, received, 1000), tds) << received;
    // 10 % of 12,345 is 1,234.50 and rounds up; from what was left of the 14,567.10 alone it would round down.
    const UUID odd = issued(library, aDraft(library, DocKind::invoice, {work(1234500)}));
    EXPECT_EQ(tdsBeside(library, *library.document(odd), 1456710 - 123500, 1000), 123500);

    Payment half = payment(5400000, 500000, day);
    library = recordPayment(std::move(library), id, half);
    EXPECT_EQ(balance(library, *library.document(id)), 5900000);
    BankTransaction line = BankTransaction::make(half.date, "NEFT", 5400000);
    line.invoiceID = id;
    line.paymentID = half.id;
    library.transactions.append(line);
    library = recordPayment(std::move(library), id, payment(5400000, 500000));
    EXPECT_EQ(status(library, *library.document(id), day), DocStatus::paid);
    library = removePayment(std::move(library), id, half.id);
    EXPECT_EQ(balance(library, *library.document(id)), 5900000);
    EXPECT_TRUE(library.transactions[0].isOpen());
}

TEST(Books, creditAnInvoiceToItsLastPaisaBeforeTax) {
    Library library = aBook();
    library.business.roundTotals = true;
    library.clients.update(0, [](Client& c) { c.taxID.clear(), c.stateCode = "29"; });
    Line days = work(240000, 1800, 12500);
    days.discountBP = 1000;
    const UUID invoice = issued(library, aDraft(library, DocKind::invoice, {days, work(49950, 500, 3000)}));
    library.clients.update(0, [](Client& c) { c.name = "Saffron Works", c.stateCode = "27"; });

    const auto half = [&] {
        Document note = creditNoteFor(library, invoice, day);
        note.lines = {work(1350000), work(74925, 500)};
        return note;
    };
    const UUID first = issued(library, half());
    EXPECT_EQ(totals(library, *library.document(first)).total, 1671700);
    EXPECT_EQ(library.document(first)->supply, SupplyType::interState) << "as on the invoice";
    EXPECT_EQ(library.document(first)->billTo->name, "Saffron Labs") << "as on the invoice";
    EXPECT_EQ(library.document(first)->number, "CN/26-27/001");

    Document rest = creditNoteFor(library, invoice, day);
    ASSERT_EQ(rest.lines.size(), 2u);
    EXPECT_EQ(rest.lines[0].priceMinor, 74925);
    EXPECT_EQ(rest.lines[1].priceMinor, 1350000);
    rest.lines[0].priceMinor += 1;
    EXPECT_EQ(refusal<BooksError>([&] { return issued(library, rest); }), Code::creditExceeds)
        << "a rate has a paisa more";
    rest.lines = {work(1350000, 500)};
    EXPECT_EQ(refusal<BooksError>([&] { return issued(library, rest); }), Code::creditExceeds) << "at the other rate";

    const UUID second = issued(library, half());
    EXPECT_EQ(balance(library, *library.document(invoice)), 3343300 - 2 * 1671700) << "a rupee of rounding";
    EXPECT_EQ(refusal<BooksError>([&] { return creditNoteFor(library, invoice, day); }), Code::creditExceeds);
    library = voidDocument(std::move(library), second, "");
    EXPECT_EQ(credits(library, invoice), 1671700);
    library = recordPayment(std::move(library), invoice, payment(1671600));
    EXPECT_EQ(refusal<BooksError>([&] { return issued(library, half()); }), std::nullopt) << "payments do not count";
}

TEST(Books, creditWhatIsLeftOfEachCode) {
    Library library = aBook();
    std::vector<Line> lines{work(10000), work(5000), work(700)};
    lines[0].hsn = "9983";
    lines[1].hsn = "9985";
    const UUID invoice = issued(library, aDraft(library, DocKind::invoice, lines));
    Document note = creditNoteFor(library, invoice, day);
    note.lines = {work(6000)};
    note.lines[0].hsn = "9985";  // a thousand more than the invoice has at this code
    (void)issued(library, note);
    std::vector<std::pair<std::string, std::int64_t>> left;
    for (const Line& line : creditNoteFor(library, invoice, day).lines) left.emplace_back(line.hsn, line.priceMinor);
    EXPECT_EQ(left, (std::vector<std::pair<std::string, std::int64_t>>{{"", 700}, {"9983", 9000}}));
}

TEST(Books, turnEstimatesIntoInvoices) {
    Library library = aBook();
    library.rates.append({"USD", 83'000'000, day, {}});
    library.clients.update(0, [](Client& c) { c.currency = "USD", c.country = "US", c.taxID.clear(); });
    const UUID estimate = issued(library, aDraft(library, DocKind::estimate, {work(250000)}));
    EXPECT_EQ(library.document(estimate)->number, "EST/26-27/001");
    library.rates.update(0, [](FXRate& rate) { rate.rateMicros = 90'000'000; });
    library.clients.update(0, [](Client& c) { c.currency = "EUR"; });

    const auto convert = [&] {
        const Document invoice = invoiceFrom(library, estimate, {2026, 12, 1});
        library = convertEstimate(std::move(library), estimate, invoice);
        return invoice;
    };
    const auto estimateStatus = [&] { return status(library, *library.document(estimate), day); };
    const Document invoice = convert();
    EXPECT_EQ(invoice.currency, "USD") << "its prices are dollars";
    EXPECT_EQ(invoice.rateMicros, 90'000'000);
    EXPECT_EQ(invoice.dueDate, (Day{2026, 12, 16}));
    EXPECT_NE(invoice.lines[0].id, library.document(estimate)->lines[0].id);
    EXPECT_EQ(estimateStatus(), DocStatus::converted);
    library = deleteDraft(std::move(library), invoice.id);
    EXPECT_EQ(estimateStatus(), DocStatus::accepted);
    const UUID again = convert().id;
    library = issue(std::move(library), again, {2026, 12, 2});
    library = voidDocument(std::move(library), estimate, "");
    EXPECT_EQ(library.document(again)->state, DocState::issued);
    library = voidDocument(std::move(library), again, "");
    EXPECT_FALSE(library.document(estimate)->linkedID);
}

TEST(Books, billAnExpenseOnOneInvoiceAtATime) {
    Library library = aBook();
    library.expenses = {anExpense("A"), anExpense("B")};
    const auto billedOn = [&](std::size_t expense) { return library.expenses[expense].rebilledInvoiceID; };
    Document draft = aDraft(library, DocKind::invoice, {work(1), work(2)});
    draft.lines[0].expenseID = library.expenses[0].id;
    library = addDraft(std::move(library), draft);
    EXPECT_EQ(billedOn(0), draft.id);
    draft.lines[0].expenseID = library.expenses[1].id;
    draft.lines[1].expenseID = UUID::random();
    library = replaceDraft(std::move(library), draft);
    EXPECT_EQ(billedOn(0), std::nullopt);
    EXPECT_EQ(billedOn(1), draft.id);
    EXPECT_FALSE(library.document(draft.id)->lines[1].expenseID) << "an expense that is not there";
    EXPECT_FALSE(duplicateOf(library, draft.id, day).lines[0].expenseID);
    draft.lines[1].priceMinor = 10000;
    library = issue(replaceDraft(std::move(library), draft), draft.id, day);
    library = voidDocument(std::move(library), draft.id, "");
    EXPECT_EQ(billedOn(1), std::nullopt);
    EXPECT_EQ(library.document(draft.id)->lines[0].expenseID, library.expenses[1].id) << "frozen";
}

TEST(Books, followTheClient) {
    Library library = aBook();
    library.rates.append({"JPY", 565'000, day, {}});
    const struct {
        const char *country, *state, *currency;
        bool sez;
        SupplyType supply;
        std::optional<std::string> place;
        std::int64_t rate, price;
    } cases[] = {
        {"IN", "27", "INR", false, SupplyType::intraState, "27", 1'000'000, 11850},
        {"IN", "29", "INR", false, SupplyType::interState, "29", 1'000'000, 11850},
        {"IN", "27", "INR", true, SupplyType::sezLUT, "27", 1'000'000, 11850},
        {"JP", "", "jpy", false, SupplyType::exportLUT, {}, 565'000, 119},
        {"KW", "", "KWD", false, SupplyType::exportLUT, {}, 0, 118500},
    };
    for (const auto& [country, state, currency, sez, supply, place, rate, price] : cases) {
        SCOPED_TRACE(std::string(country) + state);
        Client client = Client::make("Other");
        client.country = country;
        client.stateCode = state;
        client.currency = currency;
        client.sez = sez;
        client.dueDays = 45;
        library.clients.append(client);
        const Document draft = aDraft(library, DocKind::invoice, {work(11850)});
        const Document other = withClient(library, draft, client.id);
        EXPECT_EQ(other.supply, supply);
        EXPECT_EQ(other.lut, isZeroRated(supply));
        EXPECT_EQ(other.placeOfSupply, place);
        EXPECT_EQ(other.rateMicros, rate);
        EXPECT_EQ(other.lines[0].priceMinor, price) << "as people read it";
        EXPECT_EQ(other.dueDate, day.addingDays(45));
        EXPECT_EQ(newDocument(library, DocKind::estimate, client.id, day).dueDate, day.addingDays(15));
    }
    const Document yen = withCurrency(library, aDraft(library, DocKind::invoice, {}), "JPY");
    CatalogItem logo = CatalogItem::make("Logo");
    logo.priceMinor = 565000;
    EXPECT_EQ(lineOf(library, yen, logo).priceMinor, 10000) << "5,650 rupees at 0.565";
    const Document plain = aDraft(library, DocKind::invoice, {});
    EXPECT_EQ(withPlaceOfSupply(library, plain, "29").supply, SupplyType::interState);
    EXPECT_EQ(newDocument(library, DocKind::invoice, {}, day).placeOfSupply, "27");
}

TEST(Books, warnOfWhatIssuingDoesNotRefuse) {
    const struct {
        const char* what;
        std::function<void(Library&, Document&)> spoil;
        const char* begin;
        Day date = {2026, 10, 14};
    } cases[] = {
        {"nothing", [](Library&, Document&) {}, nullptr},
        {"an earlier date", [](Library&, Document&) {}, "INV/26-27/001 is dated 14 Oct 2026", {2026, 10, 13}},
        {"an earlier year", [](Library&, Document&) {}, nullptr, {2026, 3, 31}},
        {"no code", [](Library&, Document& d) { d.lines.assign(2, work(1)); }, "Lines 1 and 2 need an HSN or SAC code"},
        {"a short code", [](Library&, Document& d) { d.lines[0].hsn = "998"; }, "Line 1 needs an HSN or SAC code"},
        {"no code for a consumer",
         [](Library& l, Document& d) {
             d.lines[0].hsn.clear();
             l.clients.update(0, [](Client& c) { c.taxID.clear(); });
         },
         nullptr},
        {"a blank in the number",
         [](Library& l, Document&) { l.series.update(0, [](NumberSeries& s) { s.pattern = "INV {###}"; }); },
         "GST allows only"},
        {"a wrong GSTIN", [](Library& l, Document&) { l.clients.update(0, [](Client& c) { c.taxID.back() = '*'; }); },
         "Look at the GSTIN of Saffron Labs. A GSTIN has 15 characters."},
        {"a place at odds", [](Library&, Document& d) { d.placeOfSupply = "29"; }, "Client and place of supply mean"},
        {"no LUT reference",
         [](Library& l, Document& d) {
             l.clients.update(0, [](Client& c) { c.sez = true; });
             d = withLUT(l, d, true);
         },
         "This is billed under LUT"},
        {"composition beyond the state",
         [](Library& l, Document& d) {
             l.business.regime = TaxRegime::gstComposition;
             d = withPlaceOfSupply(l, d, "29");
         },
         "The composition scheme does not allow"},
        {"a late credit note",
         [](Library& l, Document& d) { d = creditNoteFor(l, l.documents[0].id, day); },
         "The tax of INV/26-27/001 could be reduced until 30 November 2027.",
         {2027, 12, 1}},
        {"a credit note in time",
         [](Library& l, Document& d) { d = creditNoteFor(l, l.documents[0].id, day); },
         nullptr,
         {2027, 11, 30}},
    };
    for (const auto& [what, spoil, begin, date] : cases) {
        SCOPED_TRACE(what);
        Library library = aBook();
        Line line = work(100);
        line.hsn = "998391";
        (void)issued(library, aDraft(library, DocKind::invoice, {line}));
        Document draft = aDraft(library, DocKind::invoice, {line});
        spoil(library, draft);
        const auto given = warnings(library, draft, date);
        EXPECT_EQ(given.size(), begin ? 1u : 0u) << ::testing::PrintToString(given);
        EXPECT_TRUE(!begin || given.empty() || given[0].starts_with(begin)) << given[0];
    }
}

TEST(Books, nameFilesApart) {
    Library library;
    for (const char* number : {"INV/1", "inv-1", "INV-1-2", "INV 1", "बिल/१", "../.."}) {
        Document document = testing::anInvoice(number);
        library.documents.append(document);
    }
    std::vector<std::string> names;
    for (const Document& document : library.documents) names.push_back(fileName(library, document));
    EXPECT_EQ(names, (std::vector<std::string>{"INV-1.pdf", "inv-1-3.pdf", "INV-1-2.pdf", "INV-1-4.pdf", "बिल-१.pdf",
                                               "-----.pdf"}));
    EXPECT_EQ(fileName(library, Document::make(DocKind::creditNote, day, day)), "Draft credit note.pdf");
}

}  // namespace
}  // namespace tamba
