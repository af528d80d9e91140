#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Rebilling.h"
#include "TambaCore/Documents/Reminders.h"
#include "TambaCore/Documents/Standing.h"
#include "tests/soak/Somebody.h"

namespace tamba::soak {

Line Somebody::line(const Library& library, const Document& draft) {
    if (const CatalogItem* item = oneIn(4) ? one(library.items) : nullptr) return Books::lineOf(library, draft, *item);
    Line line = Books::newLine(library, draft);
    line.name = vendor();
    line.hsn = oneOf<std::string>({"", "998391", "9983"});
    line.qtyMilli = oneIn(3) ? 1000 : upTo(9'000);
    line.priceMinor = upTo(oneIn(9) ? 900'000'000'000 : 900'000);
    if (oneIn(4)) line.discountBP = static_cast<int>(upTo(10'000));
    if (oneIn(3)) line.taxBP = oneOf({0, 25, 300, 500, 1800, 4000});
    return line;
}

/// As the editor does: what cannot be kept is marked beside its field, and the draft stays.
Library Somebody::withDraft(Library library, const std::function<Document(const Library&, Document)>& change) {
    const auto kind = oneIn(4) ? DocKind::estimate : oneIn(5) ? DocKind::creditNote : DocKind::invoice;
    const Document* draft = document(library, kind, DocState::draft);
    if (!draft || draft->state != DocState::draft) return library;
    Document changed = change(library, *draft);
    if (changed == *draft || Books::problem(library, changed)) return library;
    return Books::replaceDraft(std::move(library), std::move(changed));
}

Library Somebody::newDraft(Library library, Day today) {
    const DocKind kind = oneIn(4) ? DocKind::estimate : DocKind::invoice;
    Document draft = Books::newDocument(library, kind, oneOrNone(library.clients), today);
    for (auto n = upTo(3); n > 0; --n) draft.lines.push_back(line(library, draft));
    return Books::addDraft(std::move(library), std::move(draft));
}

Library Somebody::editDraft(Library library, Day today) {
    return withDraft(std::move(library), [&](const Library& books, Document d) {
        switch (upTo(7)) {
            case 0:
                return Books::withClient(books, d, oneOrNone(books.clients));
            case 1:
                return Books::withPlaceOfSupply(books, d, oneOf<std::string>({"27", "29", "07", "96"}));
            case 2:
                return Books::withLUT(books, d, !d.lut);
            case 3:
                return Books::withCurrency(books, d, currency());
            case 4:
                return Books::withIssueDate(d, around(today));
            case 5:
                d.dueDate = d.issueDate.addingDays(upTo(60) - 5);
                return d;
            case 6:
                d.roundOff = !d.roundOff;
                return d;
            default:
                d.notes = vendor();
                d.reference = vendor();
                return d;
        }
    });
}

Library Somebody::editLines(Library library, Day) {
    return withDraft(std::move(library), [&](const Library& books, Document d) {
        const auto at = [&] { return d.lines.begin() + upTo(std::int64_t(d.lines.size()) - 1); };
        if (d.lines.empty() || oneIn(3))
            d.lines.push_back(line(books, d));
        else if (oneIn(3))
            d.lines.erase(at());
        else if (oneIn(2))
            std::swap(*at(), *at());
        else {
            Line& edited = *at();
            const auto [id, expense] = std::pair(edited.id, edited.expenseID);
            edited = line(books, d);
            edited.id = id;
            edited.expenseID = expense;
        }
        return d;
    });
}

Library Somebody::billExpenses(Library library, Day) {
    return withDraft(std::move(library), [&](const Library& books, Document d) {
        std::vector<UUID> chosen;
        for (const Expense* expense : Rebilling::candidates(books, d))
            if (oneIn(3)) chosen.push_back(expense->id);
        return chosen.empty() ? d : Rebilling::withExpenses(books, std::move(d), chosen);
    });
}

Library Somebody::changeDraftRate(Library library, Day today) {
    std::string currency;
    const std::int64_t value = rate();
    library = withDraft(std::move(library), [&](const Library& books, Document d) {
        if (d.currency == books.home().code) return d;
        currency = d.currency;
        d.rateMicros = value;
        return d;
    });
    return currency.empty() ? library : Expenses::keepRate(std::move(library), currency, value, today);
}

Library Somebody::deleteDraft(Library library, Day) {
    const Document* draft = document(library, oneOf({DocKind::invoice, DocKind::estimate}), DocState::draft);
    return draft ? Books::deleteDraft(library, UUID(draft->id)) : library;
}

Library Somebody::issue(Library library, Day today) {
    const DocKind kind = oneIn(3) ? oneOf({DocKind::estimate, DocKind::creditNote}) : DocKind::invoice;
    const Document* draft = document(library, kind, DocState::draft);
    return draft ? Books::issue(library, UUID(draft->id), oneIn(3) ? around(today) : today) : library;
}

Library Somebody::pay(Library library, Day today) {
    const Document* invoice = document(library, DocKind::invoice, DocState::issued);
    if (!invoice) return library;
    const std::int64_t due = Books::balance(library, *invoice),
                       part = oneIn(2) ? due : upTo(std::max<std::int64_t>(due, 1));
    const std::int64_t tds = oneIn(3) ? Books::suggestedTDS(*invoice, part, oneOf({Books::tdsRates()[0], 200})) : 0;
    Payment payment = Payment::make(oneIn(3) ? around(today) : today, part - tds, tds, PaymentMethod::upi);
    payment.reference = oneIn(2) ? "N1" : "";
    return Books::recordPayment(library, UUID(invoice->id), payment);
}

Library Somebody::removePayment(Library library, Day) {
    const Document* invoice = document(library, DocKind::invoice, DocState::issued);
    if (!invoice || invoice->payments.empty()) return library;
    const UUID id = invoice->id, payment = invoice->payments.back().id;
    return Books::removePayment(std::move(library), id, payment);
}

Library Somebody::draftCreditNote(Library library, Day today) {
    const Document* invoice = document(library, DocKind::invoice, DocState::issued);
    if (!invoice) return library;
    Document note = Books::creditNoteFor(library, invoice->id, today);
    if (oneIn(2)) note.lines.resize(1);
    if (oneIn(2)) note.lines[0].qtyMilli /= 3;
    if (oneIn(3)) note.lines[0].priceMinor += 1;
    return Books::addDraft(std::move(library), std::move(note));
}

Library Somebody::issueCreditNote(Library library, Day today) {
    library = draftCreditNote(std::move(library), today);
    if (library.documents.empty()) return library;
    const Document note = library.documents.back();
    return note.kind == DocKind::creditNote ? Books::issue(std::move(library), note.id, note.issueDate) : library;
}

Library Somebody::voidDocument(Library library, Day) {
    const Document* document = one(library.documents);
    return document ? Books::voidDocument(library, UUID(document->id), vendor()) : library;
}

Library Somebody::answerEstimate(Library library, Day) {
    const Document* estimate = document(library, DocKind::estimate, DocState::issued);
    if (!estimate) return library;
    return oneIn(2) ? Books::acceptEstimate(library, UUID(estimate->id))
                    : Books::declineEstimate(library, UUID(estimate->id));
}

Library Somebody::convertEstimate(Library library, Day today) {
    const Document* estimate = document(library, DocKind::estimate, oneOf({DocState::issued, DocState::accepted}));
    if (!estimate) return library;
    const UUID id = estimate->id;
    Document invoice = Books::invoiceFrom(library, id, today);
    return Books::convertEstimate(std::move(library), id, std::move(invoice));
}

Library Somebody::duplicate(Library library, Day today) {
    const Document* document = one(library.documents);
    return document ? Books::addDraft(library, Books::duplicateOf(library, document->id, today)) : library;
}

Library Somebody::markSent(Library library, Day today) {
    const Document* document = one(library.documents);
    if (!document) return library;
    const UUID id = document->id;
    if (document->kind == DocKind::invoice && oneIn(2)) {
        (void)Reminders::reminder(library, *document, today);
        return Reminders::recordReminder(std::move(library), id, today);
    }
    (void)Reminders::sending(library, *document, today);
    return Books::markSent(std::move(library), id, today);
}

}  // namespace tamba::soak
