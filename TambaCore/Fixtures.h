#pragma once

#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Model/Models.h"

/// Sample books of a design studio in Pune that does not exist, to be looked at before one's own are begun, and to be
/// tested and measured with. Nothing asks the clock or the random source: the same day gives the same books.
///
///     Fixtures::write(LibraryStore(folder), Day::today());   // tamba-cli sample DIR
namespace tamba::Fixtures {

/// The last whole financial year and this one up to `today`. The receipts' paths are those that `write` files them
/// under.
[[nodiscard]] Library library(Day today);
/// The same, with its receipts made and filed, saved in the store's folder, which is to be empty. Throws `StoreError`.
void write(const LibraryStore& store, Day today);

/// Valid books of any size over the five years before `today`: one expense in three has 600 characters of `ocrText`,
/// every invoice has four lines. No files belong to them.
[[nodiscard]] Library large(int expenses, int invoices, int bankLines, Day today);

}  // namespace tamba::Fixtures
