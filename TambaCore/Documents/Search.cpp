#include "TambaCore/Documents/Search.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/SearchWords.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace tamba::Search {
namespace {

constexpr std::size_t kinds = 8;
constexpr const char* dayPattern = "d MMM yyyy";

struct Entry {
    Kind kind = Kind::expense;
    std::uint32_t at = 0;  // in its list
};

/// Names of clients, projects, categories and accounts, which are words of the records that refer to them.
using Names = std::unordered_map<UUID, std::string_view>;

Names namesIn(const Library& library) {
    Names names;
    const auto add = [&names](const auto& list) {
        for (const auto& record : list) names.emplace(record.id, record.name);
    };
    add(library.clients), add(library.projects), add(library.categories), add(library.accounts);
    return names;
}

std::string joined(std::string_view first, std::string_view second) {
    return first.empty() || second.empty() ? std::string(first) + std::string(second)
                                           : std::string(first) + " · " + std::string(second);
}

Kind kindOf(const Document& document) {
    return document.kind == DocKind::estimate     ? Kind::estimate
           : document.kind == DocKind::creditNote ? Kind::creditNote
                                                  : Kind::invoice;
}

std::optional<std::int64_t> totalOf(const Document& document) {
    if (!DocMath::isBelievable(document)) return {};
    return DocMath::totals(document).total;
}

}  // namespace

/// Records of one value of the books with their words.
struct Index::Segment {
    Library library;
    Names names;                        // into `library`
    std::vector<Entry> entries;         // by kind, the newest first
    std::vector<std::string> words;     // sorted
    std::vector<std::uint32_t> first;   // places[first[i]] to places[first[i + 1]] are those of words[i]
    std::vector<std::uint32_t> places;  // an entry's position, doubled, and 1 where the word is in its title

    /// `wanted`: whether a record, given by its address, is to be in it.
    template <class Wanted>
    Segment(const Library& books, Wanted&& wanted) : library(books), names(namesIn(library)) {
        const auto add = [&](const auto& list, auto&& kind) {
            for (std::size_t i = 0; i < list.size(); ++i)
                if (wanted(&list[i])) entries.push_back({kind(list[i]), static_cast<std::uint32_t>(i)});
        };
        const auto always = [](Kind kind) { return [kind](const auto&) { return kind; }; };
        add(library.expenses, always(Kind::expense));
        add(library.documents, kindOf);
        add(library.clients, always(Kind::client));
        add(library.projects, always(Kind::project));
        add(library.items, always(Kind::item));
        add(library.transactions, always(Kind::bankLine));
        std::stable_sort(entries.begin(), entries.end(), [this](const Entry& a, const Entry& b) {
            return std::tuple(a.kind, day(b)) < std::tuple(b.kind, day(a));
        });
        collect();
    }

    [[nodiscard]] std::string name(const std::optional<UUID>& id) const {
        const auto found = id ? names.find(*id) : names.end();
        return found == names.end() ? std::string() : std::string(found->second);
    }
    [[nodiscard]] const void* record(const Entry& entry) const;
    [[nodiscard]] Day day(const Entry& entry) const;
    [[nodiscard]] Hit hit(const Entry& entry, const std::vector<std::string>& wanted) const;

    /// Calls `take(text, whether it is in the title)` for each text of a record.
    template <class Take>
    void texts(const Entry& entry, Take&& take) const;

    /// For each entry how many of the words are in its title, plus one; 0 where one of them is nowhere.
    [[nodiscard]] std::vector<std::uint8_t> match(const std::vector<std::string>& wanted) const;

private:
    void collect();
    [[nodiscard]] Currency currency(const BankTransaction& line) const {
        const BankAccount* account = line.accountID ? tamba::find(library.accounts, *line.accountID) : nullptr;
        return account ? Currency::of(account->currency) : library.home();
    }
    [[nodiscard]] std::string client(const Document& document) const {
        return document.billTo ? document.billTo->name : name(document.clientID);
    }
    [[nodiscard]] std::string title(const Entry& entry) const;
    [[nodiscard]] std::string detail(const Entry& entry) const;
};

const void* Index::Segment::record(const Entry& entry) const {
    switch (entry.kind) {
        case Kind::expense:
            return &library.expenses[entry.at];
        case Kind::client:
            return &library.clients[entry.at];
        case Kind::project:
            return &library.projects[entry.at];
        case Kind::item:
            return &library.items[entry.at];
        case Kind::bankLine:
            return &library.transactions[entry.at];
        default:
            return &library.documents[entry.at];
    }
}

