#include "TambaCore/Model/Changes.h"

#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/JSONWriter.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace tamba {

namespace {

template <class T>
using Identity = std::remove_cvref_t<decltype(identity(std::declval<const T&>()))>;

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

/// A number has gone out, so that only an older copy of the books can be without it: what it tells of the document is
/// not a step somebody took.
template <class T>
bool isNumbered(const T& record) {
    if constexpr (std::is_same_v<T, Document>)
        return record.number.has_value();
    else
        return false;
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
    return std::string(writer.text());
}

/// What a document's paper says; the rest, such as when it was mailed, is known to the books alone.
constexpr std::array<std::string_view, 15> onPaper{"billTo",    "currency", "dueDate", "issueDate",     "lines",
                                                   "lut",       "notes",    "number",  "placeOfSupply", "rateMicros",
                                                   "reference", "roundOff", "seller",  "supply",        "terms"};

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
    /// Where both issued it, two papers may be with the client: all that differs on them is told, even where the one
    /// that lost says what the draft said.
    Document issued(const std::string& list, const Document& base, const Document& ours, const Document& theirs) {
        const bool keepOurs = ours.state != DocState::draft;
        Document kept = keepOurs ? ours : theirs;
        const Document& other = keepOurs ? theirs : ours;
        const std::string id = base.id.text();
        member(list, id, "payments", base.payments, kept.payments, other.payments);
        const bool twoPapers = other.state != DocState::draft;
        const auto tell = [&](const auto& field) {
            const auto& lost = other.*field.member;
            if (field.key == "payments" || lost == kept.*field.member) return;
            const bool isNews = lost != base.*field.member || (twoPapers && std::ranges::count(onPaper, field.key) > 0);
            if (!isNews) return;
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
        record(name, identityText(ours), base ? *base : T{}, merged, theirs);
        return merged;
    }

    template <class T>
    List<T> list(const std::string& name, const List<T>& base, const List<T>& ours, const List<T>& theirs) {
        if (theirs == base || ours == theirs) return ours;
        if (ours == base && !std::is_same_v<T, Document>) return theirs;
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
                if (!old || !same(old, mine) || isNumbered(*mine)) merged.append(mine);
                if (old && !same(old, mine)) conflicts.push_back({name, identityText(*mine), "", fieldText(*mine), ""});
            } else if (old && isNumbered(*old) && isNumbered(*mine) && !isNumbered(*other)) {
                merged.append(mine);
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
            if (old) conflicts.push_back({name, identityText(*other), "", "", fieldText(*other)});
            merged.append(other);
        }
        return merged;
    }
};

using Documents = Index<Document>;

const Document* found(const Documents& index, const std::optional<UUID>& id) {
    const auto place = id ? index.find(*id) : index.end();
    return place == index.end() ? nullptr : place->second.get();
}

bool isStandingInvoice(const Document* document) {
    return document && document->kind == DocKind::invoice && document->state != DocState::void_;
}

/// Every expense on lines of invoices that are not void, with the invoices; issued ones first.
std::unordered_map<UUID, std::vector<UUID>> billing(const Library& library) {
    std::unordered_map<UUID, std::vector<UUID>> invoices;
    for (const bool issued : {true, false})
        for (const Document& document : library.documents)
            if (isStandingInvoice(&document) && document.isIssued() == issued)
                for (const Line& line : document.lines)
                    if (line.expenseID) invoices[*line.expenseID].push_back(document.id);
    return invoices;
}

bool contains(const std::vector<Payment>& payments, const Payment& payment) {
    return std::any_of(payments.begin(), payments.end(), [&](const Payment& each) { return each.id == payment.id; });
}

/// The document that a draft issued on both sides became beside the one that kept its id.
Document apart(Document issued) {
    issued.id = UUID::derived(issued.id, *issued.number);
    issued.payments.clear();
    return issued;
}

/// Books may be older than the meeting at which a draft that both sides issued became two documents: there the other
/// one still stands in the place of ours. What was paid on it since goes with it.
Library withNumbersApart(Library books, const Library& base, const Library& ours) {
    if (books.documents.sharesAllWith(ours.documents)) return books;
    const Documents mine = indexed(ours.documents), before = indexed(base.documents),
                    present = indexed(books.documents);
    for (std::size_t i = 0, count = books.documents.size(); i < count; ++i) {
        const Document issued = books.documents[i];
        const auto our = lookUp(mine, issued.id);
        if (!our || !our->number || !issued.number || our->number == issued.number) continue;
        books.documents.update(i, [&our](Document& document) { document = *our; });
        Document other = apart(issued);
        if (present.contains(other.id)) continue;
        if (const auto known = lookUp(before, other.id)) other = *known;
        for (const Payment& payment : issued.payments)
            if (!contains(our->payments, payment) && !contains(other.payments, payment))
                other.payments.push_back(payment);
        books.documents.append(std::move(other));
    }
    return books;
}

