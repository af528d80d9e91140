#pragma once

#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Standing.h"

#include <cstddef>
#include <functional>

/// What the operations on documents share.
namespace tamba::Books {

inline void refuseIf(bool condition, BooksError::Code code) {
    if (condition) throw BooksError(code);
}

/// Neither draft nor void; the books keep such a document as it is.
inline void needIssued(const Document& document) { refuseIf(!document.isIssued(), BooksError::Code::notIssued); }

/// The document with that id, of that kind; else the refusal.
[[nodiscard]] const Document& needDocument(const Library& library, const UUID& id, DocKind kind,
                                           BooksError::Code otherwise);

/// The books with that document changed; as they are where it is not there.
[[nodiscard]] Library changed(Library library, const UUID& id, const std::function<void(Document&)>& change);

/// Throws what refuses a payment on a document of which so much is due.
void needPayable(const Document& document, std::int64_t balance, const Payment& payment);

/// Copies for another document: with ids of their own, billing no expense.
[[nodiscard]] std::vector<Line> copiesOf(const std::vector<Line>& lines);
/// A credit note with the client, currency, rate and supply of its invoice; other documents as they are. Home currency
/// has the rate 1.
[[nodiscard]] Document settled(const Library& library, Document document);
/// With the supply type that place, client and LUT mean.
[[nodiscard]] Document withSupply(const Library& library, Document document);

/// Expenses billed on the invoice can be billed again, the estimate it was made from becomes another invoice, and no
/// bank line names it.
[[nodiscard]] Library released(Library library, const UUID& invoice);

/// Whether an invoice, less its issued notes, covers one more note: compared rate by rate before tax. The tax follows
/// from it, and part notes use up the whole invoice however the tax of each was rounded.
[[nodiscard]] bool covers(const Library& library, const Document& invoice, const Document& note);

}  // namespace tamba::Books