Day Index::Segment::day(const Entry& entry) const {
    switch (entry.kind) {
        case Kind::expense:
            return library.expenses[entry.at].date;
        case Kind::bankLine:
            return library.transactions[entry.at].date;
        case Kind::client:
        case Kind::project:
        case Kind::item:
            return {};
        default:
            return library.documents[entry.at].issueDate;
    }
}

template <class Take>
void Index::Segment::texts(const Entry& entry, Take&& take) const {
    const auto amount = [&](std::int64_t minor, std::string_view currency) {
        take(MoneyFormat::plain(minor, Currency::of(currency)), false);
    };
    switch (entry.kind) {
        case Kind::expense: {
            const Expense& e = library.expenses[entry.at];
            take(e.vendor, true);
            amount(e.amount, e.currency);
            for (const auto& id : {e.categoryID, e.projectID, e.clientID}) take(name(id), false);
            take(e.vendorTaxID, false);
            take(e.notes, false);
            for (const Attachment& file : e.attachments) take(file.originalName, false);
            if (e.ocrText) take(*e.ocrText, false);
            return;
        }
        case Kind::client: {
            const Client& c = library.clients[entry.at];
            take(c.name, true);
            for (const std::string* text : {&c.contact, &c.email, &c.phone, &c.taxID, &c.address, &c.notes})
                take(*text, false);
            return;
        }
        case Kind::project: {
            const Project& p = library.projects[entry.at];
            take(p.name, true);
            return take(name(p.clientID), false);
        }
        case Kind::item: {
            const CatalogItem& item = library.items[entry.at];
            take(item.name, true);
            take(item.detail, false);
            take(item.hsn, false);
            return amount(item.priceMinor, library.business.homeCurrency);
        }
        case Kind::bankLine: {
            const BankTransaction& t = library.transactions[entry.at];
            take(t.counterparty.value_or(t.text), true);
            take(MoneyFormat::plain(t.amount, currency(t)), false);
            take(t.text, false);
            take(t.reference, false);
            return take(name(t.accountID), false);
        }
        default: {
            const Document& d = library.documents[entry.at];
            const std::string number = d.displayNumber();
            take(number, true);
            take(client(d), true);
            // "INV/26-27/007" is looked for as 7, too.
            Words parts(number);
            for (Word part; parts.next(part);)
                if (const std::size_t zeros = std::min(part.text.find_first_not_of('0'), part.text.size()); zeros > 0)
                    take(part.text.substr(zeros), true);
            if (const auto total = totalOf(d)) amount(*total, d.currency);
            if (d.billTo) take(d.billTo->taxID, false);
            for (const std::string* text : {&d.reference, &d.notes, &d.reason}) take(*text, false);
            for (const Line& line : d.lines)
                for (const std::string* text : {&line.name, &line.detail, &line.hsn}) take(*text, false);
            for (const Payment& payment : d.payments) {
                amount(payment.amount, d.currency);
                take(payment.reference, false);
            }
        }
    }
}

void Index::Segment::collect() {
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };
    std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>> known;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> pairs;  // word, place
    std::vector<std::uint32_t> own;                              // a word's number, doubled, and 1 in a title
    for (std::size_t i = 0; i < entries.size(); ++i) {
        own.clear();
        texts(entries[i], [&](std::string_view text, bool inTitle) {
            Words rest(text);
            for (Word word; rest.next(word);) {
                auto at = known.find(word.text);
                if (at == known.end())
                    at = known.emplace(std::string(word.text), static_cast<std::uint32_t>(known.size())).first;
                own.push_back(2 * at->second + (inTitle ? 1 : 0));
            }
        });
        std::sort(own.begin(), own.end());
        for (std::size_t j = 0; j < own.size(); ++j)
            if (j + 1 == own.size() || own[j] / 2 != own[j + 1] / 2)
                pairs.emplace_back(own[j] / 2, static_cast<std::uint32_t>(2 * i) + own[j] % 2);
    }
    std::vector<const std::pair<const std::string, std::uint32_t>*> sorted;
    sorted.reserve(known.size());
    for (const auto& each : known) sorted.push_back(&each);
    std::sort(sorted.begin(), sorted.end(), [](const auto* a, const auto* b) { return a->first < b->first; });
    std::vector<std::uint32_t> rank(known.size());
    words.reserve(known.size());
    for (const auto* each : sorted) {
        rank[each->second] = static_cast<std::uint32_t>(words.size());
        words.push_back(each->first);
    }
    first.assign(words.size() + 1, 0);
    for (const auto& [word, place] : pairs) ++first[rank[word] + 1];
    for (std::size_t i = 1; i < first.size(); ++i) first[i] += first[i - 1];
    places.resize(pairs.size());
    std::vector<std::uint32_t> next(first.begin(), first.end());
    for (const auto& [word, place] : pairs) places[next[rank[word]]++] = place;
}

