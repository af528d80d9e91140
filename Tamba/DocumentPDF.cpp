#include "Tamba/DocumentPDF.h"

#include "TambaCore/Documents/BooksError.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Pages/InvoicePDF.h"

namespace tamba::DocumentPDF {

std::string make(const Library& library, const Document& document, const LibraryStore& store) {
    if (!DocMath::isBelievable(document))
        throw BooksError(BooksError::Code::figures,
                         "A figure of this document cannot be right, so its page cannot be made.");
    const auto file = store.logo(library.business);
    return InvoicePDF::render(library, document, file ? ImageFile::load(*file) : std::nullopt);
}

}  // namespace tamba::DocumentPDF
