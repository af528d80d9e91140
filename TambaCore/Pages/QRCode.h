#pragma once

#include "TambaCore/Pages/Images.h"
#include "TambaCore/Pages/PDFCanvas.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// QR codes (ISO/IEC 18004) with error correction level M, as pictures and as vector squares, and reading them.
namespace tamba::QRCode {

/// Cells of a code, row by row, without its quiet zone.
struct Modules {
    int size = 0;
    std::vector<bool> dark;

    [[nodiscard]] bool at(int x, int y) const;
};
/// Nothing when the text is too long for any code.
[[nodiscard]] std::optional<Modules> modules(std::string_view text);
/// One pixel a module times `scale`, without a quiet zone; nothing when the text is too long for any code.
[[nodiscard]] std::optional<Image> image(std::string_view text, double scale);
/// Draws the code with its quiet zone of four modules into a square of `side` points at (x, y), dark on white. False,
/// with nothing drawn, when the text is too long.
bool draw(PDFCanvas& canvas, std::string_view text, double x, double y, double side);

/// Texts of all codes found in a picture.
[[nodiscard]] std::vector<std::string> read(const Image& image);

}  // namespace tamba::QRCode
