#include "TambaCLI/Commands.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Search.h"

#include <iostream>

namespace tamba::cli {
namespace {

/// One of a kind: for programs, and as people read it, alone and of many.
struct KindWords {
    const char *word, *one, *many;
};
const KindWords& wordsOf(Search::Kind kind) {
    static constexpr KindWords all[] = {
        {"expense", "expense", "expenses"},
        {"invoice", "invoice", "invoices"},
        {"estimate", "estimate", "estimates"},
        {"creditNote", "credit note", "credit notes"},
        {"client", "client", "clients"},
        {"project", "project", "projects"},
        {"item", "item", "items"},
        {"bankLine", "bank line", "bank lines"},
    };
    return all[static_cast<std::size_t>(kind)];
}

}  // namespace

int findRecords(const Context& context, const FindOptions& options) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Search::Index index(existing(session));
    const auto groups =
        index.find(Text::repairedUTF8(Text::join(options.words, " ")), static_cast<std::size_t>(options.limit));
    if (context.json) {
        JSON all = JSON::array();
        for (const Search::Group& group : groups) {
            JSON hits = JSON::array();
            for (const Search::Hit& hit : group.hits) {
                JSON one = JSON::object();
                one.add("id", hit.id.text()).add("title", hit.title).add("detail", hit.detail);
                if (!hit.found.empty()) one.add("found", hit.found);
                hits.append(one);
            }
            all.append(JSON::object()
                           .add("kind", wordsOf(group.kind).word)
                           .add("count", static_cast<std::int64_t>(group.count))
                           .add("hits", hits));
        }
        std::cout << all.text() << "\n";
        return 0;
    }
    if (groups.empty()) {
        std::cout << "Nothing in the books has these words.\n";
        return 0;
    }
    Table table({{"ID"}, {"Kind"}, {"Record"}, {"Details"}});
    std::string rest;
    for (const Search::Group& group : groups) {
        const KindWords& words = wordsOf(group.kind);
        for (const Search::Hit& hit : group.hits)
            table.add({hit.id.text().substr(0, 8), words.one, oneLine(hit.title),
                       oneLine(hit.found.empty()    ? hit.detail
                               : hit.detail.empty() ? hit.found
                                                    : hit.detail + " · " + hit.found)});
        if (group.count > group.hits.size())
            rest += "… and " + counted(group.count - group.hits.size(), words.one, words.many) +
                    " more; --limit shows them\n";
    }
    std::cout << table.text() << rest;
    return 0;
}

}  // namespace tamba::cli
