#pragma once

#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tamba {

/// A word typed into the search field of a table, in small letters. Rows hold it when it occurs anywhere in a text that
/// people know them by, upper and lower case alike. Made anew for each search, and asked about thousands of records.
class SearchedWord {
public:
    explicit SearchedWord(std::string text) : text_(std::move(text)) {}

    [[nodiscard]] bool in(std::string_view text) const;
    /// In "4 Nov 2026".
    [[nodiscard]] bool in(Day day);
    /// In an amount as it is shown or as files hold it: "₹1,200.50", "1200.50".
    [[nodiscard]] bool in(std::int64_t minor, const std::string& currency);

private:
    std::string text_;
    std::unordered_map<std::int64_t, bool> days_;  // whether it is in them, by their numbers
    Currency currency_;                            // of the amount asked about last
    bool fitsCurrency_ = false;                    // an amount in it could be written with these letters
};

/// The words of a search, which must all occur.
[[nodiscard]] std::vector<SearchedWord> searchedWords(std::string_view search);

}  // namespace tamba
