#pragma once

#include "TambaCore/Model/Changes.h"
#include "TambaCore/Model/Models.h"

/// Deciding a conflict of a merge the other way. A merge keeps one side's value and names the other's; a person who
/// knows better takes it from the books of that side.
///
///     if (Conflicts::isOpen(merged, conflict, theirs))
///         merged = Conflicts::taking(std::move(merged), conflict, theirs);
namespace tamba::Conflicts {

/// Whether there is a choice. There is none about documents that were issued, which change only as documents do, about
/// links between records, whose other end would be left behind, about payments and receipts, of which none of either
/// side is lost, nor about taking away a record that others name. `other`: the books of the side that was not kept.
[[nodiscard]] bool isOpen(const Library& merged, const Conflict& conflict, const Library& other);
/// The books with the field, or the absence of the record, as `other` has it. Unchanged where nothing is open.
[[nodiscard]] Library taking(Library merged, const Conflict& conflict, const Library& other);

}  // namespace tamba::Conflicts
