#pragma once

#include "TambaCore/Receipts/OwnProcess.h"
#include "TambaCore/Receipts/ReceiptReader.h"

#include <atomic>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tamba {

/// The pages of a PDF. A file that is damaged or asks for a password does not open. All of it is read in processes of
/// their own, within one time for the whole file: a page can be made to take for ever, and the library cannot be
/// stopped.
class PDFFile {
public:
    [[nodiscard]] static std::optional<PDFFile> open(const std::filesystem::path& file,
                                                     const std::atomic<bool>* cancel = nullptr);

    [[nodiscard]] int pages() const { return pages_; }
    /// Rows of the page's text layer from the top, left to right, with wide gaps as two spaces. Empty when it has none,
    /// nothing when it cannot be read in time.
    [[nodiscard]] std::optional<std::vector<std::string>> text(int page) const;
    /// The page at 200 dpi, less where it would be wider than `maximumWidth` or hold too many pixels; nothing when it
    /// cannot be rendered in time.
    [[nodiscard]] std::optional<Raster> render(int page, Raster::Kind kind, int maximumWidth) const;

private:
    std::filesystem::path file_;
    const std::atomic<bool>* cancel_ = nullptr;
    Deadline deadline_;
    int pages_ = 0;
};

}  // namespace tamba
