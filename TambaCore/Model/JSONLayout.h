#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The lines of the books' JSON as they are written here. A text inside JSON holds no line break, so that lines tell
/// where a record ends, without a look at what is in it, as long as the text is JSON and has this layout. What is cut
/// here has still to be read strictly:
///
///     {
///       "expenses": [
///         {
///           "amount": 11800,
///           …
///         },
///         {
namespace tamba::ModelsJSON::JSONLayout {

struct List {
    std::string_view key;
    std::string_view records;  ///< from the first to the last, each with the blanks in front of it
};
struct Cut {
    std::string rest;  ///< with empty lists
    std::vector<List> lists;
};
/// The books without the records of their lists. No lists where the text has another layout. The parts are valid as
/// long as the text.
[[nodiscard]] Cut withoutLists(std::string_view text);

/// The records of a list in pieces of some hundred kilobytes, each as `eachRecord` wants it.
[[nodiscard]] std::vector<std::string_view> pieces(std::string_view records);
/// Throws `DecodeError` where something else stands between two records.
void eachRecord(std::string_view piece, const std::function<void(std::string_view)>& take);

}  // namespace tamba::ModelsJSON::JSONLayout
