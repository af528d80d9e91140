#include "Tamba/Rows/SearchRows.h"

#include "Tamba/Rows/RowText.h"
#include "TambaCore/Documents/SearchWords.h"

#include <algorithm>
#include <array>

namespace tamba {
namespace {

using Search::Kind;

struct Look {
    const char *title, *showAll, *glyph;
};
constexpr std::array<Look, 8> looks{{
    {RowText::marked("Rows", "Expenses"), RowText::marked("Rows", "Show all %1 expenses"), "receipt"},
    {RowText::marked("Rows", "Invoices"), RowText::marked("Rows", "Show all %1 invoices"), "document"},
    {RowText::marked("Rows", "Estimates"), RowText::marked("Rows", "Show all %1 estimates"), "document"},
    {RowText::marked("Rows", "Credit notes"), RowText::marked("Rows", "Show all %1 credit notes"), "credit"},
    {RowText::marked("Rows", "Clients"), RowText::marked("Rows", "Show all %1 clients"), "people"},
    {RowText::marked("Rows", "Projects"), RowText::marked("Rows", "Show all %1 projects"), "folder"},
    {RowText::marked("Rows", "Saved lines"), RowText::marked("Rows", "Show all %1 saved lines"), "tag"},
    {RowText::marked("Rows", "Bank lines"), RowText::marked("Rows", "Show all %1 bank lines"), "category-bank"},
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
        heading.text = RowText::translate("Rows", look(group.kind).title);
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
                RowText::filled(RowText::translate("Rows", look(group.kind).showAll), {std::to_string(group.count)});
    }
    const auto wanted = wordsOf(words);
    bool any = false;
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (!fits(commands[i], wanted)) continue;
        if (!any) add(What::heading, {}, looks.size()).text = RowText::translate("Rows", "Commands");
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
