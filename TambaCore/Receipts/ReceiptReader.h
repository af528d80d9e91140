#pragma once

#include <atomic>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tamba {

/// A picture in memory: 8-bit grey, or 32-bit RGBA (not premultiplied), rows without padding.
struct Raster {
    enum class Kind { grey, rgba };
    Kind kind = Kind::rgba;
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
};

/// Box of a piece of recognised text; y grows downwards.
struct TextBox {
    double x = 0, y = 0, width = 0, height = 0;
};

class Recogniser;

/// Gets lines of text out of pictures (JPEG, PNG, TIFF, WebP, GIF, BMP, HEIC) and PDFs, on this machine. What a file is
/// is told by its content. One engine is made at the first use and kept: make one reader per worker thread and reuse
/// it. Bounded for hostile files: three pages of a PDF, 100 megapixels of a picture (200 of a JPEG), ten seconds of
/// recognition a page.
class ReceiptReader {
public:
    class ReadError : public std::exception {
    public:
        enum class Code { unreadable, empty };
        explicit ReadError(Code code) : code_(code) {}
        [[nodiscard]] Code code() const { return code_; }
        [[nodiscard]] const char* what() const noexcept override;

    private:
        Code code_;
    };
    /// Thrown out of a reading that `cancel` ended.
    struct Cancelled {};

    ReceiptReader();
    ~ReceiptReader();
    ReceiptReader(const ReceiptReader&) = delete;
    ReceiptReader& operator=(const ReceiptReader&) = delete;

    /// How a picture is recognised. `block` is best by far for a first look; the others are slower looks for what it
    /// did not give: scattered text; faded or unevenly lit text, scaled to the letter size that is read best.
    enum class Pass { block, sparse, faded };
    struct Lines {
        std::vector<std::string> lines;
        bool recognised = false;  ///< some came from a picture, not from a text layer
    };
    /// Printed lines of a picture, or of the first three pages of a PDF (its text layer where it has one). Throws
    /// `unreadable` for what is neither or is encrypted, `empty` when no text was found, `Cancelled`.
    [[nodiscard]] Lines lines(const std::filesystem::path& file, const std::atomic<bool>* cancel = nullptr,
                              Pass pass = Pass::block);
    /// Printed lines of a grey picture; none when it shows no text.
    [[nodiscard]] std::vector<std::string> ocr(const Raster& grey, Pass pass = Pass::block,
                                               const std::atomic<bool>* cancel = nullptr);

    /// A page of a PDF, or a picture (page 0), in colour, upright and at most `maximumWidth` wide, for the screen.
    /// Throws `unreadable`.
    [[nodiscard]] static Raster picture(const std::filesystem::path& file, int page, int maximumWidth);
    [[nodiscard]] static int pageCount(const std::filesystem::path& file);

    /// Rebuilds printed lines from boxes: a box joins the row whose first box's centre is nearer than 0.55 of the
    /// larger height; rows from the top, each left to right, joined by two spaces.
    [[nodiscard]] static std::vector<std::string> joinRows(std::vector<std::pair<TextBox, std::string>> observations);

private:
    std::unique_ptr<Recogniser> recogniser_;
};

}  // namespace tamba
