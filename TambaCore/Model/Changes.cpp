#include "TambaCore/Model/Changes.h"

#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/JSONWriter.h"

#include <algorithm>
#include <unordered_map>

namespace tamba {

namespace {

/// What tells one record of a list from the others.
template <class T>
const auto& identity(const T& record) {
    if constexpr (requires { record.id; })
        return record.id;
    else
        return record.currency;
}

template <class T>
using Identity = std::remove_cvref_t<decltype(identity(std::declval<const T&>()))>;

std::string text(const UUID& id) { return id.text(); }
std::string text(const std::string& currency) { return currency; }

/// Records of a list by identity; positions and pointers are valid as long as the list.
template <class T>
using Index = std::unordered_map<Identity<T>, std::shared_ptr<const T>>;

template <class T>
Index<T> indexed(const List<T>& list, std::size_t from = 0) {
    Index<T> index;
    index.reserve(list.size() - from);
    for (std::size_t i = from; i < list.size(); ++i) index.emplace(identity(list[i]), list.at(i));
    return index;
}

template <class T>
std::shared_ptr<const T> lookUp(const Index<T>& index, const Identity<T>& id) {
    const auto place = index.find(id);
    return place == index.end() ? nullptr : place->second;
}

template <class T>
bool same(const std::shared_ptr<const T>& a, const std::shared_ptr<const T>& b) {
    return a == b || *a == *b;
}

template <class T>
ListChanges listChanges(const List<T>& before, const List<T>& after) {
    ListChanges changes;
    if (before.sharesAllWith(after)) return changes;
    std::size_t shared = 0;  // most changes touch the end of a list or one record of it
    while (shared < before.size() && shared < after.size() && before.at(shared) == after.at(shared)) ++shared;
    const Index<T> old = indexed(before, shared);
    Index<T> current;
    for (std::size_t i = shared; i < after.size(); ++i) {
        const auto& record = after.at(i);
        current.emplace(identity(*record), record);
        const auto previous = lookUp<T>(old, identity(*record));
        if (!previous)
            changes.added.push_back(record->id);
        else if (!same(previous, record))
            changes.altered.push_back(record->id);
    }
    for (std::size_t i = shared; i < before.size(); ++i)
        if (!current.contains(before[i].id)) changes.removed.push_back(before[i].id);
    return changes;
}

template <class M>
std::string fieldText(const M& member) {
    if constexpr (requires { member.has_value(); }) {
        if (!member) return {};
    }
    ModelsJSON::Writer writer(ModelsJSON::Layout::line);
    writer.value(member);
    return writer.take();
}

/// Gathers the merged books and what could not be decided.
struct Merger {
    std::vector<Conflict> conflicts;

    template <class M>
    void member(const std::string& list, const std::string& id, std::string_view key, const M& base, M& ours,
                const M& theirs) {
        if (ours == theirs || theirs == base) return;
        if (ours == base)
            ours = theirs;
        else
            conflicts.push_back({list, id, std::string(key), fieldText(ours), fieldText(theirs)});
    }
    /// When a record was made: what both sides made, such as the month's rent, is as old as the earlier.
    void member(const std::string&, const std::string&, std::string_view, const Instant& base, Instant& ours,
                const Instant& theirs) {
        if (theirs != base) ours = ours == base ? theirs : std::min(ours, theirs);
    }
    /// Records inside a record, such as payments: none of either side is lost.
    template <class T>
        requires requires(const T& record) { record.id; }
    void member(const std::string& list, const std::string& id, std::string_view key, const std::vector<T>& base,
                std::vector<T>& ours, const std::vector<T>& theirs) {
        const auto shared = [](const std::vector<T>& records) {
            List<T> made;
            for (const T& record : records) made.append(record);
            return made;
        };
        Merger inside;
        const List<T> merged = inside.list(std::string(key), shared(base), shared(ours), shared(theirs));
        if (!inside.conflicts.empty())
            conflicts.push_back({list, id, std::string(key), fieldText(ours), fieldText(theirs)});
        ours.assign(merged.begin(), merged.end());
    }
    /// Counters only grow: the higher one is right for both sides.
    void member(const std::string&, const std::string&, std::string_view, const std::map<std::string, std::int64_t>&,
                std::map<std::string, std::int64_t>& ours, const std::map<std::string, std::int64_t>& theirs) {
        for (const auto& [key, count] : theirs) ours[key] = std::max(ours[key], count);
    }

    template <class R>
    void record(const std::string& list, const std::string& id, const R& base, R& ours, const R& theirs) {
        std::apply(
            [&](const auto&... field) {
                (..., member(list, id, field.key, base.*field.member, ours.*field.member, theirs.*field.member));
            },
            Fields<R>);
        if (ours.unknown == base.unknown) ours.unknown = theirs.unknown;
    }

    /// A draft that left its state on one side, or on both. Payments are the exception: none of either side is lost.
    Document issued(const std::string& list, const Document& base, const Document& ours, const Document& theirs) {
        const bool keepOurs = ours.state != DocState::draft;
        Document kept = keepOurs ? ours : theirs;
        const Document& other = keepOurs ? theirs : ours;
        const std::string id = text(base.id);
        member(list, id, "payments", base.payments, kept.payments, other.payments);
        const auto tell = [&](const auto& field) {
            const auto& lost = other.*field.member;
            if (field.key == "payments" || lost == base.*field.member || lost == kept.*field.member) return;
            conflicts.push_back({list, id, std::string(field.key), fieldText(ours.*field.member),
                                 fieldText(theirs.*field.member), !keepOurs});
        };
        std::apply([&](const auto&... field) { (..., tell(field)); }, Fields<Document>);
        return kept;
    }

