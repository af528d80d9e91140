#pragma once

#include "TambaCore/Receipts/ReceiptReader.h"

#include <optional>
#include <string_view>

/// Pictures as they come from phones and scanners: decoded tolerantly (a JPEG with a bad code near its end still gives
/// a picture), turned upright (EXIF), of several images the first. Their declared size is read before any pixel is.
namespace tamba::PictureFile {

/// At most `maximumWidth` wide when upright, transparency laid on white. Nothing for what is no picture, is damaged
/// beyond reading, or is too large to decode in bounded time and memory.
[[nodiscard]] std::optional<Raster> decode(std::string_view bytes, Raster::Kind kind, int maximumWidth);

[[nodiscard]] Raster scaled(const Raster& grey, double factor);
/// Typical height in pixels of the dark specks that can be letters; 0 when there are none.
[[nodiscard]] double letterHeight(const Raster& grey);

}  // namespace tamba::PictureFile
