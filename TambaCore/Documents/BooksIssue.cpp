#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/BooksParts.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Documents/Numbering.h"

#include <algorithm>

namespace tamba::Books {
namespace {

using Code = BooksError::Code;

/// At least one line comes to a minor unit before discount.
bool hasAmount(const Document& document) {
    __extension__ using Wide = __int128;
    return std::any_of(document.lines.begin(), document.lines.end(), [](const Line& line) {
        const Wide product = static_cast<Wide>(line.qtyMilli) * line.priceMinor;
        return product >= 500 || product <= -500;
    });
}

/// An invoice or a credit note: what tax law has rules for.
bool isTaxDocument(const Document& document) { return document.kind != DocKind::estimate; }

/// The invoice of a credit note, if it stands.
const Document* creditedInvoice(const Library& library, const Document& note) {
    const bool credits = note.kind == DocKind::creditNote && note.linkedID;
    const Document* invoice = credits ? library.document(*note.linkedID) : nullptr;
    return invoice && invoice->kind == DocKind::invoice && invoice->isIssued() ? invoice : nullptr;
}

const NumberSeries* seriesOf(const Library& library, const Document& document) {
    const NumberSeries* own = document.seriesID ? find(library.series, *document.seriesID) : nullptr;
    return own && own->kind == document.kind ? own : library.defaultSeries(document.kind);
}

/// Who it is for: a credit note goes to the party on its invoice.
std::optional<PartySnapshot> billedParty(const Library& library, const Document& document) {
    const Document* invoice = creditedInvoice(library, document);
    if (invoice && invoice->billTo) return invoice->billTo;
    const Client* client = document.clientID ? library.client(*document.clientID) : nullptr;
    return client ? std::optional(PartySnapshot::of(*client)) : std::nullopt;
}

/// Throws what refuses a document of that day, in the order of the header, up to its number.
void needIssuable(const Library& library, const Document& document) {
    refuseIf(!document.billTo, Code::noClient);
    refuseIf(!hasAmount(document), Code::noLines);
    if (const auto refusal = problem(library, document)) throw BooksError(*refusal);
    // Two machines can have put one expense on a draft each.
    for (const Line& line : document.lines)
        if (const Expense* expense = line.expenseID ? library.expense(*line.expenseID) : nullptr)
            refuseIf(expense->rebilledInvoiceID && expense->rebilledInvoiceID != document.id, Code::alreadyBilled);
    const bool foreign = Currency::of(document.currency).code != library.home().code;
    if (foreign && document.rateMicros < 1) throw BooksError(Code::missingRate, document.currency);
    const Business& business = library.business;
    refuseIf(business.regime == TaxRegime::gstIndia && isTaxDocument(document) && Text::trim(business.taxID).empty(),
             Code::noGSTIN);
    if (document.kind != DocKind::creditNote) return;
    const Document* invoice = creditedInvoice(library, document);
    if (!invoice) throw BooksError(Code::notIssued, "A credit note needs an invoice that is issued and not void.");
    refuseIf(DocMath::totals(document).taxable < 1, Code::noLines);
    refuseIf(!covers(library, *invoice, document), Code::creditExceeds);
}

// Warnings: each adds what there is to know.

using Sentences = std::vector<std::string>;

void warnOfDate(Sentences& warnings, const Library& library, const Document& document, const NumberSeries* series,
                Day date) {
    if (!series) return;
    const auto period = [&](Day day) { return Numbering::periodKey(series->pattern, day, library.fyStart()); };
    const Document* last = nullptr;
    for (const Document& other : library.documents) {
        const bool counts = other.number && other.seriesID == series->id && other.id != document.id;
        if (counts && period(other.issueDate) == period(date) && (!last || other.issueDate > last->issueDate))
            last = &other;
    }
    if (last && date < last->issueDate)
        warnings.push_back(*last->number + " is dated " + last->issueDate.formatted("d MMM yyyy") +
                           ", after this one. Numbers should follow the dates.");
}

void warnOfCodes(Sentences& warnings, const Document& document, const Client* client) {
    // Up to a turnover of five crore, four digits are asked for, and for unregistered buyers none (Notification
    // 78/2020).
    const bool needed = isZeroRated(document.supply) || (client && client->isRegistered());
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < document.lines.size(); ++i) {
        const std::string_view code = Text::trim(document.lines[i].hsn);
        if (code.empty() ? needed : code.size() < 4) lines.push_back(std::to_string(i + 1));
    }
    if (lines.empty()) return;
    std::string which = "Line " + lines.front() + " needs";
    if (lines.size() > 3)
        which = std::to_string(lines.size()) + " lines need";
    else if (lines.size() > 1) {
        const std::string last = lines.back();
        lines.pop_back();
        which = "Lines " + Text::join(lines, ", ") + " and " + last + " need";
    }
    warnings.push_back(which + " an HSN or SAC code of at least four digits.");
}

void warnOfNumber(Sentences& warnings, const Library& library, const NumberSeries* series, Day date) {
    if (!series) return;
    const std::string number = Numbering::nextNumber(library, *series, date);
    if (!Numbering::isAllowed(number) && Text::length(number) <= Numbering::maximumLength)
        warnings.push_back("GST allows only the letters A–Z, digits, “-” and “/” in a number, and this one will be " +
                           number + ".");
}

void warnOfSupply(Sentences& warnings, const Library& library, const Document& document, const Client* client) {
    const SupplyType meant = withSupply(library, document).supply;
    if (meant != document.supply)
        warnings.push_back("Client and place of supply mean “" + std::string(title(meant)) +
                           "”, but the document says “" + std::string(title(document.supply)) + "”.");
    if ((document.supply == SupplyType::exportLUT || document.supply == SupplyType::sezLUT) &&
        Text::trim(library.business.lutReference).empty())
        warnings.push_back("This is billed under LUT, but your business details have no LUT reference.");
    const auto own = library.business.supplierState();
    const bool elsewhere =
        (client && client->isForeign()) || (own && document.placeOfSupply && *own != *document.placeOfSupply);
    if (library.business.regime == TaxRegime::gstComposition && elsewhere)
        warnings.push_back("The composition scheme does not allow supplies outside your own state.");
}

void warnOfCredit(Sentences& warnings, const Document& invoice, const TaxRegime regime, Day date) {
    if (date < invoice.issueDate)
        warnings.push_back("The credit note is dated before its invoice, " + invoice.displayNumber() + ".");
    // CGST Act 2017, section 34(2); the law's year starts in April whatever the business's does.
    const Day last{invoice.issueDate.financialYear(4).startYear + 1, 11, 30};
    if (regime == TaxRegime::gstIndia && date > last)
        warnings.push_back("The tax of " + invoice.displayNumber() + " could be reduced until " +
                           last.formatted("d MMMM yyyy") + ". A later credit note reduces no GST.");
}

}  // namespace