    template <class T>
    T both(const std::string& name, const T* base, const T& ours, const T& theirs) {
        if constexpr (std::is_same_v<T, Document>) {
            const bool issuedSince = ours.state != DocState::draft || theirs.state != DocState::draft;
            if (base && base->state == DocState::draft && issuedSince) return issued(name, *base, ours, theirs);
        }
        T merged = ours;
        record(name, text(identity(ours)), base ? *base : T{}, merged, theirs);
        return merged;
    }

    template <class T>
    List<T> list(const std::string& name, const List<T>& base, const List<T>& ours, const List<T>& theirs) {
        if (theirs == base || ours == theirs) return ours;
        if (ours == base) return theirs;
        const Index<T> inBase = indexed(base);
        const Index<T> inOurs = indexed(ours);
        const Index<T> inTheirs = indexed(theirs);
        List<T> merged;
        for (std::size_t i = 0; i < ours.size(); ++i) {
            const auto& mine = ours.at(i);
            const auto& id = identity(*mine);
            const auto old = lookUp<T>(inBase, id);
            const auto other = lookUp<T>(inTheirs, id);
            if (!other) {
                if (!old || !same(old, mine)) merged.append(mine);
                if (old && !same(old, mine)) conflicts.push_back({name, text(id), "", fieldText(*mine), ""});
            } else if (same(mine, other) || (old && same(old, other))) {
                merged.append(mine);
            } else if (old && same(old, mine)) {
                merged.append(other);
            } else {
                merged.append(both(name, old.get(), *mine, *other));
            }
        }
        for (std::size_t i = 0; i < theirs.size(); ++i) {
            const auto& other = theirs.at(i);
            const auto& id = identity(*other);
            if (inOurs.contains(id)) continue;
            const auto old = lookUp<T>(inBase, id);
            if (old && same(old, other)) continue;  // we removed it
            if (old) conflicts.push_back({name, text(id), "", "", fieldText(*other)});
            merged.append(other);
        }
        return merged;
    }
};

}  // namespace

Changes Changes::between(const Library& before, const Library& after) {
    Changes changes;
    changes.business = before.business != after.business;
    changes.other =
        before.onboarded != after.onboarded || before.rates != after.rates || before.unknown != after.unknown;
    changes.clients = listChanges(before.clients, after.clients);
    changes.items = listChanges(before.items, after.items);
    changes.categories = listChanges(before.categories, after.categories);
    changes.projects = listChanges(before.projects, after.projects);
    changes.expenses = listChanges(before.expenses, after.expenses);
    changes.recurring = listChanges(before.recurring, after.recurring);
    changes.documents = listChanges(before.documents, after.documents);
    changes.series = listChanges(before.series, after.series);
    changes.accounts = listChanges(before.accounts, after.accounts);
    changes.transactions = listChanges(before.transactions, after.transactions);
    changes.rules = listChanges(before.rules, after.rules);
    return changes;
}

bool Changes::empty() const { return *this == Changes{}; }

Merged merge(const Library& base, const Library& ours, const Library& theirs) {
    Merger merger;
    Library merged = ours;
    const auto mergeField = [&](const auto& field) {
        auto& mine = merged.*field.member;
        const std::string name(field.key);
        if constexpr (requires { mine.sharesAllWith(mine); })
            mine = merger.list(name, base.*field.member, ours.*field.member, theirs.*field.member);
        else if constexpr (IsRecord<std::remove_cvref_t<decltype(mine)>>)
            merger.record(name, "", base.*field.member, mine, theirs.*field.member);
        else
            merger.member("", "", field.key, base.*field.member, mine, theirs.*field.member);
    };
    std::apply([&](const auto&... field) { (..., mergeField(field)); }, Fields<Library>);
    if (ours.unknown == base.unknown) merged.unknown = theirs.unknown;
    const auto earlier = [](const BankTransaction& a, const BankTransaction& b) { return a.date < b.date; };
    if (!std::is_sorted(merged.transactions.begin(), merged.transactions.end(), earlier))
        merged.transactions.sort(earlier);
    return {std::move(merged), std::move(merger.conflicts)};
}

template <class Record>
std::vector<std::string> changedFields(const Record& before, const Record& after) {
    std::vector<std::string> changed;
    const auto compare = [&](const auto& field) {
        if (before.*field.member == after.*field.member) return;
        changed.push_back(std::string(field.key) + ": " + fieldText(before.*field.member) + " → " +
                          fieldText(after.*field.member));
    };
    std::apply([&](const auto&... field) { (..., compare(field)); }, Fields<Record>);
    return changed;
}

template std::vector<std::string> changedFields(const Business&, const Business&);
template std::vector<std::string> changedFields(const Client&, const Client&);
template std::vector<std::string> changedFields(const Expense&, const Expense&);
template std::vector<std::string> changedFields(const Document&, const Document&);

}  // namespace tamba