std::vector<std::uint8_t> Index::Segment::match(const std::vector<std::string>& wanted) const {
    std::vector<std::uint8_t> scores(entries.size(), 1), seen;
    for (const std::string& word : wanted) {
        const auto begin = std::lower_bound(words.begin(), words.end(), word);
        const auto end = std::partition_point(begin, words.end(),
                                              [&word](const std::string& each) { return each.starts_with(word); });
        seen.assign(entries.size(), 0);
        const auto from = first[static_cast<std::size_t>(begin - words.begin())];
        const auto to = first[static_cast<std::size_t>(end - words.begin())];
        for (std::uint32_t i = from; i < to; ++i)
            seen[places[i] / 2] |= static_cast<std::uint8_t>(1 + 2 * (places[i] % 2));
        for (std::size_t i = 0; i < seen.size(); ++i)
            scores[i] =
                seen[i] == 0 || scores[i] == 0 ? std::uint8_t{} : static_cast<std::uint8_t>(scores[i] + seen[i] / 2);
    }
    return scores;
}

std::string Index::Segment::title(const Entry& entry) const {
    switch (entry.kind) {
        case Kind::expense: {
            const Expense& e = library.expenses[entry.at];
            return e.vendor.empty() ? "Expense" : e.vendor;
        }
        case Kind::client:
            return library.clients[entry.at].name;
        case Kind::project:
            return library.projects[entry.at].name;
        case Kind::item:
            return library.items[entry.at].name;
        case Kind::bankLine: {
            const BankTransaction& t = library.transactions[entry.at];
            return std::string(Text::trim(t.counterparty.value_or(t.text)));
        }
        default: {
            const Document& d = library.documents[entry.at];
            return joined(d.displayNumber(), client(d));
        }
    }
}

std::string Index::Segment::detail(const Entry& entry) const {
    switch (entry.kind) {
        case Kind::expense: {
            const Expense& e = library.expenses[entry.at];
            return joined(
                MoneyFormat::string(e.amount, Currency::of(e.currency)) + " · " + e.date.formatted(dayPattern),
                name(e.categoryID));
        }
        case Kind::client: {
            const Client& c = library.clients[entry.at];
            return joined(c.contact, c.email);
        }
        case Kind::project:
            return name(library.projects[entry.at].clientID);
        case Kind::item: {
            const CatalogItem& item = library.items[entry.at];
            return MoneyFormat::string(item.priceMinor, library.home()) +
                   (item.unit.empty() ? std::string() : " / " + item.unit);
        }
        case Kind::bankLine: {
            const BankTransaction& t = library.transactions[entry.at];
            return joined(MoneyFormat::string(t.amount, currency(t)) + " · " + t.date.formatted(dayPattern),
                          name(t.accountID));
        }
        default: {
            const Document& d = library.documents[entry.at];
            const auto total = totalOf(d);
            return joined(total ? MoneyFormat::string(*total, Currency::of(d.currency)) : std::string(),
                          d.issueDate.formatted(dayPattern));
        }
    }
}

