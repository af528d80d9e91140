#pragma once

#include "TambaCore/Model/Models.h"

#include <string>
#include <vector>

/// What a backup holds, and what going back to it would change, in words. Pure.
namespace tamba {

/// "214 expenses · 38 invoices · 12 clients · 96 bank lines"; "No records".
[[nodiscard]] std::string countsText(const Library& library);
/// What would be different in the books: "12 expenses fewer, 1 more and 3 changed". One text a list; empty when nothing
/// would.
[[nodiscard]] std::vector<std::string> changesText(const Library& present, const Library& backup);

}  // namespace tamba
