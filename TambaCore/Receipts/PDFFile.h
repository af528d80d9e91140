#pragma once

#include "TambaCore/Receipts/ReceiptReader.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tamba {

/// The pages of a PDF. A file that is damaged or asks for a password does not open.
class PDFFile {
public:
    [[nodiscard]] static std::optional<PDFFile> open(const std::filesystem::path& file);
    PDFFile(PDFFile&&) noexcept;
    PDFFile& operator=(PDFFile&&) noexcept;
    ~PDFFile();

    [[nodiscard]] int pages() const;
    /// Rows of the page's text layer from the top, left to right, with wide gaps as two spaces. Empty when it has none.
    [[nodiscard]] std::vector<std::string> text(int page) const;
    /// The page at 200 dpi, less where it would be wider than `maximumWidth` or hold too many pixels.
    [[nodiscard]] std::optional<Raster> render(int page, Raster::Kind kind, int maximumWidth) const;

private:
    struct Document;
    explicit PDFFile(std::unique_ptr<Document> document);
    std::unique_ptr<Document> document_;
};

}  // namespace tamba
