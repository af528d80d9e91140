#include "TambaCore/Model/Conflicts.h"

#include "TambaCore/Model/Fields.h"

#include <algorithm>
#include <array>

namespace tamba::Conflicts {
namespace {

template <class T>
concept RecordList = requires(const T& list) { list.sharesAllWith(list); };

template <class T>
std::size_t place(const List<T>& list, const std::string& id) {
    std::size_t index = 0;
    while (index < list.size() && identityText(list[index]) != id) ++index;
    return index;
}

template <class R>
bool names(const R& record, const UUID& id);

template <class M>
bool memberNames(const M& member, const UUID& id) {
    if constexpr (std::is_same_v<M, UUID> || std::is_same_v<M, std::optional<UUID>>)
        return member == id;
    else if constexpr (IsRecord<M>)
        return names(member, id);
    else if constexpr (requires { member.begin()->id; })
        return std::any_of(member.begin(), member.end(), [&](const auto& each) { return names(each, id); });
    else
        return false;
}

/// Whether a record refers to the one with this id.
template <class R>
bool names(const R& record, const UUID& id) {
    return std::apply(
        [&](const auto&... field) { return (... || (field.key != "id" && memberNames(record.*field.member, id))); },
        Fields<R>);
}

bool isLink(std::string_view key) {
    static constexpr std::array<std::string_view, 8> links{
        "attachments", "bankTxnID", "expenseID", "invoiceID", "linkedID", "paymentID", "payments", "rebilledInvoiceID"};
    return std::find(links.begin(), links.end(), key) != links.end();
}

bool billsOn(const Document& document) {
    return std::any_of(document.lines.begin(), document.lines.end(),
                       [](const Line& line) { return line.expenseID.has_value(); });
}

template <class T>
bool isOpenIn(const Library& merged, const List<T>& kept, const List<T>& others, const Conflict& conflict) {
    const std::size_t mine = place(kept, conflict.id), other = place(others, conflict.id);
    if (mine == kept.size()) return false;
    if (conflict.field.empty()) {
        if (other != others.size()) return false;
        if constexpr (std::is_same_v<T, Document>)
            if (kept[mine].state != DocState::draft) return false;
        const auto id = UUID::parse(conflict.id);
        return !id || !names(merged, *id);
    }
    if (other == others.size() || isLink(conflict.field)) return false;
    if constexpr (std::is_same_v<T, Document>) {
        const bool drafts = kept[mine].state == DocState::draft && others[other].state == DocState::draft;
        return drafts && (conflict.field != "lines" || (!billsOn(kept[mine]) && !billsOn(others[other])));
    }
    return true;
}

/// Calls `use(list, other's list)` for the list that the conflict is in.
template <class L, class Use>
void inList(L& library, const Library& other, const Conflict& conflict, const Use& use) {
    const auto visit = [&](const auto& field) {
        if constexpr (RecordList<std::remove_cvref_t<decltype(library.*field.member)>>)
            if (field.key == conflict.list) use(library.*field.member, other.*field.member);
    };
    std::apply([&](const auto&... field) { (..., visit(field)); }, Fields<Library>);
}

template <class R>
void copyField(R& mine, const R& other, std::string_view key) {
    const auto copy = [&](const auto& field) {
        if (field.key == key) mine.*field.member = other.*field.member;
    };
    std::apply([&](const auto&... field) { (..., copy(field)); }, Fields<R>);
}

}  // namespace

bool isOpen(const Library& merged, const Conflict& conflict, const Library& other) {
    if (conflict.list == "business") return !conflict.field.empty();
    bool open = false;
    inList(merged, other, conflict,
           [&](const auto& kept, const auto& others) { open = isOpenIn(merged, kept, others, conflict); });
    return open;
}

Library taking(Library merged, const Conflict& conflict, const Library& other) {
    if (!isOpen(merged, conflict, other)) return merged;
    if (conflict.list == "business") copyField(merged.business, other.business, conflict.field);
    inList(merged, other, conflict, [&](auto& kept, const auto& others) {
        const std::size_t index = place(kept, conflict.id);
        if (conflict.field.empty()) return kept.erase(index);
        kept.update(index,
                    [&](auto& record) { copyField(record, others[place(others, conflict.id)], conflict.field); });
    });
    return merged;
}

}  // namespace tamba::Conflicts
