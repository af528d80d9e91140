#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// The syntax of MIME (RFC 2045–2047, RFC 2231), read as leniently as real messages need. All of it is linear in the
/// length of the text; nothing throws.
namespace tamba::MIME {

/// Decoded as far as it goes: what is not of the alphabet is skipped, a lost end costs the last bytes only.
[[nodiscard]] std::string base64(std::string_view text);
/// `inHeader`: "_" is a blank, as in encoded words.
enum class Place { body, header };
[[nodiscard]] std::string quotedPrintable(std::string_view text, Place place);
/// UTF-8 of bytes in a named character set. An unknown or missing name: UTF-8 where that is what they are, else
/// Windows-1252.
[[nodiscard]] std::string decoded(std::string_view bytes, std::string_view charset);
/// Encoded words decoded, white space between neighbours dropped.
[[nodiscard]] std::string decodedWords(std::string_view text);

/// A field such as "application/pdf; name=bill.pdf": value in lower case, parameters by lower-cased name, continuations
/// joined and character sets decoded.
struct Field {
    std::string value;
    std::map<std::string, std::string> parameters;
    [[nodiscard]] std::string_view operator[](const std::string& name) const;
};
[[nodiscard]] Field field(std::string_view text);

/// The parts between the lines of a boundary, at most `limit`. The last may be unclosed. A missing boundary is guessed
/// from the first line that begins with two hyphens. No parts when there is no such line.
[[nodiscard]] std::vector<std::string_view> parts(std::string_view body, std::string_view boundary, std::size_t limit);

/// Header and body, parted at the first blank line.
struct Halves {
    std::string_view header, body;
};
[[nodiscard]] Halves halves(std::string_view text);

/// The next line of `text` from `at` on, without its line end; `at` moves behind it.
[[nodiscard]] std::string_view nextLine(std::string_view text, std::size_t& at);

}  // namespace tamba::MIME