/// What merging record by record leaves at odds between records: each side's change was right beside what it knew.
class Settler {
public:
    Settler(const Library& base, const Library& ours, const Library& theirs, Merged& merged)
        : base_(base), ours_(ours), theirs_(theirs), merged_(merged) {}

    void run() {
        keepWhatIsUsed();
        if (ours_.documents.sharesAllWith(theirs_.documents) && ours_.expenses.sharesAllWith(theirs_.expenses) &&
            ours_.transactions.sharesAllWith(theirs_.transactions))
            return;
        keepBothNumbers();
        keepWhatIsPaid();
        keepEstimatesConverted();
        keepExpensesBilledOnce();
        keepBankLinks();
    }

private:
    /// What one side deleted because nothing referred to it, and the other put to use.
    void keepWhatIsUsed() {
        Library& books = merged_.library;
        std::unordered_set<UUID> used;
        const auto use = [&used](const auto&... ids) {
            const auto add = [&used](const std::optional<UUID>& id) {
                if (id) used.insert(*id);
            };
            (..., add(ids));
        };
        const auto bringBack = [&](auto list) {
            auto& present = books.*list;
            for (const Library* side : {&ours_, &theirs_}) {
                const auto& records = side->*list;
                if (present.sharesAllWith(records)) continue;
                std::unordered_set<UUID> known;
                for (const auto& record : present) known.insert(record.id);
                for (std::size_t i = 0; i < records.size(); ++i)
                    if (used.contains(records[i].id) && !known.contains(records[i].id)) present.append(records.at(i));
            }
        };
        // What comes back may use something in its turn.
        for (const Document& document : books.documents) {
            use(document.linkedID);
            for (const Line& line : document.lines) use(line.expenseID);
        }
        bringBack(&Library::expenses);
        bringBack(&Library::documents);
        const auto useOf = [&use](const Expense& expense) {
            use(expense.clientID, expense.projectID, expense.categoryID);
        };
        for (const Expense& expense : books.expenses) useOf(expense);
        for (const RecurringExpense& recurring : books.recurring) useOf(recurring.template_);
        for (const Document& document : books.documents) use(document.clientID, document.seriesID);
        for (const BankTransaction& line : books.transactions) use(line.accountID);
        for (const CategoryRule& rule : books.rules) use(rule.categoryID);
        bringBack(&Library::projects);
        for (const Project& project : books.projects) use(project.clientID);
        bringBack(&Library::clients);
        bringBack(&Library::categories);
        bringBack(&Library::series);
        bringBack(&Library::accounts);
    }

    /// One draft issued on both sides with two numbers: both numbers are with a client, so both documents are kept.
    /// Payments stay on the one. With one number for both, the lines that lost are a conflict.
    void keepBothNumbers() {
        const Documents before = indexed(base_.documents), mine = indexed(ours_.documents),
                        others = indexed(theirs_.documents);
        Documents present = indexed(merged_.library.documents);
        for (const auto& [id, kept] : Documents(present)) {
            const Document *our = found(mine, id), *their = found(others, id), *old = found(before, id);
            if (!our || !their || !old || old->number || !our->number || !their->number) continue;
            if (our->number == their->number) continue;
            Document other = apart(kept->number == our->number ? *their : *our);
            if (!present.contains(other.id)) added_.push_back(std::move(other));
        }
        std::sort(added_.begin(), added_.end(), [](const Document& a, const Document& b) { return a.id < b.id; });
        for (Document& document : added_) merged_.library.documents.append(std::move(document));
    }

    /// Nobody voids an invoice that is paid or credited, so one that was voided before that was known stands.
    void keepWhatIsPaid() {
        std::unordered_map<UUID, bool> credited;
        for (const Document& note : merged_.library.documents)
            if (note.kind == DocKind::creditNote && note.isIssued() && note.linkedID) credited[*note.linkedID] = true;
        const Documents mine = indexed(ours_.documents), others = indexed(theirs_.documents);
        List<Document>& documents = merged_.library.documents;
        for (std::size_t i = 0; i < documents.size(); ++i) {
            const Document& document = documents[i];
            if (document.kind != DocKind::invoice || document.state != DocState::void_) continue;
            if (document.payments.empty() && !credited.contains(document.id)) continue;
            const Document *our = found(mine, document.id), *their = found(others, document.id);
            if (!our || !their || our->isIssued() == their->isIssued()) continue;
            const Document& standing = our->isIssued() ? *our : *their;
            merged_.conflicts.push_back({"documents", document.id.text(), "state", fieldText(our->state),
                                         fieldText(their->state), &standing == their});
            documents.update(i, [&standing](Document& kept) {
                kept.state = standing.state;
                kept.reason = standing.reason;
            });
        }
    }

