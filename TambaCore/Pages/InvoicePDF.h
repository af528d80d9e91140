#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Pages/Images.h"
#include "TambaCore/Pages/PDFCanvas.h"

#include <optional>
#include <string>

/// Invoices, estimates and credit notes on A4. What must stand on each kind follows the CGST Rules 2017: tax invoice
/// rule 46, bill of supply rule 49, credit note rule 53(1A). The figures are those of `DocMath`; the parties are the
/// ones frozen at issue, on a draft those of today. Nothing asks the clock: the same books and document give the same
/// bytes. Amounts are never broken and no text is left out: what is too wide is wrapped or set smaller, what is too
/// long runs on overleaf. A document whose figures are beyond belief is printed without sums and says so.
namespace tamba::InvoicePDF {

/// "Tax Invoice", "Bill of Supply", "Invoice", "Credit Note", "Estimate".
[[nodiscard]] std::string title(const Library& library, const Document& document);
/// The whole file. `logo`: as `ImageFile::load` gives it; a missing or broken one leaves the space to the name.
[[nodiscard]] std::string render(const Library& library, const Document& document, const std::optional<Image>& logo);
/// The same pages on a canvas of A4 size; on a bitmap the first of them.
void draw(PDFCanvas& canvas, const Library& library, const Document& document, const std::optional<Image>& logo);
inline constexpr Size pageSize{595.28, 841.89};  ///< A4 in points

}  // namespace tamba::InvoicePDF
