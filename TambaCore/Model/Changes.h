#pragma once

#include "TambaCore/Model/Models.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamba {

/// What differs between two versions of one list, by id, in the order of `after` (removed: of `before`).
struct ListChanges {
    std::vector<UUID> added, removed, altered;
    [[nodiscard]] bool empty() const { return added.empty() && removed.empty() && altered.empty(); }
    bool operator==(const ListChanges&) const = default;
};

/// What differs between two versions of the books. Records that both share are skipped without a look.
struct Changes {
    bool business = false;
    bool other = false;  ///< onboarded, exchange rates, unknown keys
    ListChanges clients, items, categories, projects, expenses, recurring, documents, series, accounts, transactions,
        rules;

    [[nodiscard]] static Changes between(const Library& before, const Library& after);
    [[nodiscard]] bool empty() const;
    bool operator==(const Changes&) const = default;
};

/// One field that both sides changed to different values. The merge keeps ours, except for a draft that the other side
/// issued and an invoice that it was paid on; a person may decide otherwise.
struct Conflict {
    std::string list;          ///< "expenses"; "business" for the settings
    std::string id;            ///< UUID text, or the currency of a rate; empty for the settings
    std::string field;         ///< the key; empty when one side removed the record the other changed
    std::string ours, theirs;  ///< JSON texts
    bool keptTheirs = false;
    bool operator==(const Conflict&) const = default;
};

struct Merged {
    Library library;
    std::vector<Conflict> conflicts;
};

/// Three-way merge, record by record and, inside a record both changed, field by field. A record that one side removed
/// and the other changed is kept as changed. A draft that one side issued is kept whole as issued: what went to the
/// client is never mixed with later edits; where both issued it with numbers of their own, both documents are kept.
/// A document that has a number neither goes nor becomes a draft again: whatever says so is an older copy. What one
/// side deleted and the other put to use is kept. An invoice that one side voided stands when the other has payments or
/// credit notes on it, which is a conflict of its `state`. Expenses stay billed on the invoices that have them. Records
/// keep the order of `ours`, theirs appended.
[[nodiscard]] Merged merge(const Library& base, const Library& ours, const Library& theirs);

/// "vendor: “Chai” → “Chai Point”": the fields in which two versions of a record differ, for history and questions.
template <class Record>
[[nodiscard]] std::vector<std::string> changedFields(const Record& before, const Record& after);

}  // namespace tamba
