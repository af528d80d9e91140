#pragma once

#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Pages/Images.h"
#include "TambaCore/Pages/PageFlow.h"

#include <optional>
#include <string>
#include <vector>

/// The parts of a document's pages, each as rows for the flow. Figures come from `DocMath` and `Books`; nothing is
/// computed here but the running sum at the foot of a page.
namespace tamba::InvoiceParts {

/// Left and right edge of everything on the page.
inline constexpr double left = 48;
inline constexpr double right = 547.28;
inline constexpr double width = right - left;

/// Faces, sizes and colours.
struct Look {
    explicit Look(const std::string& accentHex);

    Color accent, ink, muted, hairline;
    PDFCanvas::Style body, quiet, strong, label, small, smallStrong, heading, title, number, total;
};

/// The document and its figures, worked out once.
struct Subject {
    Subject(const Library& library, const Document& document);

    const Library& library;
    const Document& document;
    Currency currency;
    std::optional<DocTotals> totals;  ///< nothing when the figures are beyond belief
};

[[nodiscard]] Row head(const Subject& subject, const Look& look, const std::optional<Image>& logo);
[[nodiscard]] Row parties(const Subject& subject, const Look& look);
/// The words for export and special economic zones; without columns where none are needed.
[[nodiscard]] Row endorsement(const Subject& subject, const Look& look);
void addLines(Flow& flow, const Subject& subject, const Look& look);
/// Amount in words, bank and UPI code at the left, the sums at the right.
[[nodiscard]] Row closing(const Subject& subject, const Look& look);
void addHSNSummary(Flow& flow, const Subject& subject, const Look& look);
/// Notes and terms at the left, the signature at the right.
[[nodiscard]] Row foot(const Subject& subject, const Look& look);

}  // namespace tamba::InvoiceParts
