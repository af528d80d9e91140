#include "TambaCLI/Arguments.h"
#include "TambaCLI/DocCommands.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Rebilling.h"

#include <algorithm>
#include <iostream>

namespace tamba::cli {
namespace {

/// "2: price=2600": the number of a line and what becomes of it.
void change(Document& draft, const std::string& typed, const Currency& currency) {
    const std::size_t colon = typed.find(':');
    if (colon == std::string::npos) throw Refusal("“" + typed + "” is not a change such as “2: price=2600”.");
    const std::int64_t number = wholeNumberOf(typed.substr(0, colon), "line number");
    if (number < 1 || number > static_cast<std::int64_t>(draft.lines.size()))
        throw Refusal("There is no line " + std::to_string(number) + ".");
    Line& line = draft.lines[static_cast<std::size_t>(number - 1)];
    line = lineFrom(typed.substr(colon + 1), line, currency);
}

void drop(Document& draft, std::vector<int> numbers) {
    std::sort(numbers.rbegin(), numbers.rend());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    for (const int number : numbers) {
        if (number < 1 || number > static_cast<int>(draft.lines.size()))
            throw Refusal("There is no line " + std::to_string(number) + ".");
        draft.lines.erase(draft.lines.begin() + (number - 1));
    }
}

/// With a line for each expense that can be billed on to the draft's client.
Document withExpenses(const Library& library, Document draft) {
    std::vector<UUID> expenses;
    for (const Expense* expense : Rebilling::candidates(library, draft)) expenses.push_back(expense->id);
    if (expenses.empty()) throw Refusal("There is nothing to bill on to this client.");
    return Rebilling::withExpenses(library, std::move(draft), expenses);
}

/// The draft with what was typed. Client, date and currency come first: the rest follows from them.
Document withEntry(const Library& library, Document draft, const DocEntry& entry) {
    if (entry.client)
        draft = Books::withClient(library, std::move(draft), named(library.clients, *entry.client, "client").id);
    if (entry.date) draft = Books::withIssueDate(std::move(draft), *entry.date);
    if (entry.due) draft.dueDate = *entry.due;
    if (entry.place) draft = Books::withPlaceOfSupply(library, std::move(draft), stateCode(*entry.place));
    if (entry.lut) draft = Books::withLUT(library, std::move(draft), *entry.lut);
    if (entry.currency) draft = Books::withCurrency(library, std::move(draft), currencyCode(*entry.currency));
    if (entry.rate) {
        const std::int64_t rate = exchangeRateOf(*entry.rate);
        if (draft.currency == library.business.homeCurrency)
            throw Refusal("A document in " + draft.currency + " needs no exchange rate.");
        draft.rateMicros = rate;
    }
    if (entry.reference) draft.reference = *entry.reference;
    if (entry.notes) draft.notes = *entry.notes;
    if (entry.terms) draft.terms = *entry.terms;

    const Currency currency = Currency::of(draft.currency);
    for (const std::string& typed : entry.changed) change(draft, typed, currency);
    drop(draft, entry.dropped);
    for (const std::string& typed : entry.lines)
        draft.lines.push_back(lineFrom(typed, Books::newLine(library, draft), currency));
    for (const std::string& name : entry.items)
        draft.lines.push_back(Books::lineOf(library, draft, named(library.items, name, "item")));
    return entry.billExpenses ? withExpenses(library, std::move(draft)) : draft;
}

/// Saves the books and prints a document of them.
int shown(const Context& context, LibrarySession& session, Library library, const UUID& id) {
    printDocument(context, save(session, library), id);
    return 0;
}

}  // namespace

int newDocument(const Context& context, const DocEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    Document draft = withEntry(library, Books::newDocument(library, entry.kind, std::nullopt, context.today), entry);
    const UUID id = draft.id;
    return shown(context, session, Books::addDraft(library, std::move(draft)), id);
}

int editDocument(const Context& context, const std::string& typed, const DocEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const Document& before = documentOf(library, typed);
    if (before.state != DocState::draft) throw BooksError(BooksError::Code::notDraft);
    return shown(context, session, Books::replaceDraft(library, withEntry(library, before, entry)), before.id);
}

int deleteDocument(const Context& context, const std::string& typed) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const Document document = documentOf(library, typed);
    const std::string client = clientName(library, document);
    save(session, Books::deleteDraft(library, document.id));
    if (context.json)
        std::cout << JSON::object().add("deleted", document.id.text()).text() << "\n";
    else
        std::cout << "Deleted the draft " << Text::lower(Books::title(document.kind))
                  << (client.empty() ? "" : " for " + oneLine(client)) << ".\n";
    return 0;
}

int duplicateDocument(const Context& context, const std::string& typed) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    Document draft = Books::duplicateOf(library, documentOf(library, typed).id, context.today);
    const UUID id = draft.id;
    return shown(context, session, Books::addDraft(library, std::move(draft)), id);
}

int convertEstimate(const Context& context, const std::string& typed) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const UUID estimate = documentOf(library, typed).id;
    Document draft = Books::invoiceFrom(library, estimate, context.today);
    const UUID id = draft.id;
    return shown(context, session, Books::convertEstimate(library, estimate, std::move(draft)), id);
}

int creditDocument(const Context& context, const CreditEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    Library library = existing(session);
    const Day date = entry.date.value_or(context.today);
    Document note = Books::creditNoteFor(library, documentOf(library, entry.document).id, date);
    note.reason = entry.reason;
    if (!entry.lines.empty()) {
        // What a line does not say is as on the invoice: its rate and code.
        const Line pattern = note.lines.empty() ? Books::newLine(library, note) : note.lines.front();
        note.lines.clear();
        for (const std::string& typed : entry.lines) {
            Line line = Books::newLine(library, note);
            line.taxBP = pattern.taxBP;
            line.hsn = pattern.hsn;
            note.lines.push_back(lineFrom(typed, std::move(line), Currency::of(note.currency)));
        }
    }
    const UUID id = note.id;
    library = Books::addDraft(std::move(library), std::move(note));
    if (entry.issue) library = issued(library, *library.document(id), date);
    return shown(context, session, std::move(library), id);
}

}  // namespace tamba::cli
