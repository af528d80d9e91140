#pragma once

#include "TambaCore/Pages/Images.h"

#include <functional>
#include <string_view>
#include <vector>

namespace tamba::PDFPages {

/// Each page of a PDF as a picture `pixelWidth` pixels wide, in order; none for bytes that are no PDF. For files made
/// here: a stranger's file may take for ever, and is the receipt reader's.
[[nodiscard]] std::vector<Image> images(std::string_view pdf, int pixelWidth);
/// The same, one page after another: large pages of a long document do not fit into memory together.
void eachImage(std::string_view pdf, int pixelWidth, const std::function<void(const Image& page)>& take);

}  // namespace tamba::PDFPages
