#include "TambaCore/Model/LibrarySession.h"

#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace tamba {

namespace {

namespace fs = std::filesystem;

/// Versions saved since the last foreign one that are told apart. Each costs little, as records are shared.
constexpr std::size_t versionsKept = 32;
constexpr std::string_view openedPrefix = "opened-", replacedPrefix = "replaced-";
constexpr std::size_t openedKept = 14, replacedKept = 30;
using Backup = LibrarySession::Backup;
constexpr std::pair<std::string_view, Backup::Kind> kinds[] = {
    {"tamba-", Backup::Kind::saved}, {openedPrefix, Backup::Kind::opened}, {replacedPrefix, Backup::Kind::replaced}};

/// FNV-1a, to turn a path into a file name; nothing depends on it being hard to forge.
std::string hashed(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325ULL;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

/// The folder for locks: with the user's state files, so that the window and a cron job find the same one.
fs::path lockFolder() {
    if (const char* state = std::getenv("XDG_STATE_HOME"); state && *state == '/')
        return fs::path(state) / "Tamba" / "locks";
    if (const char* home = std::getenv("HOME"); home && *home == '/')
        return fs::path(home) / ".local/state/Tamba/locks";
    return Files::temporaryFolder() / ("tamba-locks-" + std::to_string(::getuid()));
}

using Versions = std::vector<const Library*>;

/// What `theirs` tells of the step from one of our versions to the next: whether who wrote it had seen that.
struct Traces {
    bool proof = false;   ///< a record that can only come from that step or one after it
    bool sign = false;    ///< what a person wrote in that step; two people may write the same
    bool denial = false;  ///< a record as it was before the step, or none of those it added
};

/// Ids that are derived come about on every machine: the month's rent has the same.
bool isRandom(const UUID& id) { return id.bytes[6] >> 4 == 4; }

/// Whether a person made the change. What matching, issuing and recurring do turns out the same on two machines.
template <class Record>
bool isByHand(const Record&, const Record&) {
    return true;
}
bool isByHand(const Expense& before, const Expense& after) {
    return before.bankTxnID == after.bankTxnID && before.recurringID == after.recurringID;
}
bool isByHand(const Document& before, const Document& after) {
    return before.state == DocState::draft && after.state == DocState::draft;
}
bool isByHand(const BankTransaction&, const BankTransaction&) { return false; }
bool isByHand(const RecurringExpense&, const RecurringExpense&) { return false; }
bool isByHand(const NumberSeries&, const NumberSeries&) { return false; }

/// `versions[at]` is what the step led to.
template <class Record>
void look(Traces& traces, const Library& theirs, const Versions& versions, std::size_t at, List<Record> Library::* list,
          const ListChanges& step) {
    const auto record = [list](const Library& library, const UUID& id) { return find(library.*list, id); };
    const auto isFirst = [&](auto&& has) {
        return std::none_of(versions.begin(), versions.begin() + std::ptrdiff_t(at), has);
    };
    bool added = false, held = false;
    for (const UUID& id : step.added) {
        if (!isRandom(id)) continue;
        added = true;
        held = held || (record(theirs, id) && isFirst([&](const Library* old) { return record(*old, id) != nullptr; }));
    }
    traces.proof |= held;
    traces.denial |= added && !held;
    for (const UUID& id : step.altered) {
        const Record* their = record(theirs, id);
        if (!their) continue;
        const Record &before = *record(*versions[at - 1], id), &after = *record(*versions[at], id);
        traces.denial |= *their == before;
        traces.sign |= *their == after && isByHand(before, after) && isFirst([&](const Library* old) {
            const Record* was = record(*old, id);
            return was && *was == after;
        });
    }
    for (const UUID& id : step.removed) traces.denial |= isRandom(id) && record(theirs, id);
}

Traces tracesOf(const Library& theirs, const Versions& versions, std::size_t at) {
    const Library &before = *versions[at - 1], &after = *versions[at];
    const Changes step = Changes::between(before, after);
    Traces traces;
    const auto isFirst = [&](auto member) {
        return std::none_of(versions.begin(), versions.begin() + std::ptrdiff_t(at),
                            [&](const Library* old) { return old->*member == after.*member; });
    };
    if (step.business) {
        traces.denial |= theirs.business == before.business;
        traces.sign |= theirs.business == after.business && isFirst(&Library::business);
    }
    if (before.rates != after.rates) {
        traces.denial |= theirs.rates == before.rates;
        traces.sign |= theirs.rates == after.rates && isFirst(&Library::rates);
    }
    look(traces, theirs, versions, at, &Library::clients, step.clients);
    look(traces, theirs, versions, at, &Library::items, step.items);
    look(traces, theirs, versions, at, &Library::categories, step.categories);
    look(traces, theirs, versions, at, &Library::projects, step.projects);
    look(traces, theirs, versions, at, &Library::expenses, step.expenses);
    look(traces, theirs, versions, at, &Library::recurring, step.recurring);
    look(traces, theirs, versions, at, &Library::documents, step.documents);
    look(traces, theirs, versions, at, &Library::series, step.series);
    look(traces, theirs, versions, at, &Library::accounts, step.accounts);
    look(traces, theirs, versions, at, &Library::transactions, step.transactions);
    look(traces, theirs, versions, at, &Library::rules, step.rules);
    return traces;
}

/// Of a file in Backups, by its name; nothing for what is no backup.
std::optional<Backup> backup(const std::string& name) {
    for (const auto& [prefix, kind] : kinds)
        if (name.starts_with(prefix) && name.ends_with(".json"))
            if (const auto day = Day::iso(std::string_view(name).substr(prefix.size(), 10)))
                return Backup{name, *day, kind, 0};
    return std::nullopt;
}

/// A name that is free for books that are about to be lost.
fs::path placeForReplaced(const LibraryStore& store) {
    const std::string time = instantText(now());  // 2026-04-01T09:30:00Z
    std::string name = std::string(replacedPrefix) + time.substr(0, 10) + "-" + time.substr(11, 2) +
                       time.substr(14, 2) + time.substr(17, 2);
    while (Files::exists(store.backupsFolder() / (name + ".json"))) name += "-2";
    return store.backupsFolder() / (name + ".json");
}

template <class Records>
std::unordered_set<UUID> idsOf(const Records& records) {
    std::unordered_set<UUID> ids;
    for (const auto& record : records) ids.insert(record.id);
    return ids;
}

/// What came back here since the last save, as by undo, was taken away by nobody else, even if an earlier version that
/// stands for what the others had seen still has it: then it is new.
Library withoutWhatCameBack(Library ancestor, const Library& last, const Library& ours) {
    const auto leaveOut = [&](const auto& field) {
        auto& records = ancestor.*field.member;
        if constexpr (requires { records.sharesAllWith(records), records[0].id; }) {
            const auto& old = last.*field.member;
            const auto& present = ours.*field.member;
            if (records.sharesAllWith(old) || present.sharesAllWith(old)) return;
            const auto saved = idsOf(old), here = idsOf(present);
            for (std::size_t i = records.size(); i-- > 0;)
                if (here.contains(records[i].id) && !saved.contains(records[i].id)) records.erase(i);
        }
    };
    std::apply([&](const auto&... field) { (..., leaveOut(field)); }, Fields<Library>);
    const auto payments = [](const Library& library) {
        std::unordered_set<UUID> ids;
        for (const Document& document : library.documents) ids.merge(idsOf(document.payments));
        return ids;
    };
    if (ancestor.documents.sharesAllWith(last.documents)) return ancestor;
    const auto saved = payments(last), here = payments(ours);
    const auto cameBack = [&](const Payment& payment) {
        return here.contains(payment.id) && !saved.contains(payment.id);
    };
    for (std::size_t i = 0; i < ancestor.documents.size(); ++i) {
        const auto& paid = ancestor.documents[i].payments;
        if (std::any_of(paid.begin(), paid.end(), cameBack))
            ancestor.documents.update(i, [&](Document& document) { std::erase_if(document.payments, cameBack); });
    }
    return ancestor;
}

bool losesRecords(const Library& before, const Library& after) {
    const Changes changes = Changes::between(before, after);
    for (const ListChanges* list : {&changes.clients, &changes.items, &changes.categories, &changes.projects,
                                    &changes.expenses, &changes.recurring, &changes.documents, &changes.series,
                                    &changes.accounts, &changes.transactions, &changes.rules})
        if (!list->removed.empty()) return true;
    return false;
}

}  // namespace

/// Held while the session lives; the system drops it when the process ends, however it ends.
struct LibrarySession::Lock {
    explicit Lock(const fs::path& folder) {
        fs::path file;
        try {
            Files::makeFolders(lockFolder());
            file = lockFolder() / (hashed(Files::realPath(folder).string()) + ".lock");
        } catch (const FileError& error) {
            throw StoreError(StoreError::Code::unwritable, error.what());
        }
        fd = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (fd < 0) throw StoreError(StoreError::Code::unwritable, "its lock cannot be made");
        if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
            const bool taken = errno == EWOULDBLOCK;
            ::close(fd);
            if (taken) throw LockedError();
            throw StoreError(StoreError::Code::unwritable, "its lock cannot be taken");
        }
    }
    ~Lock() { ::close(fd); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    int fd = -1;
};

LibrarySession::LibrarySession(fs::path folder, Access access) : store_(std::move(folder)) {
    if (access == Access::write) lock_ = std::make_unique<Lock>(store_.folder());
    stamp_ = Files::stamp(store_.fileURL());  // before reading: a change in between is noticed at the next save
    base_ = store_.load();
    if (base_ && access == Access::write) keepAsOpened();
}

LibrarySession::~LibrarySession() = default;

void LibrarySession::keepAsOpened() const {
    try {
        const fs::path copy = store_.backupsFolder() / (std::string(openedPrefix) + Day::today().iso() + ".json");
        if (Files::exists(copy)) return;
        Files::makeFolders(store_.backupsFolder());
        if (Files::copyToNew(store_.fileURL(), copy)) store_.pruneBackups(openedPrefix, openedKept);
    } catch (const FileError&) {
        // A folder that cannot be written can still be looked at; saving will say so.
    }
}

LibrarySession::Saved LibrarySession::save(const Library& ours) {
    if (!lock_) fatal("books opened for reading are being saved");
    if (const auto theirs = strangersChange()) return mergeAndSave(ours, *theirs);
    // The file is in its place before the folder is flushed: a save that fails may have put these books there.
    attempted_ = ours;
    stamp_ = store_.save(ours);
    attempted_.reset();
    wrote(ours);
    return {ours, false, {}, {}};
}

std::optional<LibrarySession::Saved> LibrarySession::takeInChange(const Library& ours) {
    if (!lock_) fatal("books opened for reading are being saved");
    const auto theirs = strangersChange();
    if (!theirs) return std::nullopt;
    return mergeAndSave(ours, *theirs);
}

LibrarySession::Saved LibrarySession::mergeAndSave(const Library& ours, const Change& theirs) {
    Library ancestor = ancestorOf(theirs.library);
    if (base_) ancestor = withoutWhatCameBack(std::move(ancestor), *base_, ours);
    Merged merged = merge(ancestor, ours, theirs.library);
    // What looks removed there may not have got there yet.
    if (losesRecords(ours, merged.library)) keep(ours);
    stamp_ = merged.library == theirs.library ? theirs.stamp : store_.save(merged.library);
    earlier_.clear();
    base_ = theirs.library;
    wrote(merged.library);
    return {std::move(merged.library), true, std::move(merged.conflicts), theirs.library};
}

void LibrarySession::wrote(const Library& library) {
    if (base_ && *base_ == library) return;
    if (base_) earlier_.push_back(std::move(*base_));
    // The first is what the others had; of our own the oldest matter least.
    if (earlier_.size() > versionsKept) earlier_.erase(earlier_.begin() + 1);
    base_ = library;
}

/// The latest of our versions that whoever wrote `theirs` had seen. Whoever has seen one has seen those before it. In
/// doubt an earlier one, the first of which was read from them: with one too late, what was made here since would count
/// as taken away there; with one too early, what both have seen is compared once more.
Library LibrarySession::ancestorOf(const Library& theirs) const {
    if (!base_) return {};
    Versions versions;
    for (const Library& version : earlier_) versions.push_back(&version);
    versions.push_back(&*base_);
    std::vector<Traces> steps(1);
    std::size_t seen = 0;
    for (std::size_t at = 1; at < versions.size(); ++at) {
        steps.push_back(tracesOf(theirs, versions, at));
        if (steps.back().proof) seen = at;
    }
    for (std::size_t at = seen + 1; at < versions.size() && !steps[at].denial; ++at)
        if (steps[at].sign) seen = at;
    return *versions[seen];
}

/// The books on disk, when they are no longer those last read or written. What this session holds is left as it is, so
/// that a save that fails afterwards finds the change again.
std::optional<LibrarySession::Change> LibrarySession::strangersChange() {
    const auto present = Files::stamp(store_.fileURL());
    if (!present || present == stamp_) return std::nullopt;  // a file that is gone comes back with the next save
    std::optional<Library> onDisk = store_.load();
    if (onDisk && onDisk == attempted_) wrote(*onDisk);
    attempted_.reset();
    if (onDisk && onDisk != base_) return Change{std::move(*onDisk), *present};
    stamp_ = present;  // a synchroniser touched or rewrote the same books
    return std::nullopt;
}

std::vector<LibrarySession::Backup> LibrarySession::backups() const { return backups(store_.folder()); }

std::vector<LibrarySession::Backup> LibrarySession::backups(const fs::path& folder) {
    const LibraryStore store(folder);
    std::vector<Backup> found;
    if (!Files::stamp(store.backupsFolder())) return found;
    std::vector<std::string> names;
    try {
        names = Files::names(store.backupsFolder());
    } catch (const FileError& error) {
        throw StoreError(StoreError::Code::unreadable, error.what());
    }
    for (const std::string& name : names) {
        const auto size = Files::size(store.backupsFolder() / name);
        if (auto one = backup(name); one && size) found.push_back(std::move(*one)), found.back().size = *size;
    }
    std::stable_sort(found.begin(), found.end(), [](const Backup& a, const Backup& b) {
        return std::tie(b.day, a.kind, b.name) < std::tie(a.day, b.kind, a.name);
    });
    return found;
}

Library LibrarySession::readBackup(std::string_view name) const {
    if (Files::safeName(name) != name) throw StoreError(StoreError::Code::notAFile, "");
    const fs::path file = store_.backupsFolder() / name;
    if (!Files::size(file)) throw StoreError(StoreError::Code::notAFile, "");
    return LibraryStore::read(file);
}

void LibrarySession::keep(const Library& library) const {
    try {
        Files::makeFolders(store_.backupsFolder());
        Files::writeAtomically(placeForReplaced(store_), ModelsJSON::encode(library));
    } catch (const FileError& error) {
        throw StoreError(StoreError::Code::unwritable, error.what());
    }
    store_.pruneBackups(replacedPrefix, replacedKept);
}

Library LibrarySession::restore(const fs::path& folder, std::string_view name) {
    const Lock lock(folder);
    const LibraryStore store(folder);
    const fs::path backup = store.backupsFolder() / name;
    if (Files::safeName(name) != name || !Files::size(backup)) throw StoreError(StoreError::Code::notAFile, "");
    Library library = LibraryStore::read(backup);
    try {
        // Read before old ones make room, of which it may be one.
        const std::string bytes = Files::read(backup);
        if (Files::exists(store.fileURL())) {
            while (!Files::copyToNew(store.fileURL(), placeForReplaced(store))) {
                // A synchroniser has just put a file there: the next name.
            }
            store.pruneBackups(replacedPrefix, replacedKept);
        }
        Files::writeAtomically(store.fileURL(), bytes);
    } catch (const FileError& error) {
        throw StoreError(StoreError::Code::unwritable, error.what());
    }
    return library;
}

}  // namespace tamba