    /// An estimate whose invoice one side deleted or voided and the other kept has still become that invoice.
    void keepEstimatesConverted() {
        const Documents before = indexed(base_.documents), present = indexed(merged_.library.documents);
        List<Document>& documents = merged_.library.documents;
        for (std::size_t i = 0; i < documents.size(); ++i) {
            if (documents[i].kind != DocKind::estimate || documents[i].linkedID) continue;
            const Document* old = found(before, documents[i].id);
            if (!old || !isStandingInvoice(found(present, old->linkedID))) continue;
            documents.update(i, [old](Document& estimate) { estimate.linkedID = old->linkedID; });
        }
    }

    /// Marks what merging unmarked, so that it is not billed again, and frees what is on no invoice any more. Marks
    /// that were at odds with the lines before are left.
    void keepExpensesBilledOnce() {
        const auto agrees = [](const auto& invoices, const Expense& expense) {
            const auto place = invoices.find(expense.id);
            if (!expense.rebilledInvoiceID) return place == invoices.end();
            if (place == invoices.end()) return false;
            return std::find(place->second.begin(), place->second.end(), *expense.rebilledInvoiceID) !=
                   place->second.end();
        };
        const auto mine = billing(ours_), others = billing(theirs_), now = billing(merged_.library);
        const Index<Expense> our = indexed(ours_.expenses), their = indexed(theirs_.expenses);
        List<Expense>& expenses = merged_.library.expenses;
        for (std::size_t i = 0; i < expenses.size(); ++i) {
            const UUID& id = expenses[i].id;
            if (agrees(now, expenses[i])) continue;
            const auto before = lookUp(our, id), beside = lookUp(their, id);
            if ((before && !agrees(mine, *before)) || (beside && !agrees(others, *beside))) continue;
            const auto invoices = now.find(id);
            const auto mark = invoices == now.end() ? std::nullopt : std::optional(invoices->second.front());
            expenses.update(i, [&mark](Expense& expense) { expense.rebilledInvoiceID = mark; });
        }
    }

    /// A bank line and what it is matched with name each other, whichever side matched or freed one of them. Payments
    /// stay, and so does the link that both ends agree about; of others the line's own.
    void keepBankLinks() {
        Library& books = merged_.library;
        using Named = std::pair<std::optional<UUID>, std::optional<UUID>>;
        std::unordered_map<UUID, std::vector<Named>> payments;  // invoice and payment, by line
        for (const Document& invoice : books.documents)
            for (const Payment& payment : invoice.payments)
                if (payment.bankTxnID) payments[*payment.bankTxnID].emplace_back(invoice.id, payment.id);
        const Index<Expense> expenses = indexed(books.expenses);
        const Index<BankTransaction> lines = indexed(books.transactions);
        std::unordered_map<UUID, UUID> lineOf, naming;  // by expense; the expense that names a line
        for (const Expense& expense : books.expenses) {
            const auto line = expense.bankTxnID ? lookUp(lines, *expense.bankTxnID) : nullptr;
            if (!line || payments.contains(line->id)) continue;
            if (line->expenseID == expense.id) lineOf.emplace(expense.id, line->id);
            naming.emplace(line->id, expense.id);
        }
        for (std::size_t i = 0; i < books.transactions.size(); ++i) {
            BankTransaction line = books.transactions[i];
            const auto paid = payments.find(line.id);
            if (paid != payments.end()) {
                line.expenseID.reset();
                if (std::find(paid->second.begin(), paid->second.end(), Named(line.invoiceID, line.paymentID)) ==
                    paid->second.end())
                    std::tie(line.invoiceID, line.paymentID) = paid->second.front();
            } else {
                line.invoiceID.reset();
                line.paymentID.reset();
                if (!line.expenseID && naming.contains(line.id)) line.expenseID = naming[line.id];
                if (line.expenseID && (!expenses.contains(*line.expenseID) ||
                                       lineOf.emplace(*line.expenseID, line.id).first->second != line.id))
                    line.expenseID.reset();
            }
            if (line.isMatched()) line.ignored = false;
            if (line != books.transactions[i])
                books.transactions.update(i, [&](auto& kept) { kept = std::move(line); });
        }
        for (std::size_t i = 0; i < books.expenses.size(); ++i) {
            const Expense& expense = books.expenses[i];
            const auto line = lineOf.find(expense.id);
            const auto link = line == lineOf.end() ? std::nullopt : std::optional(line->second);
            // A line that is in neither book is none of the merge's doing.
            if (link == expense.bankTxnID || (!link && !lines.contains(*expense.bankTxnID))) continue;
            books.expenses.update(i, [&link](Expense& kept) { kept.bankTxnID = link; });
        }
    }

    const Library &base_, &ours_, &theirs_;
    Merged& merged_;
    std::vector<Document> added_;
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

Merged merge(const Library& asItWas, const Library& ours, const Library& asTheyAre) {
    const Library base = withNumbersApart(asItWas, asItWas, ours), theirs = withNumbersApart(asTheyAre, asItWas, ours);
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
    Merged result{std::move(merged), std::move(merger.conflicts)};
    Settler(base, ours, theirs, result).run();
    return result;
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
