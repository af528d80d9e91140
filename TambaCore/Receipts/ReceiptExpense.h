#pragma once

#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Receipts/Receipts.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// From a guess to a filed expense.
namespace tamba::ReceiptExpense {

/// Fills `blank` (fresh id and time, made by the caller) from a guess: vendor, date (else `today`), amount, currency as
/// read (else home) with its kept rate, tax split by the vendor's and the business's state, category and method from
/// `CategoryRule`s and the vendor's earlier expenses, `claimTax` from the category, the text read, and in `check` why
/// it wants a look.
[[nodiscard]] Expense expense(const Library& library, const ReceiptGuess& guess, Expense blank, Day today);

/// Files the result: copies its files into the month's folder, appends the expense. When one copy fails those already
/// made go to Removed/ and the error passes on: the books stay as they were.
struct Filed {
    Library library;
    UUID expenseID;
};
[[nodiscard]] Filed file(Library library, const LibraryStore& store, const ReceiptScanner::Result& result,
                         Expense blank, Day today);

/// The expense that already holds a file with the same bytes, or nothing.
[[nodiscard]] std::optional<UUID> holding(const Library& library, const LibraryStore& store,
                                          const std::filesystem::path& file);

}  // namespace tamba::ReceiptExpense
