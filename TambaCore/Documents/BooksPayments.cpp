#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/BooksParts.h"

#include <algorithm>

namespace tamba::Books {
namespace {

bool settlesSomething(const Payment& payment) {
    const auto part = [](std::int64_t amount) { return amount >= 0 && amount <= maximumAmount; };
    return part(payment.amount) && part(payment.tds) && (payment.amount > 0 || payment.tds > 0);
}

/// Points the line to another payment that its money made, if there is one, else frees it.
void releaseLine(const Library& library, BankTransaction& line) {
    line.invoiceID.reset();
    line.paymentID.reset();
    for (const Document& document : library.documents)
        for (const Payment& payment : document.payments)
            if (payment.bankTxnID == line.id) {
                line.invoiceID = document.id;
                line.paymentID = payment.id;
                return;
            }
}

}  // namespace

void needPayable(const Document& document, std::int64_t balance, const Payment& payment) {
    using Code = BooksError::Code;
    refuseIf(document.kind != DocKind::invoice, Code::notInvoice);
    needIssued(document);
    refuseIf(!settlesSomething(payment), Code::badPayment);
    refuseIf(payment.date < document.issueDate, Code::paidBeforeIssue);
    refuseIf(payment.settles() > balance, Code::overpaid);
}

Library recordPayment(Library library, const UUID& invoice, Payment payment) {
    const Document* document = library.document(invoice);
    if (!document) return library;
    needPayable(*document, balance(library, *document), payment);
    return changed(std::move(library), invoice,
                   [&payment](Document& paid) { paid.payments.push_back(std::move(payment)); });
}

Library removePayment(Library library, const UUID& invoice, const UUID& payment) {
    const Document* document = library.document(invoice);
    if (!document) return library;
    const auto isIt = [&payment](const Payment& one) { return one.id == payment; };
    if (std::none_of(document->payments.begin(), document->payments.end(), isIt)) return library;
    library = changed(std::move(library), invoice, [&isIt](Document& paid) { std::erase_if(paid.payments, isIt); });
    for (std::size_t i = 0; i < library.transactions.size(); ++i)
        if (library.transactions[i].paymentID == payment)
            library.transactions.update(i, [&library](BankTransaction& line) { releaseLine(library, line); });
    return library;
}

std::int64_t suggestedTDS(const Document& invoice, std::int64_t settled, int rateBP) {
    if (!DocMath::isBelievable(invoice)) return 0;
    const DocTotals totals = DocMath::totals(invoice);
    settled = std::min(settled, totals.total);
    if (settled < 1 || rateBP < 1 || rateBP > 10'000) return 0;
    // One rounding, to whole units: a share that was rounded first could tip the result.
    __extension__ using Wide = __int128;
    const std::int64_t scale = Currency::of(invoice.currency).scale();
    const Wide divisor = static_cast<Wide>(totals.total) * 10'000 * scale;
    const Wide units = (static_cast<Wide>(totals.taxable) * settled * rateBP * 2 + divisor) / (divisor * 2);
    return static_cast<std::int64_t>(units * scale);
}

std::int64_t tdsBeside(const Library& library, const Document& invoice, std::int64_t received, int rateBP) {
    if (!DocMath::isBelievable(invoice) || received < 1 || received > maximumAmount) return 0;
    if (rateBP < 1 || rateBP > 10'000) return 0;
    const std::int64_t due = balance(library, invoice);
    // Rounding to whole units can give two answers that fit; the one that leaves nothing open was meant.
    const std::int64_t ofRest = suggestedTDS(invoice, due, rateBP);
    if (Checked::add(received, ofRest) == due) return ofRest;
    const DocTotals totals = DocMath::totals(invoice);
    __extension__ using Wide = __int128;
    const Wide deducted = static_cast<Wide>(totals.taxable) * rateBP;
    const std::int64_t scale = Currency::of(invoice.currency).scale();
    const Wide divisor = (static_cast<Wide>(totals.total) * 10'000 - deducted) * scale;
    if (divisor < 1) return 0;
    const Wide units = (deducted * received * 2 + divisor) / (divisor * 2);
    return units > maximumAmount / scale ? 0 : static_cast<std::int64_t>(units * scale);
}

const std::vector<int>& tdsRates() {
    static const std::vector<int> rates{1000, 200, 100, 10};
    return rates;
}

}  // namespace tamba::Books
