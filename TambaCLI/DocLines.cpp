#include "TambaCLI/Arguments.h"
#include "TambaCLI/DocCommands.h"

#include <algorithm>
#include <map>

namespace tamba::cli {
namespace {

using Set = void (*)(Line&, std::string_view, const Currency&);

/// The fields of a line and how each is read.
const std::map<std::string, Set, std::less<>>& fields() {
    static const std::map<std::string, Set, std::less<>> table = {
        {"name", [](Line& line, std::string_view text, const Currency&) { line.name = text; }},
        {"detail", [](Line& line, std::string_view text, const Currency&) { line.detail = text; }},
        {"hsn", [](Line& line, std::string_view text, const Currency&) { line.hsn = text; }},
        {"unit", [](Line& line, std::string_view text, const Currency&) { line.unit = text; }},
        {"qty",
         [](Line& line, std::string_view text, const Currency&) { line.qtyMilli = quantityOf(text, "quantity"); }},
        {"price", [](Line& line, std::string_view text,
                     const Currency& currency) { line.priceMinor = amountOf(text, currency); }},
        {"discount",
         [](Line& line, std::string_view text, const Currency&) { line.discountBP = percentOf(text, "discount"); }},
        {"tax", [](Line& line, std::string_view text, const Currency&) { line.taxBP = percentOf(text, "tax rate"); }},
    };
    return table;
}

bool isWord(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

std::string known() {
    std::vector<std::string> names;
    for (const auto& [name, set] : fields()) names.push_back(name);
    return Text::join(names, ", ");
}

}  // namespace

Line lineFrom(std::string_view typed, Line line, const Currency& currency) {
    std::vector<std::pair<std::string, std::string>> given;
    for (const std::string& piece : Text::split(typed, ',')) {
        const std::size_t equals = piece.find('=');
        const std::string key =
            equals == std::string::npos ? "" : Text::lower(Text::trim(std::string_view(piece).substr(0, equals)));
        if (isWord(key)) {
            if (!fields().contains(key)) throw Refusal("A line has no “" + key + "”. It has: " + known() + ".");
            given.emplace_back(key, piece.substr(equals + 1));
        } else if (given.empty()) {
            given.emplace_back("name", piece);
        } else {
            given.back().second += "," + piece;
        }
    }
    for (const auto& [key, value] : given) fields().find(key)->second(line, Text::trim(value), currency);
    return line;
}

}  // namespace tamba::cli
