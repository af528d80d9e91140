#pragma once

#include <cstdint>
#include <string_view>

/// What banks print around and between the lines of a statement, told by its words.
namespace tamba::BankImport {

/// Rows that belong to the statement's frame. Behind its `end` stand legends and addresses only.
enum class Footer : std::uint8_t { none, row, opening, end };
[[nodiscard]] Footer footer(std::string_view text);

/// States in which the bank has moved no money, or not yet.
[[nodiscard]] bool isUnfinished(std::string_view state);

/// A quotation mark that was never closed has drawn the following lines into one cell: one of them has cells of its
/// own, and a date among them.
[[nodiscard]] bool swallowsLines(std::string_view cell);

/// What card issuers print beside money that comes back; spending is never called so.
[[nodiscard]] bool isRepayment(std::string_view text);

}  // namespace tamba::BankImport
