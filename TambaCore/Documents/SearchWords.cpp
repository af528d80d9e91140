#include "TambaCore/Documents/SearchWords.h"

#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <utility>

namespace tamba::Search {
namespace {

constexpr std::size_t longest = 64;  // bytes

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Spaces, punctuation and signs beyond ASCII. All else belongs to words, the marks of Indian scripts included.
bool parts(char32_t c) {
    static constexpr std::pair<char32_t, char32_t> ranges[] = {
        {0x80, 0xA9},     {0xAB, 0xB4},     {0xB6, 0xB9},     {0xBB, 0xBF},     {0xD7, 0xD7},     {0xF7, 0xF7},
        {0x964, 0x965},   {0x1680, 0x1680}, {0x2000, 0x206F}, {0x20A0, 0x20CF}, {0x2190, 0x2BFF}, {0x2E00, 0x2E7F},
        {0x3000, 0x303F}, {0xFE10, 0xFE1F}, {0xFE30, 0xFE6F}, {0xFEFF, 0xFF0F}, {0xFF1A, 0xFF20}, {0xFFFD, 0xFFFD},
    };
    const auto after = std::upper_bound(std::begin(ranges), std::end(ranges), c,
                                        [](char32_t value, const auto& range) { return value < range.first; });
    return after != std::begin(ranges) && c <= std::prev(after)->second;
}

bool joinsLetters(char32_t c) { return c == 0x200C || c == 0x200D; }

}  // namespace

bool Words::next(Word& word) {
    word_.clear();
    std::size_t begin = at_, end = at_;
    bool foreign = false;
    const auto take = [&](std::size_t from, std::string_view letters) {
        if (word_.empty()) begin = from;
        if (word_.size() + letters.size() <= longest) word_ += letters;
        end = at_;
    };
    while (at_ < text_.size()) {
        const std::size_t from = at_;
        const char c = text_[at_];
        if (static_cast<unsigned char>(c) >= 0x80) {
            const char32_t point = Text::codePoint(text_, at_);
            if (!word_.empty() && joinsLetters(point)) continue;
            if (parts(point)) {
                if (!word_.empty()) break;
                continue;
            }
            foreign = true;
            take(from, text_.substr(from, at_ - from));
            continue;
        }
        ++at_;
        if (c >= 'A' && c <= 'Z') {
            const char small = static_cast<char>(c - 'A' + 'a');
            take(from, {&small, 1});
        } else if ((c >= 'a' && c <= 'z') || isDigit(c)) {
            take(from, text_.substr(from, 1));
        } else if (!word_.empty()) {
            const bool inNumber = (c == ',' || c == '.') && end == from && isDigit(text_[from - 1]) &&
                                  at_ < text_.size() && isDigit(text_[at_]);
            if (!inNumber) break;
            if (c == '.') take(from, ".");
            end = at_;
        }
    }
    if (word_.empty()) return false;
    if (foreign) word_ = Text::lower(word_);
    word = {word_, begin, end};
    return true;
}

}  // namespace tamba::Search
