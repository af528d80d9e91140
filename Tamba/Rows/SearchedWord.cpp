#include "Tamba/Rows/SearchedWord.h"

#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tamba {
namespace {

bool isASCII(std::string_view text) {
    return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

/// `Text::contains(Text::lower(text), lowered)`, without making the small letters of all that is looked through.
bool containsInLower(std::string_view text, std::string_view lowered) {
    constexpr std::size_t room = 1024, block = 32;
    if (lowered.size() > room / 2 || !isASCII(lowered)) return Text::contains(Text::lower(text), lowered);
    if (lowered.empty()) return true;
    std::array<char, room> folded;
    for (std::string_view rest = text; rest.size() >= lowered.size();) {
        const std::size_t count = std::min(rest.size(), room - block);
        std::memcpy(folded.data(), rest.data(), count);
        // Whole blocks, so that the compiler can take several bytes at a time.
        std::memset(folded.data() + count, 0, block);
        for (std::size_t from = 0; from < count; from += block)
            for (std::size_t i = from; i < from + block; ++i) {
                const auto c = static_cast<unsigned char>(folded[i]);
                folded[i] = static_cast<char>(c + (static_cast<unsigned char>(c - 'A') < 26 ? 'a' - 'A' : 0));
            }
        if (memmem(folded.data(), count, lowered.data(), lowered.size())) return true;
        if (count == rest.size()) break;
        rest.remove_prefix(count - lowered.size() + 1);
    }
    // The two letters outside ASCII whose small letters begin with one of ASCII: the Kelvin sign and the dotted I.
    const bool others = Text::contains(text, "\u212A") || Text::contains(text, "\u0130");
    return others && Text::contains(Text::lower(text), lowered);
}

}  // namespace

bool SearchedWord::in(std::string_view text) const { return containsInLower(text, text_); }

bool SearchedWord::in(Day day) {
    const auto [known, isNew] = days_.try_emplace(day.number());
    if (isNew) known->second = in(day.formatted("d MMM yyyy"));
    return known->second;
}

bool SearchedWord::in(std::int64_t minor, const std::string& currency) {
    if (currency_.code != currency) {
        currency_ = Currency::of(currency);
        // Writing an amount takes longer than all other looking, and most words could stand in none.
        const std::string signs = "0123456789.,-−" + Text::lower(currency_.symbol);
        fitsCurrency_ = text_.find_first_not_of(signs) == text_.npos;
    }
    return fitsCurrency_ && (in(MoneyFormat::string(minor, currency_)) || in(MoneyFormat::plain(minor, currency_)));
}

std::vector<SearchedWord> searchedWords(std::string_view search) {
    std::vector<SearchedWord> words;
    for (std::string& word : Text::split(Text::lower(Text::trim(search)), ' '))
        if (!word.empty()) words.emplace_back(std::move(word));
    return words;
}

}  // namespace tamba
