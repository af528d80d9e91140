#pragma once

#include "TambaCore/Documents/BooksError.h"
#include "TambaCore/Model/Models.h"

#include <cstddef>
#include <optional>
#include <string_view>

/// Category rules: what a vendor or narration holds, and the category and vendor an expense then gets. They are tried
/// in their order, the first that fits is the one (`Expenses::rule`). Each operation takes the books and gives the
/// changed books; an id that is not there changes nothing.
///
///     if (const auto rule = Rules::ruleFrom(library, corrected)) library = Rules::put(std::move(library), *rule);
namespace tamba::Rules {

/// The expense as the rules have it: vendor, where the first that fits its vendor or the narration names one, and
/// category; without one that of the vendor's latest expense, else none.
[[nodiscard]] Expense applied(const Library& library, Expense expense, std::string_view narration);

/// The rule that would have made what a person made of an expense: its category, its vendor if they renamed it. It
/// looks for the telling words of the counterparty of its bank line, or of the vendor. Nothing without a category, or
/// where there are no words that would find the next line.
[[nodiscard]] std::optional<CategoryRule> ruleFrom(const Library& library, const Expense& corrected);

/// Replaces the rule with its id, or with its text (case ignored). A new one goes before the first that would always
/// fit first ("amazon web services" before "amazon"), else to the end. Throws `rule`: no text, no such category.
[[nodiscard]] Library put(Library library, CategoryRule rule);
[[nodiscard]] Library remove(Library library, const UUID& id);
/// To that place among the others; one beyond the end is the end.
[[nodiscard]] Library move(Library library, const UUID& id, std::size_t position);

}  // namespace tamba::Rules
