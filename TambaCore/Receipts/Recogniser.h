#pragma once

#include "TambaCore/Receipts/ReceiptReader.h"

#include <atomic>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tamba {

/// Recognises the text of grey pictures. Making one loads the language model (70 ms); one thread at a time.
class Recogniser {
public:
    Recogniser();
    ~Recogniser();

    /// Boxes of text that was printed together: a line, cut where a wide gap shows a column. Misread digits and rupee
    /// signs are mended. Throws `ReceiptReader::Cancelled`.
    using Observations = std::vector<std::pair<TextBox, std::string>>;
    /// `uneven`: a block whose paper is darker in one place than in another, faded or framed in black.
    enum class Layout { block, sparse, uneven };
    [[nodiscard]] Observations observations(const Raster& grey, Layout layout, const std::atomic<bool>* cancel);

    /// Misread figures of a recognised line put right: "39. 80" is 39.80, "2,10" is 2.10, "1O5" is 105. Only for text
    /// that comes from a picture.
    [[nodiscard]] static std::string repairedDigits(std::string_view text);
    /// On a page with figures like 1,23,456 a "221,237.00" was ₹21,237.00.
    static void mendGroups(Observations& observations);

private:
    struct Engine;
    std::unique_ptr<Engine> engine_;
};

}  // namespace tamba
