#include "TambaCore/Documents/Books.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/BooksParts.h"

#include <algorithm>
#include <unordered_set>

namespace tamba::Books {
namespace {

constexpr int mostDueDays = 1'000'000;

const Client* clientOf(const Library& library, const Document& document) {
    return document.clientID ? library.client(*document.clientID) : nullptr;
}

int dueDays(const Library& library, DocKind kind, const Client* client) {
    if (kind == DocKind::creditNote) return 0;
    // A client's term is for paying; how long an estimate holds is the business's to say.
    const int days =
        client && client->dueDays && kind == DocKind::invoice ? *client->dueDays : library.business.defaultDueDays;
    return std::clamp(days, 0, mostDueDays);
}

/// What follows from the client. Exports have no place of supply in India.
Document following(const Library& library, Document document, const Client* client) {
    document.dueDate = document.issueDate.addingDays(dueDays(library, document.kind, client));
    const bool foreign = client && client->isForeign();
    document.placeOfSupply.reset();
    if (library.business.isIndia() && !foreign) {
        const std::string own = library.business.supplierState().value_or("");
        const std::string place = client ? PlaceOfSupply::defaultPOS(client->taxID, client->stateCode, own) : own;
        if (!place.empty()) document.placeOfSupply = place;
    }
    // As Settings tell it: under LUT, unless that is switched off on the invoice. Without it, IGST would be charged.
    document.lut = library.business.regime == TaxRegime::gstIndia && (foreign || (client && client->sez));
    return withSupply(library, std::move(document));
}

/// The sentence about the first figure of a line that cannot be.
std::optional<std::string> lineProblem(const Line& line, SupplyType supply, std::size_t number) {
    const std::string ofLine = " of line " + std::to_string(number);
    const auto figure = [&](const char* name, std::int64_t value) -> std::optional<std::string> {
        if (value < 0) return std::string("The ") + name + ofLine + " can’t be below zero.";
        if (value > maximumAmount) return std::string("The ") + name + ofLine + " is too large to be right.";
        return {};
    };
    const auto percentage = [&](const char* name, int value) -> std::optional<std::string> {
        if (value >= 0 && value <= 10'000) return {};
        return std::string("The ") + name + ofLine + " must be between 0% and 100%.";
    };
    if (auto problem = figure("quantity", line.qtyMilli)) return problem;
    if (auto problem = figure("price", line.priceMinor)) return problem;
    if (auto problem = percentage("discount", line.discountBP)) return problem;
    if (auto problem = percentage("tax rate", line.taxBP)) return problem;
    Document alone;
    alone.supply = supply;
    alone.lines = {line};
    if (!DocMath::isBelievable(alone)) return "The amount" + ofLine + " is too large to be right.";
    return {};
}

/// What bills an expense once it is no longer on that invoice: where two machines billed it, the other one.
std::optional<UUID> billedInstead(const Library& library, const UUID& expense, const UUID& invoice) {
    for (const Document& other : library.documents)
        if (other.id != invoice && other.kind == DocKind::invoice && other.state != DocState::void_ &&
            std::any_of(other.lines.begin(), other.lines.end(),
                        [&](const Line& line) { return line.expenseID == expense; }))
            return other.id;
    return {};
}

/// The books with the expenses on the draft’s lines marked as billed on it, and those that are no longer there freed.
Library rebilled(Library library, const Document& draft) {
    std::unordered_set<UUID> billed;
    for (const Line& line : draft.lines)
        refuseIf(line.expenseID && !billed.insert(*line.expenseID).second, BooksError::Code::alreadyBilled);
    for (std::size_t i = 0; i < library.expenses.size(); ++i) {
        const Expense& expense = library.expenses[i];
        const bool wanted = billed.contains(expense.id);
        const bool marked = expense.rebilledInvoiceID == draft.id;
        if (wanted == marked) continue;
        refuseIf(wanted && expense.rebilledInvoiceID, BooksError::Code::alreadyBilled);
        const auto mark = wanted ? std::optional(draft.id) : billedInstead(library, expense.id, draft.id);
        library.expenses.update(i, [&mark](Expense& changed) { changed.rebilledInvoiceID = mark; });
    }
    return library;
}

/// The draft as the books keep it. Only invoices bill expenses, and only those that are there.
Document kept(const Library& library, Document draft) {
    for (Line& line : draft.lines)
        if (line.expenseID && (draft.kind != DocKind::invoice || !library.expense(*line.expenseID)))
            line.expenseID.reset();
    draft.number.reset();
    return settled(library, std::move(draft));
}

std::string baseName(const Document& document) {
    std::string name;
    for (const std::string_view character : Text::characters(*document.number))
        name += Text::isLetterOrDigit(character) || character == "_" ? character : "-";
    return std::string(Text::prefixBytes(name, 200));
}

}  // namespace

const Document& needDocument(const Library& library, const UUID& id, DocKind kind, BooksError::Code otherwise) {
    const Document* document = library.document(id);
    if (!document || document->kind != kind) throw BooksError(otherwise);
    return *document;
}

Library changed(Library library, const UUID& id, const std::function<void(Document&)>& change) {
    const std::size_t index = indexOf(library.documents, id);
    if (index < library.documents.size()) library.documents.update(index, change);
    return library;
}

std::vector<Line> copiesOf(const std::vector<Line>& lines) {
    std::vector<Line> copies = lines;
    for (Line& line : copies) {
        line.id = UUID::random();
        line.expenseID.reset();
    }
    return copies;
}

Document settled(const Library& library, Document document) {
    const Document* invoice =
        document.kind == DocKind::creditNote && document.linkedID ? library.document(*document.linkedID) : nullptr;
    if (invoice) {
        document.clientID = invoice->clientID;
        document.currency = invoice->currency;
        document.rateMicros = invoice->rateMicros;
        document.placeOfSupply = invoice->placeOfSupply;
        document.lut = invoice->lut;
        document.supply = invoice->supply;
    }
    if (Currency::of(document.currency).code == library.home().code) document.rateMicros = 1'000'000;
    return document;
}

Document withSupply(const Library& library, Document document) {
    const Client* client = clientOf(library, document);
    document.supply =
        PlaceOfSupply::supplyType(library.business.regime, library.business.supplierState(), document.placeOfSupply,
                                  client ? client->country : "IN", client && client->sez, document.lut);
    return document;
}

Library released(Library library, const UUID& invoice) {
    for (std::size_t i = 0; i < library.expenses.size(); ++i)
        if (const Expense& expense = library.expenses[i]; expense.rebilledInvoiceID == invoice) {
            const auto mark = billedInstead(library, expense.id, invoice);
            library.expenses.update(i, [&mark](Expense& changed) { changed.rebilledInvoiceID = mark; });
        }
    for (std::size_t i = 0; i < library.documents.size(); ++i)
        if (library.documents[i].kind == DocKind::estimate && library.documents[i].linkedID == invoice)
            library.documents.update(i, [](Document& estimate) { estimate.linkedID.reset(); });
    for (std::size_t i = 0; i < library.transactions.size(); ++i)
        if (library.transactions[i].invoiceID == invoice)
            library.transactions.update(i, [](BankTransaction& line) {
                line.invoiceID.reset();
                line.paymentID.reset();
            });
    return library;
}

Document newDocument(const Library& library, DocKind kind, const std::optional<UUID>& client, Day today) {
    Document document = Document::make(kind, today, today);
    document.currency = library.home().code;
    document.terms = library.business.terms;
    document.roundOff = library.business.roundTotals;
    if (const NumberSeries* series = library.defaultSeries(kind)) document.seriesID = series->id;
    return withClient(library, std::move(document), client);
}

Line newLine(const Library& library, const Document&) {
    return Line::make("", 1000, 0, chargesTax(library.business.regime) ? library.business.defaultTaxBP : 0);
}

Line lineOf(const Library& library, const Document& document, const CatalogItem& item) {
    Line line = newLine(library, document);
    line.name = item.name;
    line.detail = item.detail;
    line.hsn = item.hsn;
    line.unit = item.unit;
    line.priceMinor = fromHomeCurrency(library, document, item.priceMinor).value_or(0);
    if (chargesTax(library.business.regime)) line.taxBP = item.taxBP;
    return line;
}

Document withClient(const Library& library, Document document, const std::optional<UUID>& client) {
    document.clientID = client;
    const Client* found = clientOf(library, document);
    document = withCurrency(library, std::move(document),
                            found && !found->currency.empty() ? found->currency : library.home().code);
    return following(library, std::move(document), found);
}

Document withPlaceOfSupply(const Library& library, Document document, const std::optional<std::string>& place) {
    document.placeOfSupply = place;
    return withSupply(library, std::move(document));
}

Document withLUT(const Library& library, Document document, bool lut) {
    document.lut = lut;
    return withSupply(library, std::move(document));
}

Document withCurrency(const Library& library, Document document, std::string_view currency) {
    const Currency from = Currency::of(document.currency);
    const Currency to = Currency::of(currency);
    document.currency = to.code;
    document.rateMicros = to.code == library.home().code ? 1'000'000 : library.rate(to.code).value_or(0);
    // 118.00 rupees become 118 yen: the figures stay as people read them.
    for (Line& line : document.lines)
        if (isBelievable(line.priceMinor))
            line.priceMinor = MoneyMath::mulDiv(line.priceMinor, to.scale(), from.scale());
    return document;
}

Document withIssueDate(Document document, Day date) {
    document.dueDate = date.addingDays(document.issueDate.daysUntil(document.dueDate));
    document.issueDate = date;
    return document;
}

std::optional<BooksError> problem(const Library&, const Document& draft) {
    const auto figures = [](std::string sentence) { return BooksError(BooksError::Code::figures, sentence); };
    for (std::size_t i = 0; i < draft.lines.size(); ++i)
        if (const auto sentence = lineProblem(draft.lines[i], draft.supply, i + 1)) return figures(*sentence);
    if (draft.rateMicros < 0 || !isBelievable(draft.rateMicros)) return figures("The exchange rate can’t be right.");
    if (!DocMath::isBelievable(draft)) return figures("The total of the lines is too large to be right.");
    if (draft.kind != DocKind::creditNote && draft.dueDate < draft.issueDate)
        return BooksError(BooksError::Code::dueBeforeIssue);
    return {};
}

Library addDraft(Library library, Document draft) {
    if (library.document(draft.id)) return replaceDraft(std::move(library), std::move(draft));
    refuseIf(draft.state != DocState::draft, BooksError::Code::notDraft);
    draft = kept(library, std::move(draft));
    if (const auto refusal = problem(library, draft)) throw BooksError(*refusal);
    library = rebilled(std::move(library), draft);
    library.documents.append(std::move(draft));
    return library;
}

Library replaceDraft(Library library, Document draft) {
    const Document* old = library.document(draft.id);
    if (!old) return library;
    refuseIf(old->state != DocState::draft || draft.state != DocState::draft, BooksError::Code::notDraft);
    draft = kept(library, std::move(draft));
    if (const auto refusal = problem(library, draft)) throw BooksError(*refusal);
    library = rebilled(std::move(library), draft);
    return changed(std::move(library), draft.id, [&draft](Document& document) { document = draft; });
}

Library deleteDraft(Library library, const UUID& id) {
    const std::size_t index = indexOf(library.documents, id);
    if (index == library.documents.size()) return library;
    refuseIf(library.documents[index].state != DocState::draft, BooksError::Code::issuedCannotDelete);
    library.documents.erase(index);
    return released(std::move(library), id);
}

std::string fileName(const Library& library, const Document& document) {
    if (!document.number) {
        std::string kind(title(document.kind));
        return "Draft " + Text::lower(kind) + ".pdf";
    }
    // File systems that ignore case are served too. A number's place among those of one name decides, so that the name
    // of a kept file stays when documents are added.
    const std::string name = baseName(document);
    std::unordered_set<std::string> names;
    int earlier = 0;
    bool reached = false;
    for (const Document& other : library.documents) {
        if (!other.number) continue;
        reached = reached || other.id == document.id;
        const std::string otherName = Text::lower(baseName(other));
        names.insert(otherName);
        if (!reached && otherName == Text::lower(name)) ++earlier;
    }
    std::string result = name;
    for (int suffix = 2; earlier > 0; ++suffix) {
        result = name + "-" + std::to_string(suffix);
        if (!names.contains(Text::lower(result))) --earlier;
    }
    return result + ".pdf";
}

}  // namespace tamba::Books
