#include "TambaCore/Model/LibrarySession.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace tamba {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t openedKept = 14;
/// Versions saved since the last foreign one that are told apart. Each costs little, as records are shared.
constexpr std::size_t versionsKept = 32;
constexpr std::string_view savedPrefix = "tamba-", openedPrefix = "opened-";

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

/// Whether a record of the step that led to `after` shows in `theirs`. An id that was new can only come from here; what
/// they did with its record since is theirs.
template <class Record>
bool showsStep(const List<Record>& after, const List<Record>& theirs, const ListChanges& step) {
    const auto held = [&](const UUID& id) { return find(theirs, id) != nullptr; };
    return std::ranges::any_of(step.added, held) ||
           std::ranges::any_of(step.altered,
                               [&](const UUID& id) { return held(id) && *find(theirs, id) == *find(after, id); }) ||
           !std::ranges::all_of(step.removed, held);
}

/// Whether who wrote `theirs` had seen the step from `before` to `after`.
bool hasSeen(const Library& theirs, const Library& before, const Library& after) {
    const Changes step = Changes::between(before, after);
    return (step.business && theirs.business == after.business) ||
           (step.other && theirs.rates == after.rates && theirs.onboarded == after.onboarded) ||
           showsStep(after.clients, theirs.clients, step.clients) || showsStep(after.items, theirs.items, step.items) ||
           showsStep(after.categories, theirs.categories, step.categories) ||
           showsStep(after.projects, theirs.projects, step.projects) ||
           showsStep(after.expenses, theirs.expenses, step.expenses) ||
           showsStep(after.recurring, theirs.recurring, step.recurring) ||
           showsStep(after.documents, theirs.documents, step.documents) ||
           showsStep(after.series, theirs.series, step.series) ||
           showsStep(after.accounts, theirs.accounts, step.accounts) ||
           showsStep(after.transactions, theirs.transactions, step.transactions) ||
           showsStep(after.rules, theirs.rules, step.rules);
}

bool isBackup(std::string_view name) {
    return name.ends_with(".json") && (name.starts_with(savedPrefix) || name.starts_with(openedPrefix));
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
    stamp_ = store_.save(ours);
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
    Merged merged = merge(ancestorOf(theirs.library), ours, theirs.library);
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

/// The latest of our versions that whoever wrote `theirs` had seen; where nothing tells, what was read from them last.
Library LibrarySession::ancestorOf(const Library& theirs) const {
    if (!base_) return {};
    const Library* after = &*base_;
    for (std::size_t step = earlier_.size(); step-- > 0; after = &earlier_[step])
        if (hasSeen(theirs, earlier_[step], *after)) return *after;
    return *after;
}

/// The books on disk, when they are no longer those last read or written. What this session holds is left as it is, so
/// that a save that fails afterwards finds the change again.
std::optional<LibrarySession::Change> LibrarySession::strangersChange() {
    const auto present = Files::stamp(store_.fileURL());
    if (!present || present == stamp_) return std::nullopt;  // a file that is gone comes back with the next save
    std::optional<Library> onDisk = store_.load();
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
        if (!isBackup(name)) continue;
        const bool asOpened = name.starts_with(openedPrefix);
        const auto day = Day::iso(std::string_view(name).substr((asOpened ? openedPrefix : savedPrefix).size()));
        const auto size = Files::size(store.backupsFolder() / name);
        if (day && size) found.push_back({name, *day, asOpened, *size});
    }
    std::stable_sort(found.begin(), found.end(), [](const Backup& a, const Backup& b) {
        return a.day != b.day ? a.day > b.day : a.asOpened < b.asOpened;
    });
    return found;
}

Library LibrarySession::readBackup(std::string_view name) const {
    if (Files::safeName(name) != name) throw StoreError(StoreError::Code::notAFile, "");
    const fs::path file = store_.backupsFolder() / name;
    if (!Files::size(file)) throw StoreError(StoreError::Code::notAFile, "");
    return LibraryStore::read(file);
}

Library LibrarySession::restore(const fs::path& folder, std::string_view name) {
    const Lock lock(folder);
    const LibraryStore store(folder);
    const fs::path backup = store.backupsFolder() / name;
    if (Files::safeName(name) != name || !Files::size(backup)) throw StoreError(StoreError::Code::notAFile, "");
    Library library = LibraryStore::read(backup);
    try {
        if (Files::exists(store.fileURL())) {
            const std::string time = instantText(now());  // 2026-04-01T09:30:00Z
            std::string kept =
                "replaced-" + time.substr(0, 10) + "-" + time.substr(11, 2) + time.substr(14, 2) + time.substr(17, 2);
            while (!Files::copyToNew(store.fileURL(), store.backupsFolder() / (kept + ".json"))) kept += "-2";
        }
        Files::writeAtomically(store.fileURL(), Files::read(backup));
    } catch (const FileError& error) {
        throw StoreError(StoreError::Code::unwritable, error.what());
    }
    return library;
}

}  // namespace tamba
