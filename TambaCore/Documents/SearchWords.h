#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Texts as words to be searched. In small letters; "35,400.00" is one word, "35400.00".
namespace tamba::Search {

struct Word {
    std::string_view text;           ///< valid until the next
    std::size_t begin = 0, end = 0;  ///< bytes of the whole text
};
/// The words of a text in turn. What is longer than any word of a language is cut.
class Words {
public:
    explicit Words(std::string_view text) : text_(text) {}
    /// False after the last.
    [[nodiscard]] bool next(Word& word);

private:
    std::string_view text_;
    std::size_t at_ = 0;
    std::string word_;
};

}  // namespace tamba::Search
