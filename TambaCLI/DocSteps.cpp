#include "TambaCLI/Arguments.h"
#include "TambaCLI/DocCommands.h"
#include "TambaCore/Documents/Books.h"

#include <iostream>

namespace tamba::cli {
namespace {

/// Opens the books, lets `change` make new ones from them and the document, saves, and says how it stands.
template <class Change>
int changed(const Context& context, const std::string& typed, Change change) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const UUID id = documentOf(library, typed).id;
    printStanding(context, save(session, change(library, *library.document(id))), id);
    return 0;
}

/// What was received and what was deducted, from what was typed.
Payment paymentFrom(const Library& library, const Document& invoice, const PaymentEntry& entry, Day today) {
    const Currency currency = Currency::of(invoice.currency);
    const std::int64_t due = Books::balance(library, invoice);
    if (entry.amount.empty() && invoice.kind == DocKind::invoice && invoice.isIssued() && due < 1)
        throw BooksError(BooksError::Code::nothingDue);
    const int rateBP = entry.tdsRate.empty() ? 0 : percentOf(entry.tdsRate, "rate of tax deducted");
    const std::int64_t received = entry.amount.empty() ? 0 : amountOf(entry.amount, currency);
    std::int64_t tds = entry.tds.empty() ? 0 : amountOf(entry.tds, currency);
    if (rateBP > 0)
        tds = entry.amount.empty() ? Books::suggestedTDS(invoice, due, rateBP)
                                   : Books::tdsBeside(library, invoice, received, rateBP);
    Payment payment = Payment::make(entry.date.value_or(today), entry.amount.empty() ? due - tds : received, tds,
                                    entry.method.value_or(PaymentMethod::bank));
    payment.reference = entry.reference;
    return payment;
}

}  // namespace

Library issued(const Library& library, const Document& draft, Day date) {
    Library result = Books::issue(library, draft.id, date);
    for (const std::string& sentence : Books::warnings(library, draft, date)) std::cerr << sentence << "\n";
    return result;
}

int issueDocument(const Context& context, const std::string& typed, const std::optional<Day>& date) {
    return changed(context, typed, [&](const Library& library, const Document& draft) {
        return issued(library, draft, date.value_or(draft.issueDate));
    });
}

int voidDocument(const Context& context, const std::string& typed, const std::string& reason) {
    return changed(context, typed, [&](const Library& library, const Document& document) {
        return Books::voidDocument(library, document.id, reason);
    });
}

int payDocument(const Context& context, const PaymentEntry& entry) {
    return changed(context, entry.document, [&](const Library& library, const Document& invoice) {
        return Books::recordPayment(library, invoice.id, paymentFrom(library, invoice, entry, context.today));
    });
}

int removePayment(const Context& context, const std::string& typed, const std::string& payment) {
    return changed(context, typed, [&](const Library& library, const Document& invoice) {
        if (invoice.payments.empty()) throw Refusal("No payment is recorded on " + invoice.displayNumber() + ".");
        if (payment.empty() && invoice.payments.size() > 1)
            throw Refusal("There are several payments. Give the beginning of the ID of one.");
        const Payment* found =
            payment.empty() ? &invoice.payments.front() : withID(invoice.payments, payment, "payment");
        if (!found) throw Refusal("There is no payment “" + payment + "” on " + invoice.displayNumber() + ".");
        return Books::removePayment(library, invoice.id, found->id);
    });
}

int answerEstimate(const Context& context, const std::string& typed, Answer answer) {
    return changed(context, typed, [&](const Library& library, const Document& estimate) {
        return answer == Answer::accepted ? Books::acceptEstimate(library, estimate.id)
                                          : Books::declineEstimate(library, estimate.id);
    });
}

}  // namespace tamba::cli
