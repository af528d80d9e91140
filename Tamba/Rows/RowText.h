#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tamba {
struct Document;
}

/// The texts of rows in the language of the windows. The row builders know no Qt: they name their English texts here,
/// with the context "Rows" under which the translation files list them, and what translates is put in at the start.
///
///     row.due = RowText::filled(RowText::translate("Rows", "Due %1"), {day});
namespace tamba::RowText {

using Translator = std::string (*)(const char* context, const char* text);
/// Once, before the first row is built. Until then all texts are English.
void install(Translator translator);
[[nodiscard]] bool isTranslated();

[[nodiscard]] std::string translate(const char* context, std::string_view text);
/// The text with each of %1, %2 … replaced by its value; what a value itself holds stays as it is.
[[nodiscard]] std::string filled(std::string_view text, std::initializer_list<std::string_view> values);
/// Of one thing the first text, of any other number the second, with the number as %1 and `further` as %2 in either.
[[nodiscard]] std::string counted(std::size_t count, const char* one, const char* many, std::string_view further = {});
/// A document’s number, or "Draft".
[[nodiscard]] std::string number(const Document& document);
/// Lists a text for translation where it is kept in a table; shown through `translate` or `counted`.
[[nodiscard]] constexpr const char* marked(const char* /*context*/, const char* text) { return text; }

}  // namespace tamba::RowText
