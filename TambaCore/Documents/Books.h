#pragma once

#include "TambaCore/Documents/BooksError.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What people do with documents: draft, issue, send, be paid, credit, void. Each operation takes the books by value
/// and gives the changed books; a refusal throws `BooksError` and the caller still has the old value. An id that is not
/// there changes nothing. No operation on the books asks the clock. How a document stands (what is paid, owed, late) is
/// in `Standing.h`.
///
///     Document draft = Books::newDocument(library, DocKind::invoice, client, today);
///     draft.lines.push_back(Books::newLine(library, draft));
///     library = Books::addDraft(std::move(library), draft);
///     library = Books::issue(std::move(library), draft.id, today);     // throws BooksError
namespace tamba::Books {

// Drafts. The functions that make a document give a value with fresh ids and the moment it was made (the one thing
// taken from the clock); `addDraft` puts it into the books.

/// A draft with what client and business say: currency and its kept rate (0 where none is kept), due days, terms, place
/// of supply, supply type, series, round-off. Without a client as for one in the business's own state.
[[nodiscard]] Document newDocument(const Library& library, DocKind kind, const std::optional<UUID>& client, Day today);
/// One unit, without name and price, at the business's default tax rate (0 where its regime charges none).
[[nodiscard]] Line newLine(const Library& library, const Document& document);
/// A line from the catalogue; its price is in the home currency and is converted at the document's rate.
[[nodiscard]] Line lineOf(const Library& library, const Document& document, const CatalogItem& item);

// Changes to a draft that others follow from; the result is not yet in the books.

/// For another client: currency, rate, due date, place of supply and supply type follow.
[[nodiscard]] Document withClient(const Library& library, Document document, const std::optional<UUID>& client);
/// With another place of supply, or under LUT or not; the supply type follows (IGST Act 2017, sections 7 and 8).
[[nodiscard]] Document withPlaceOfSupply(const Library& library, Document document,
                                         const std::optional<std::string>& place);
[[nodiscard]] Document withLUT(const Library& library, Document document, bool lut);
/// With another currency and the rate kept for it; 0 where none is kept, which refuses issuing. Prices stay as typed.
[[nodiscard]] Document withCurrency(const Library& library, Document document, std::string_view currency);
/// With another issue date; the due date keeps its distance.
[[nodiscard]] Document withIssueDate(Document document, Day date);

/// What keeps a draft from being kept as it is, in the order of its fields: `figures` (naming the line),
/// `dueBeforeIssue`.
[[nodiscard]] std::optional<BooksError> problem(const Library& library, const Document& draft);
/// Puts a new draft into the books. Throws as `problem` gives, or `notDraft`.
[[nodiscard]] Library addDraft(Library library, Document draft);
/// Replaces the draft with the same id. Expenses whose lines are gone are free to be billed again; those whose lines
/// are new are marked as billed on it. A credit note keeps its invoice's client, currency, rate and supply. Throws
/// `notDraft`, `alreadyBilled` or as `problem` gives.
[[nodiscard]] Library replaceDraft(Library library, Document draft);
/// Throws `issuedCannotDelete`. Frees its expenses, and the estimate it was made from.
[[nodiscard]] Library deleteDraft(Library library, const UUID& id);

// Issuing and after.

/// Gives the number and freezes both parties. The document is dated `date`, its due date keeps its distance. Throws, in
/// this order, `notDraft`, `noClient`, `noLines`, as `problem` gives, `alreadyBilled`, `missingRate`, `noGSTIN`,
/// `notIssued` and `creditExceeds` (a credit note), `noSeries`, `numberTooLong`.
[[nodiscard]] Library issue(Library library, const UUID& id, Day date);
/// Things to know before issuing that refuse nothing, as finished sentences: a date before the series' last number's,
/// an HSN code missing or short, a number with characters GST does not allow, a client's GSTIN that is invalid or of
/// another state, a place of supply at odds with the supply type, an export without an LUT reference, a supply to
/// another state under the composition scheme, a credit note after 30 November following the invoice's year.
[[nodiscard]] std::vector<std::string> warnings(const Library& library, const Document& document, Day date);

/// Keeps the number, counts no more. Frees re-billed expenses and the estimate it was made from. Throws `notIssued`,
/// `alreadyVoid`, `hasPayments`, `hasCreditNotes`.
[[nodiscard]] Library voidDocument(Library library, const UUID& id, std::string reason);

/// Throws `notInvoice`, `notIssued`, `badPayment`, `paidBeforeIssue`, `overpaid`.
[[nodiscard]] Library recordPayment(Library library, const UUID& invoice, Payment payment);
/// Also frees the bank line it was matched with, unless the line's money made other payments, too.
[[nodiscard]] Library removePayment(Library library, const UUID& invoice, const UUID& payment);
/// Tax a client may deduct (Income-tax Act 2025, section 393; Circular 23/2017): `rateBP` of the part of the invoice's
/// value without GST that `settled` of its total covers, in whole units of its currency.
[[nodiscard]] std::int64_t suggestedTDS(const Document& invoice, std::int64_t settled, int rateBP);
/// The same from what was `received`, which is what is settled less that tax; where both together come to the balance,
/// exactly so.
[[nodiscard]] std::int64_t tdsBeside(const Library& library, const Document& invoice, std::int64_t received,
                                     int rateBP);
/// Rates deductors use, in basis points: 10 %, 2 %, 1 %, 0.1 %.
[[nodiscard]] const std::vector<int>& tdsRates();

/// A draft credit note for what is left of an invoice: its lines, or where part was credited before, one line for each
/// rate and HSN code with what remains. Throws `notInvoice`, `notIssued`, `creditExceeds` (nothing is left).
[[nodiscard]] Document creditNoteFor(const Library& library, const UUID& invoice, Day today);

/// Throw `notEstimate`, `notIssued`, `alreadyConverted`.
[[nodiscard]] Library acceptEstimate(Library library, const UUID& id);
[[nodiscard]] Library declineEstimate(Library library, const UUID& id);
/// The draft invoice an estimate becomes, dated today, with the place of supply and rates of today. Throws
/// `notEstimate`, `notIssued`, `alreadyConverted`.
[[nodiscard]] Document invoiceFrom(const Library& library, const UUID& estimate, Day today);
/// Adds that invoice and links the estimate to it.
[[nodiscard]] Library convertEstimate(Library library, const UUID& estimate, Document invoice);
/// A draft like it, dated today, with today's rate, no number, no expenses.
[[nodiscard]] Document duplicateOf(const Library& library, const UUID& id, Day today);

/// It has gone to the client. Throws `notIssued`.
[[nodiscard]] Library markSent(Library library, const UUID& id, Day on);

/// "INV-26-27-007.pdf": the number as a file name, drafts as "Draft invoice.pdf"; "-2" where another document of the
/// books would have the same.
[[nodiscard]] std::string fileName(const Library& library, const Document& document);

}  // namespace tamba::Books
