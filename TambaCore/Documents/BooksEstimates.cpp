#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/BooksParts.h"

namespace tamba::Books {
namespace {

using Code = BooksError::Code;

void needOpenEstimate(const Document& estimate) {
    needIssued(estimate);
    refuseIf(estimate.linkedID.has_value(), Code::alreadyConverted);
}

Library withState(Library library, const UUID& id, DocState state) {
    if (const Document* estimate = library.document(id)) {
        refuseIf(estimate->kind != DocKind::estimate, Code::notEstimate);
        needOpenEstimate(*estimate);
    }
    return changed(std::move(library), id, [state](Document& estimate) { estimate.state = state; });
}

}  // namespace

Library acceptEstimate(Library library, const UUID& id) {
    return withState(std::move(library), id, DocState::accepted);
}

Library declineEstimate(Library library, const UUID& id) {
    return withState(std::move(library), id, DocState::declined);
}

Document invoiceFrom(const Library& library, const UUID& estimate, Day today) {
    const Document& source = needDocument(library, estimate, DocKind::estimate, Code::notEstimate);
    needOpenEstimate(source);
    Document invoice = newDocument(library, DocKind::invoice, source.clientID, today);
    // Its prices are in the estimate's currency, whatever the client's is by now.
    invoice = withCurrency(library, std::move(invoice), source.currency);
    invoice.lines = copiesOf(source.lines);
    invoice.notes = source.notes;
    invoice.terms = source.terms;
    invoice.reference = source.reference;
    invoice.roundOff = source.roundOff;
    return invoice;
}

Library convertEstimate(Library library, const UUID& estimate, Document invoice) {
    needOpenEstimate(needDocument(library, estimate, DocKind::estimate, Code::notEstimate));
    refuseIf(invoice.kind != DocKind::invoice, Code::notInvoice);
    const UUID id = invoice.id;
    library = addDraft(std::move(library), std::move(invoice));
    return changed(std::move(library), estimate, [&id](Document& converted) {
        converted.state = DocState::accepted;
        converted.linkedID = id;
    });
}

Document duplicateOf(const Library& library, const UUID& id, Day today) {
    const Document* source = library.document(id);
    if (!source) return newDocument(library, DocKind::invoice, {}, today);
    Document copy = Document::make(source->kind, source->issueDate, source->dueDate);
    copy.seriesID = source->seriesID;
    copy.clientID = source->clientID;
    copy.placeOfSupply = source->placeOfSupply;
    copy.lut = source->lut;
    copy.currency = source->currency;
    copy.lines = copiesOf(source->lines);
    copy.notes = source->notes;
    copy.terms = source->terms;
    copy.reference = source->reference;
    copy.roundOff = source->roundOff;
    copy.rateMicros = library.rate(copy.currency).value_or(0);
    if (copy.kind == DocKind::creditNote) {
        copy.linkedID = source->linkedID;
        copy.reason = source->reason;
    }
    return settled(library, withSupply(library, withIssueDate(std::move(copy), today)));
}

}  // namespace tamba::Books
