#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Text as people see it. All text in Tamba is UTF-8; a byte that is not is read as U+FFFD. "Character" means the
/// user-perceived one (an extended grapheme cluster, UAX #29), judged by its first code point: हिन्दी has its vowel
/// signs with it. No result depends on the locale of the process.
namespace tamba::Text {

/// Without white space and line breaks (Unicode White_Space) at both ends.
[[nodiscard]] std::string_view trim(std::string_view text);
/// Without any of the given ASCII characters at both ends.
[[nodiscard]] std::string_view trim(std::string_view text, std::string_view asciiCharacters);

[[nodiscard]] std::string lower(std::string_view text);
[[nodiscard]] std::string upper(std::string_view text);
/// Each word with a capital first letter and the rest small; words are split at white space.
[[nodiscard]] std::string capitalised(std::string_view text);

/// The code point at byte `at`, which is moved behind it; U+FFFD for bytes that are no UTF-8.
[[nodiscard]] char32_t codePoint(std::string_view text, std::size_t& at);
/// The text's characters, each a view into `text`.
[[nodiscard]] std::vector<std::string_view> characters(std::string_view text);
[[nodiscard]] std::size_t length(std::string_view text);
/// The first `count` characters.
[[nodiscard]] std::string_view prefix(std::string_view text, std::size_t count);
/// As much of the text's beginning as fits in `bytes`, cut between two characters.
[[nodiscard]] std::string_view prefixBytes(std::string_view text, std::size_t bytes);
/// True when the character's first code point is a letter (L*) or, for the second, a letter or a digit (N*).
[[nodiscard]] bool isLetter(std::string_view character);
[[nodiscard]] bool isLetterOrDigit(std::string_view character);
/// Only those characters that are letters or digits, in any script.
[[nodiscard]] std::string lettersAndDigits(std::string_view text);

[[nodiscard]] bool contains(std::string_view text, std::string_view part);
[[nodiscard]] std::string replaceAll(std::string text, std::string_view from, std::string_view to);
/// Pieces between the separators; empty pieces are kept.
[[nodiscard]] std::vector<std::string> split(std::string_view text, char separator);
/// Pieces between line ends (LF, CR LF or CR); empty pieces are kept.
[[nodiscard]] std::vector<std::string> splitLines(std::string_view text);
[[nodiscard]] std::string join(const std::vector<std::string>& pieces, std::string_view separator);
/// Order for people: letters compared without case and accents first (root collation), ties by bytes.
[[nodiscard]] int compareForPeople(std::string_view a, std::string_view b);

[[nodiscard]] bool isUTF8(std::string_view bytes);
/// Bytes that are no UTF-8 replaced by U+FFFD, so that what comes from outside can be kept and written.
[[nodiscard]] std::string repairedUTF8(std::string_view bytes);
/// Decodes bytes of a named character set (IANA name); nothing when the name is unknown. US-ASCII with high bytes is
/// read as Windows-1252, which is what senders mean by it.
[[nodiscard]] std::optional<std::string> decode(std::string_view bytes, std::string_view charset);

/// A regular expression (ICU syntax, with look-behind), compiled once. Matching is bounded: a pattern that runs too
/// long on a hostile text finds nothing. Safe to use from several threads. A pattern that does not compile is a
/// mistake in the program and stops it.
class Pattern {
public:
    explicit Pattern(std::string_view expression);
    ~Pattern();
    Pattern(const Pattern&) = delete;
    Pattern& operator=(const Pattern&) = delete;

    /// One match; positions are bytes of the searched text. `groups[0]` is the whole match; a group that took no part
    /// has no value.
    struct Match {
        std::size_t begin = 0;
        std::size_t end = 0;
        std::vector<std::optional<std::string>> groups;
        /// Text of a group, empty when it took no part.
        [[nodiscard]] std::string_view operator[](std::size_t group) const;
    };

    [[nodiscard]] bool matches(std::string_view text) const;  ///< occurs anywhere in the text
    [[nodiscard]] std::optional<Match> first(std::string_view text) const;
    [[nodiscard]] std::vector<Match> all(std::string_view text) const;
    /// Every match replaced; $1 … $9 in the replacement stand for groups. Unchanged where matching ran too long.
    [[nodiscard]] std::string replaceAll(std::string_view text, std::string_view replacement) const;

private:
    struct Compiled;
    std::unique_ptr<Compiled> compiled_;
};

}  // namespace tamba::Text
