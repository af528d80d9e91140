#include "Tamba/Rows/BackupRows.h"

#include "Tamba/Rows/RowText.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/Changes.h"

#include <algorithm>

namespace tamba {
namespace {

struct Noun {
    const char* one;
    const char* many;
};

std::string counted(std::size_t count, const Noun& noun) { return RowText::counted(count, noun.one, noun.many); }

constexpr Noun expenses{RowText::marked("Rows", "1 expense"), RowText::marked("Rows", "%1 expenses")},
    invoices{RowText::marked("Rows", "1 invoice"), RowText::marked("Rows", "%1 invoices")},
    estimates{RowText::marked("Rows", "1 estimate"), RowText::marked("Rows", "%1 estimates")},
    creditNotes{RowText::marked("Rows", "1 credit note"), RowText::marked("Rows", "%1 credit notes")},
    clients{RowText::marked("Rows", "1 client"), RowText::marked("Rows", "%1 clients")},
    lines{RowText::marked("Rows", "1 bank line"), RowText::marked("Rows", "%1 bank lines")};

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
    return text.empty() ? RowText::translate("Rows", "No records") : text;
}

std::vector<std::string> changesText(const Library& present, const Library& backup) {
    const Changes changes = Changes::between(present, backup);
    std::vector<std::string> texts;
    const auto add = [&](const ListChanges& list, const Noun& noun) {
        std::vector<std::string> parts;
        const auto part = [&](std::size_t count, const std::string& how) {
            if (count == 0) return;
            parts.push_back(RowText::filled(how, {parts.empty() ? counted(count, noun) : std::to_string(count)}));
        };
        part(list.removed.size(), RowText::translate("Rows", "%1 fewer"));
        part(list.added.size(), RowText::translate("Rows", "%1 more"));
        part(list.altered.size(), RowText::translate("Rows", "%1 changed"));
        if (parts.empty()) return;
        const std::string last = parts.back();
        parts.pop_back();
        const std::string others = Text::join(parts, ", ");
        texts.push_back(parts.empty() ? last
                                      : RowText::filled(RowText::translate("Rows", "%1 and %2"), {others, last}));
    };
    add(changes.expenses, expenses);
    for (const auto& [kind, noun] : {std::pair(DocKind::invoice, invoices), std::pair(DocKind::estimate, estimates),
                                     std::pair(DocKind::creditNote, creditNotes)})
        add(ofKind(changes.documents, kind, present, backup), noun);
    add(changes.clients, clients);
    add(changes.transactions, lines);
    add(changes.recurring,
        {RowText::marked("Rows", "1 recurring expense"), RowText::marked("Rows", "%1 recurring expenses")});
    add(changes.projects, {RowText::marked("Rows", "1 project"), RowText::marked("Rows", "%1 projects")});
    add(changes.categories, {RowText::marked("Rows", "1 category"), RowText::marked("Rows", "%1 categories")});
    add(changes.rules, {RowText::marked("Rows", "1 rule"), RowText::marked("Rows", "%1 rules")});
    add(changes.items, {RowText::marked("Rows", "1 item"), RowText::marked("Rows", "%1 items")});
    add(changes.accounts, {RowText::marked("Rows", "1 bank account"), RowText::marked("Rows", "%1 bank accounts")});
    add(changes.series, {RowText::marked("Rows", "1 number series"), RowText::marked("Rows", "%1 number series")});
    if (changes.business) texts.push_back(RowText::translate("Rows", "other settings of the business"));
    if (present.rates != backup.rates) texts.push_back(RowText::translate("Rows", "other exchange rates"));
    return texts;
}

}  // namespace tamba
