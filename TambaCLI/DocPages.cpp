#include "TambaCLI/Arguments.h"
#include "TambaCLI/DocCommands.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Reminders.h"
#include "TambaCore/Pages/InvoicePDF.h"

#include <iostream>

namespace tamba::cli {
namespace {

std::string pdfOf(const Library& library, const Document& document, const LibraryStore& store) {
    if (!DocMath::isBelievable(document))
        throw Refusal("A figure of this document can’t be right, so its page can’t be made.");
    const auto logo = store.logo(library.business);
    return InvoicePDF::render(library, document, logo ? ImageFile::load(*logo) : std::nullopt);
}

void write(const std::string& file, const std::string& bytes) {
    if (file == "-") {
        std::cout << bytes;
        return;
    }
    writeFile(file, bytes);
}

/// Who sends: the business.
std::string sender(const Business& business) {
    if (business.email.empty()) return {};
    return business.name.empty() ? business.email : business.name + " <" + business.email + ">";
}

}  // namespace

int writePDF(const Context& context, const PageOptions& options) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const Document& document = documentOf(library, options.document);
    if (!document.number && options.output.empty())
        throw Refusal("The PDF of a draft is not kept with the books. Name a file for it with --output.");
    if (context.json && options.output == "-")
        throw Refusal("Standard output holds the PDF or JSON, not both. Name a file with --output.");
    const std::string pdf = pdfOf(library, document, session.store());
    std::string kept;
    if (document.number) kept = session.store().keepInvoice(Books::fileName(library, document), pdf);
    if (!options.output.empty()) write(options.output, pdf);
    if (options.output == "-") return 0;
    if (context.json) {
        JSON object = JSON::object();
        if (!kept.empty()) object.add("kept", kept);
        if (!options.output.empty()) object.add("file", options.output);
        std::cout << object.add("size", static_cast<std::int64_t>(pdf.size())).text() << "\n";
        return 0;
    }
    if (!kept.empty()) std::cout << "Kept " << kept << " with the books.\n";
    if (!options.output.empty()) std::cout << "Wrote " << oneLine(options.output) << ".\n";
    return 0;
}

int writeMail(const Context& context, const PageOptions& options) {
    LibrarySession session(context.folder, options.sent ? LibrarySession::Access::write : LibrarySession::Access::read);
    const Library& library = existing(session);
    const Document& document = documentOf(library, options.document);
    const Reminders::Draft draft = options.reminder ? Reminders::reminder(library, document, context.today)
                                                    : Reminders::sending(library, document, context.today);
    const std::string message =
        Reminders::message(draft, sender(library.business), pdfOf(library, document, session.store()), context.now);
    const bool toFile = !options.output.empty() && options.output != "-";
    if (toFile || !context.json) write(toFile ? options.output : "-", message);
    if (options.sent)
        save(session, options.reminder ? Reminders::recordReminder(library, document.id, context.today)
                                       : Books::markSent(library, document.id, context.today));
    if (context.json)
        std::cout << JSON::object()
                         .add(toFile ? "file" : "message", toFile ? options.output : message)
                         .add("to", draft.to)
                         .text()
                  << "\n";
    else if (toFile)
        std::cout << "Wrote " << oneLine(options.output)
                  << (draft.to.empty() ? ". It has no address yet." : " to " + oneLine(draft.to) + ".") << "\n";
    return 0;
}

int listReminders(const Context& context) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const Books::Standings standings(library, context.today);
    std::vector<std::pair<Books::Standing, const Document*>> late;
    for (const Document& document : library.documents)
        if (const auto standing = standings.of(document); standing && standing->status == DocStatus::overdue)
            late.emplace_back(*standing, &document);
    std::stable_sort(late.begin(), late.end(),
                     [](const auto& a, const auto& b) { return a.first.daysLate > b.first.daysLate; });
    if (context.json) {
        JSON records = JSON::array();
        for (const auto& [standing, document] : late)
            records.append(JSON::object()
                               .add("id", document->id.text())
                               .add("number", document->number)
                               .add("client", clientName(library, *document))
                               .add("balance", standing.balance)
                               .add("currency", document->currency)
                               .add("daysLate", standing.daysLate)
                               .add("remindersSent", std::int64_t{document->remindersSent})
                               .add("lastReminder", document->lastReminder)
                               .add("next", Reminders::title(Reminders::tone(*document))));
        std::cout << records.text() << "\n";
        return 0;
    }
    if (late.empty()) {
        std::cout << "Nobody is late.\n";
        return 0;
    }
    using enum Table::Align;
    Table table({{"Number"}, {"Client"}, {"Balance", right}, {"Days late", right}, {"Reminders"}, {"Next"}});
    for (const auto& [standing, document] : late)
        table.add({document->displayNumber(), clientName(library, *document),
                   MoneyFormat::string(standing.balance, Currency::of(document->currency)),
                   std::to_string(standing.daysLate),
                   document->remindersSent == 0
                       ? "none"
                       : std::to_string(document->remindersSent) +
                             (document->lastReminder ? ", last " + document->lastReminder->iso() : ""),
                   std::string(Reminders::title(Reminders::tone(*document)))});
    std::cout << table.text();
    return 0;
}

}  // namespace tamba::cli
