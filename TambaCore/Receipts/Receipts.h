#pragma once

#include "TambaCore/Receipts/ReceiptParser.h"
#include "TambaCore/Receipts/ReceiptReader.h"

#include <atomic>
#include <filesystem>
#include <vector>

/// The front door of receipts: one dropped file (photo, PDF, saved e-mail) in, a guess and the files to attach out.
///
///     ReceiptReader reader;
///     auto result = ReceiptScanner::scan(reader, "bill.jpg", DateOrder::dmy, today);
namespace tamba::ReceiptScanner {

struct Result {
    ReceiptGuess guess;
    std::vector<std::filesystem::path> files;  ///< in the order they are to be attached
    /// Those of `files` that were written for this result (a PDF taken out of an e-mail); the caller removes them.
    std::vector<std::filesystem::path> temporary;
};

/// Reads one file. Throws `ReceiptReader::ReadError` and `ReceiptReader::Cancelled`.
[[nodiscard]] Result scan(ReceiptReader& reader, const std::filesystem::path& file, DateOrder order, Day today,
                          const std::atomic<bool>* cancel = nullptr);

}  // namespace tamba::ReceiptScanner
