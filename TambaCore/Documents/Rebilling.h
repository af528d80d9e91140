#pragma once

#include "TambaCore/Documents/BooksError.h"
#include "TambaCore/Model/Models.h"

#include <vector>

/// Costs passed on to a client. They are part of the value of the service and carry GST at its rate, whatever the
/// receipt had (CGST Act 2017, section 15(2)(c)); where the input tax is claimed back the cost without tax is billed,
/// else what was paid.
namespace tamba::Rebilling {

/// Billable expenses on no invoice yet that fit the draft's client: theirs first, then those without a client; by date.
[[nodiscard]] std::vector<const Expense*> candidates(const Library& library, const Document& draft);
/// The draft with a line for each expense, at the tax rate and HSN code of its first line, in its currency at its rate.
/// Not yet in the books: `Books::replaceDraft` marks the expenses as billed. Throws `notDraft`, `notInvoice`,
/// `alreadyBilled`, `missingRate` (of the expense, or of the draft's own currency).
[[nodiscard]] Document withExpenses(const Library& library, Document draft, const std::vector<UUID>& expenses);

}  // namespace tamba::Rebilling
