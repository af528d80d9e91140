#pragma once

#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Model/Models.h"

#include <string>

/// The page of a document as it is shown, printed, kept and sent: one way to make it, so that they never differ.
namespace tamba::DocumentPDF {

/// The PDF with the business's logo; a logo that cannot be read is left out. Throws `BooksError` where a figure of the
/// document is beyond belief. Any thread.
[[nodiscard]] std::string make(const Library& library, const Document& document, const LibraryStore& store);

}  // namespace tamba::DocumentPDF