namespace {

bool shows(std::string_view text, std::string_view wanted) {
    Words words(text);
    for (Word word; words.next(word);)
        if (word.text.starts_with(wanted)) return true;
    return false;
}

/// Some words before and after the place, on one line.
std::string around(std::string_view text, std::size_t begin, std::size_t end) {
    constexpr std::size_t before = 24, after = 60;  // bytes
    const std::size_t from = begin <= before ? 0 : std::min(text.find_first_of(" \n\t", begin - before), begin);
    std::size_t to = text.size();
    if (to - end > after) {
        to = end + Text::prefixBytes(text.substr(end, after + 8), after).size();
        if (const std::size_t blank = text.find_last_of(" \n\t", to); blank != text.npos && blank >= end) to = blank;
    }
    std::string line;
    for (const char c : text.substr(from, to - from)) {
        const bool blank = c == ' ' || c == '\n' || c == '\t' || c == '\r';
        if (!blank)
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    return (from > 0 ? "… " : "") + std::string(Text::trim(line)) + (to < text.size() ? " …" : "");
}

}  // namespace

Hit Index::Segment::hit(const Entry& entry, const std::vector<std::string>& wanted) const {
    Hit hit{entry.kind, {}, title(entry), detail(entry), {}};
    switch (entry.kind) {
        case Kind::expense:
            hit.id = library.expenses[entry.at].id;
            break;
        case Kind::client:
            hit.id = library.clients[entry.at].id;
            break;
        case Kind::project:
            hit.id = library.projects[entry.at].id;
            break;
        case Kind::item:
            hit.id = library.items[entry.at].id;
            break;
        case Kind::bankLine:
            hit.id = library.transactions[entry.at].id;
            break;
        default:
            hit.id = library.documents[entry.at].id;
    }
    for (const std::string& each : wanted) {
        if (!hit.found.empty()) break;
        if (shows(hit.title, each) || shows(hit.detail, each)) continue;
        texts(entry, [&](std::string_view text, bool) {
            Words rest(text);
            for (Word word; hit.found.empty() && rest.next(word);)
                if (word.text.starts_with(each)) hit.found = around(text, word.begin, word.end);
        });
    }
    return hit;
}

Index::Index() : Index(Library()) {}

Index::Index(const Library& library, const Index* earlier) {
    if (earlier && takeOver(library, *earlier)) return;
    base_ = std::make_shared<const Segment>(library, [](const void*) { return true; });
}

bool Index::takeOver(const Library& library, const Index& earlier) {
    const Segment& base = *earlier.base_;
    // A name is part of records that do not change with it.
    const Names names = namesIn(library);
    for (const auto& [id, name] : base.names)
        if (const auto now = names.find(id); now == names.end() || now->second != name) return false;
    // So is a currency of their amounts.
    if (base.library.business.homeCurrency != library.business.homeCurrency) return false;
    if (base.library.accounts != library.accounts) return false;

    std::unordered_set<const void*> changed;
    const auto note = [&changed](const auto& list) {
        for (std::size_t i = 0; i < list.size(); ++i) changed.insert(&list[i]);
    };
    note(library.expenses), note(library.documents), note(library.clients), note(library.projects);
    note(library.items), note(library.transactions);
    std::vector<bool> gone(base.entries.size());
    for (std::size_t i = 0; i < gone.size(); ++i) gone[i] = changed.erase(base.record(base.entries[i])) == 0;
    // Past this, preparing all of them once is cheaper than carrying the rest along.
    constexpr std::size_t worthwhile = 2000;
    if (changed.size() > worthwhile) return false;
    base_ = earlier.base_;
    gone_ = std::move(gone);
    if (!changed.empty())
        since_ = std::make_shared<const Segment>(library,
                                                 [&changed](const void* record) { return changed.contains(record); });
    return true;
}

std::vector<Group> Index::find(std::string_view words, std::size_t limit) const {
    constexpr std::size_t mostWords = 16;
    std::vector<std::string> wanted;
    Words rest(words);
    for (Word word; wanted.size() < mostWords && rest.next(word);) wanted.emplace_back(word.text);
    if (wanted.empty()) return {};

    struct Match {
        std::uint8_t score;
        Day day;
        const Segment* segment;
        Entry entry;
    };
    std::vector<Match> matches[kinds];
    std::size_t counts[kinds] = {};
    for (const Segment* segment : {base_.get(), since_.get()}) {
        if (!segment) continue;
        const auto scores = segment->match(wanted);
        std::size_t taken[kinds][mostWords + 2] = {};
        for (std::size_t i = 0; i < segment->entries.size(); ++i) {
            if (scores[i] == 0 || (segment == base_.get() && !gone_.empty() && gone_[i])) continue;
            const Entry& entry = segment->entries[i];
            const auto kind = static_cast<std::size_t>(entry.kind);
            ++counts[kind];
            // They come newest first.
            if (taken[kind][scores[i]]++ < limit)
                matches[kind].push_back({scores[i], segment->day(entry), segment, entry});
        }
    }
    std::vector<Group> groups;
    for (std::size_t kind = 0; kind < kinds; ++kind) {
        if (counts[kind] == 0) continue;
        std::stable_sort(matches[kind].begin(), matches[kind].end(), [](const Match& a, const Match& b) {
            return std::tuple(b.score, b.day) < std::tuple(a.score, a.day);
        });
        Group group{static_cast<Kind>(kind), counts[kind], {}};
        for (std::size_t i = 0; i < std::min(limit, matches[kind].size()); ++i)
            group.hits.push_back(matches[kind][i].segment->hit(matches[kind][i].entry, wanted));
        groups.push_back(std::move(group));
    }
    return groups;
}

}  // namespace tamba::Search
