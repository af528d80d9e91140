#include "TambaCLI/Arguments.h"
#include "TambaCLI/DocCommands.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Documents/Books.h"
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
    try {
        Files::writeAtomically(std::filesystem::absolute(file), bytes);
    } catch (const FileError& error) {
        throw Refusal("“" + oneLine(file) + "” couldn’t be written: " + error.what() + ".");
    }
}

}  // namespace

int writePDF(const Context& context, const PageOptions& options) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const Document& document = documentOf(library, options.document);
    if (!document.number && options.output.empty())
        throw Refusal("The PDF of a draft is not kept with the books. Name a file for it with --output.");
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

}  // namespace tamba::cli
