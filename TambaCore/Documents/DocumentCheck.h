#pragma once

#include "TambaCore/Model/LibraryCheck.h"
#include "TambaCore/Model/Models.h"

#include <vector>

/// Looks for documents at odds with each other, as two machines can leave them that worked on the same books before
/// they met: each step was right beside what its machine knew. Names, beside what `LibraryCheck` finds,
/// - payments on a draft or void invoice, and issued credit notes for one (`voidSettled`);
/// - an invoice on which more was paid or credited than it comes to (`overSettled`); what rounding the totals of its
///   notes can make is none, and a refund that is due is none either;
/// - an expense on more than one invoice (`billedTwice`).
/// Changes nothing. Linear in the number of records.
namespace tamba::DocumentCheck {

/// In the order of the books.
[[nodiscard]] std::vector<LibraryCheck::Problem> problems(const Library& library);

}  // namespace tamba::DocumentCheck
