#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamba {

/// A picture in memory: 8 bits a channel, red green blue alpha, not premultiplied, rows from the top without padding.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
    /// When not empty, the same picture as a JPEG file. A PDF then holds these bytes instead of the pixels, which for a
    /// photograph are ten times as large.
    std::string jpeg;

    /// White, opaque.
    [[nodiscard]] static Image blank(int width, int height);
    /// No larger than width × height: each pixel is the mean of those it stands for. Unchanged when it is smaller.
    [[nodiscard]] Image scaledDown(int width, int height) const;
    [[nodiscard]] std::uint8_t* at(int x, int y) { return pixels.data() + offset(x, y); }
    [[nodiscard]] const std::uint8_t* at(int x, int y) const { return pixels.data() + offset(x, y); }
    bool operator==(const Image&) const = default;

private:
    [[nodiscard]] std::size_t offset(int x, int y) const {
        return 4 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x));
    }
};

/// Picture files. Reads PNG, JPEG, GIF, TIFF, WebP; at most 100 megapixels.
namespace ImageFile {

/// Nothing when the bytes are no picture.
[[nodiscard]] std::optional<Image> decode(std::string_view bytes);
/// Nothing when the file is missing or no picture.
[[nodiscard]] std::optional<Image> load(const std::filesystem::path& file);

[[nodiscard]] std::string png(const Image& image);
/// `quality` 1–100. Transparency is laid on white.
[[nodiscard]] std::string jpeg(const Image& image, int quality);
/// Throw `FileError` when the file cannot be written.
void writePNG(const Image& image, const std::filesystem::path& file);
void writeJPEG(const Image& image, const std::filesystem::path& file, int quality);

}  // namespace ImageFile
}  // namespace tamba
