#include "Tamba/Rows/BackupRows.h"

#include "TambaCore/Model/Changes.h"

#include <algorithm>

namespace tamba {
namespace {

struct Noun {
    const char* one;
    const char* many;
};

std::string counted(std::size_t count, const Noun& noun) {
    return std::to_string(count) + " " + (count == 1 ? noun.one : noun.many);
}

constexpr Noun expenses{"expense", "expenses"}, invoices{"invoice", "invoices"}, estimates{"estimate", "estimates"},
    creditNotes{"credit note", "credit notes"}, clients{"client", "clients"}, lines{"bank line", "bank lines"};

/// Of the documents, those of one kind.
ListChanges ofKind(const ListChanges& changes, DocKind kind, const Library& before, const Library& after) {
    const auto those = [kind](const std::vector<UUID>& ids, const Library& library) {
        std::vector<UUID> found;
        std::copy_if(ids.begin(), ids.end(), std::back_inserter(found), [&](const UUID& id) {
            const Document* document = library.document(id);
            return document && document->kind == kind;
        });
        return found;
    };
    return {those(changes.added, after), those(changes.removed, before), those(changes.altered, after)};
}

}  // namespace

std::string countsText(const Library& library) {
    const auto documents = [&](DocKind kind) {
        return static_cast<std::size_t>(std::count_if(library.documents.begin(), library.documents.end(),
                                                      [kind](const Document& d) { return d.kind == kind; }));
    };
    std::string text;
    const auto add = [&](std::size_t count, const Noun& noun) {
        if (count > 0) text += (text.empty() ? "" : " · ") + counted(count, noun);
    };
    add(library.expenses.size(), expenses);
    add(documents(DocKind::invoice), invoices);
    add(documents(DocKind::estimate), estimates);
    add(documents(DocKind::creditNote), creditNotes);
    add(library.clients.size(), clients);
    add(library.transactions.size(), lines);
    return text.empty() ? "No records" : text;
}

std::vector<std::string> changesText(const Library& present, const Library& backup) {
    const Changes changes = Changes::between(present, backup);
    std::vector<std::string> texts;
    const auto add = [&](const ListChanges& list, const Noun& noun) {
        std::vector<std::string> parts;
        const auto part = [&](std::size_t count, const char* how) {
            if (count == 0) return;
            parts.push_back((parts.empty() ? counted(count, noun) : std::to_string(count)) + " " + how);
        };
        part(list.removed.size(), "fewer");
        part(list.added.size(), "more");
        part(list.altered.size(), "changed");
        if (parts.empty()) return;
        std::string text = parts.front();
        for (std::size_t i = 1; i < parts.size(); ++i) text += (i + 1 == parts.size() ? " and " : ", ") + parts[i];
        texts.push_back(text);
    };
    add(changes.expenses, expenses);
    for (const auto& [kind, noun] : {std::pair(DocKind::invoice, invoices), std::pair(DocKind::estimate, estimates),
                                     std::pair(DocKind::creditNote, creditNotes)})
        add(ofKind(changes.documents, kind, present, backup), noun);
    add(changes.clients, clients);
    add(changes.transactions, lines);
    add(changes.recurring, {"recurring expense", "recurring expenses"});
    add(changes.projects, {"project", "projects"});
    add(changes.categories, {"category", "categories"});
    add(changes.rules, {"rule", "rules"});
    add(changes.items, {"item", "items"});
    add(changes.accounts, {"bank account", "bank accounts"});
    add(changes.series, {"number series", "number series"});
    if (changes.business) texts.push_back("other settings of the business");
    if (present.rates != backup.rates) texts.push_back("other exchange rates");
    return texts;
}

}  // namespace tamba
