#include "TambaCore/Bank/Words.h"

#include "TambaCore/Bank/Matcher.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tamba::Matcher {
namespace {

constexpr std::array<std::string_view, 14> noise{"upi",     "neft", "imps", "rtgs", "the", "pvt", "ltd",
                                                 "payment", "pos",  "ach",  "txn",  "ref", "and", "india"};

/// In code points, so that चाय, two characters to the eye, is long enough.
bool isLongEnough(std::string_view word) {
    std::size_t at = 0;
    int count = 0;
    while (at < word.size() && count < 3) {
        (void)Text::codePoint(word, at);
        ++count;
    }
    return count == 3;
}

}  // namespace

std::vector<std::string_view> pieces(std::string_view text) {
    std::vector<std::string_view> result;
    const char* begin = nullptr;
    const auto end = [&](const char* at) {
        if (begin) result.emplace_back(begin, static_cast<std::size_t>(at - begin));
        begin = nullptr;
    };
    for (const std::string_view character : Text::characters(text)) {
        if (!Text::isLetterOrDigit(character))
            end(character.data());
        else if (!begin)
            begin = character.data();
    }
    end(text.data() + text.size());
    return result;
}

bool isNoise(std::string_view lowerWord) { return std::find(noise.begin(), noise.end(), lowerWord) != noise.end(); }

std::set<std::string> words(std::string_view text) {
    std::set<std::string> result;
    const std::string lowered = Text::lower(text);
    for (const std::string_view word : pieces(lowered))
        if (isLongEnough(word) && !isNoise(word)) result.emplace(word);
    return result;
}

}  // namespace tamba::Matcher