Library issue(Library library, const UUID& id, Day date) {
    const std::size_t index = indexOf(library.documents, id);
    if (index == library.documents.size()) return library;
    refuseIf(library.documents[index].state != DocState::draft, Code::notDraft);
    Document document = settled(library, withIssueDate(library.documents[index], date));
    document.billTo = billedParty(library, document);
    needIssuable(library, document);

    const NumberSeries* series = seriesOf(library, document);
    if (!series) throw BooksError(Code::noSeries);
    const Numbering::Next next = Numbering::next(library, *series, date);
    if (Text::length(next.number) > Numbering::maximumLength) throw BooksError(Code::numberTooLong, next.number);

    document.number = next.number;
    document.state = DocState::issued;
    document.seriesID = series->id;
    document.seller = PartySnapshot::of(library.business);
    const std::string period = Numbering::periodKey(series->pattern, date, library.fyStart());
    library.series.update(indexOf(library.series, series->id),
                          [&](NumberSeries& counted) { counted.next[period] = next.counter + 1; });
    library.documents.update(index, [&document](Document& draft) { draft = std::move(document); });
    return library;
}

std::vector<std::string> warnings(const Library& library, const Document& document, Day date) {
    Sentences warnings;
    const NumberSeries* series = seriesOf(library, document);
    const Client* client = document.clientID ? library.client(*document.clientID) : nullptr;
    warnOfDate(warnings, library, document, series, date);
    if (!isTaxDocument(document)) return warnings;
    if (library.business.isIndia()) {
        if (library.business.regime == TaxRegime::gstIndia) warnOfCodes(warnings, document, client);
        warnOfNumber(warnings, library, series, date);
        if (const auto problem = client ? Clients::taxIDProblem(*client) : std::nullopt)
            warnings.push_back("Look at the GSTIN of " + client->name + ". " + *problem);
        warnOfSupply(warnings, library, document, client);
    }
    if (const Document* invoice = creditedInvoice(library, document))
        warnOfCredit(warnings, *invoice, library.business.regime, date);
    return warnings;
}

Library voidDocument(Library library, const UUID& id, std::string reason) {
    const Document* document = library.document(id);
    if (!document) return library;
    refuseIf(document->state == DocState::void_, Code::alreadyVoid);
    needIssued(*document);
    refuseIf(!document->payments.empty(), Code::hasPayments);
    for (const Document& note : library.documents)
        refuseIf(note.kind == DocKind::creditNote && note.linkedID == id && note.isIssued(), Code::hasCreditNotes);
    library = changed(std::move(library), id, [&reason](Document& voided) {
        voided.state = DocState::void_;
        // A credit note's own reason is worth more than none.
        if (!reason.empty()) voided.reason = std::move(reason);
    });
    return released(std::move(library), id);
}

Library markSent(Library library, const UUID& id, Day on) {
    if (const Document* document = library.document(id)) needIssued(*document);
    // The client has had it since the first time.
    return changed(std::move(library), id,
                   [on](Document& document) { document.sentOn = document.sentOn.value_or(on); });
}

}  // namespace tamba::Books
