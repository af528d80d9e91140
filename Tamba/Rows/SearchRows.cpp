#include "Tamba/Rows/SearchRows.h"

#include "TambaCore/Documents/SearchWords.h"

#include <algorithm>
#include <array>

namespace tamba {
namespace {

using Search::Kind;

struct Look {
    std::string_view title, plural, glyph;
};
constexpr std::array<Look, 8> looks{{
    {"Expenses", "expenses", "receipt"},
    {"Invoices", "invoices", "document"},
    {"Estimates", "estimates", "document"},
    {"Credit notes", "credit notes", "credit"},
    {"Clients", "clients", "people"},
    {"Projects", "projects", "folder"},
    {"Saved lines", "saved lines", "tag"},
    {"Bank lines", "bank lines", "category-bank"},
}};
const Look& look(Kind kind) { return looks[static_cast<std::size_t>(kind)]; }

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> all;
    Search::Words words(text);
    for (Search::Word word; words.next(word);) all.emplace_back(word.text);
    return all;
}

/// All words, and one of them in the command's own text: "new invoice" is Invoice in the menu New Other.
bool fits(const SearchCommand& command, const std::vector<std::string>& wanted) {
    const auto own = wordsOf(command.text), menu = wordsOf(command.where);
    const auto among = [](const std::vector<std::string>& words, const std::string& wantedWord) {
        return std::any_of(words.begin(), words.end(),
                           [&wantedWord](const std::string& each) { return each.starts_with(wantedWord); });
    };
    bool any = false;
    for (const std::string& word : wanted) {
        const bool here = among(own, word);
        if (!here && !among(menu, word)) return false;
        any = any || here;
    }
    return any;
}

/// An identity for a row that is no record.
UUID madeUp(SearchRow::What what, std::size_t which) {
    UUID id;
    id.bytes[0] = static_cast<std::uint8_t>(what);
    id.bytes[1] = static_cast<std::uint8_t>(which);
    return id;
}

}  // namespace

std::string_view title(Kind kind) { return look(kind).title; }

std::vector<SearchRow> searchRows(const std::vector<Search::Group>& groups, std::optional<Kind> expanded,
                                  std::string_view words, const std::vector<SearchCommand>& commands) {
    using What = SearchRow::What;
    std::vector<SearchRow> rows;
    const auto add = [&rows](What what, Kind kind, std::size_t which) -> SearchRow& {
        SearchRow row;
        row.id = madeUp(what, which);
        row.what = what;
        row.kind = kind;
        return rows.emplace_back(std::move(row));
    };
    for (const Search::Group& group : groups) {
        const auto which = static_cast<std::size_t>(group.kind);
        SearchRow& heading = add(What::heading, group.kind, which);
        heading.text = look(group.kind).title;
        heading.right = std::to_string(group.count);
        const std::size_t shown = std::min(group.hits.size(), group.kind == expanded ? hitsOfExpanded : hitsShown);
        for (std::size_t i = 0; i < shown; ++i) {
            const Search::Hit& hit = group.hits[i];
            SearchRow& row = add(What::hit, group.kind, 0);
            row.id = hit.id;
            row.text = hit.title;
            row.second = hit.detail;
            if (!hit.found.empty()) row.second += (row.second.empty() ? "" : " · ") + hit.found;
            row.glyph = look(group.kind).glyph;
        }
        if (group.count > shown && group.kind != expanded)
            add(What::more, group.kind, which).text =
                "Show all " + std::to_string(group.count) + " " + std::string(look(group.kind).plural);
    }
    const auto wanted = wordsOf(words);
    bool any = false;
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (!fits(commands[i], wanted)) continue;
        if (!any) add(What::heading, {}, looks.size()).text = "Commands";
        any = true;
        SearchRow& row = add(What::command, {}, i);
        row.text = commands[i].text;
        row.second = commands[i].where;
        row.right = commands[i].keys;
        row.glyph = "chevron-right";
        row.command = i;
    }
    return rows;
}

}  // namespace tamba
