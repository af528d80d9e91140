#pragma once

#include "TambaCore/Base/Files.h"
#include "TambaCore/Model/Changes.h"
#include "TambaCore/Model/LibraryStore.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamba {

/// The folder is open in another Tamba on this machine.
class LockedError : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override {
        return "These books are already open in another Tamba. Close it there first.";
    }
};

/// One folder of books, open for work: what application and command line share above `LibraryStore`. It holds an
/// advisory lock (outside the folder, keyed by its real path), copies the file as found at the day's first opening to
/// Backups/opened-<yyyy-mm-dd>.json (14 kept), and before each save looks whether another machine has changed the file,
/// and then merges instead of overwriting. A file that a synchroniser brings from a machine that has not seen what was
/// saved here last is recognised as older: what is missing in it is not taken for removed. Books that lose records to
/// another machine's change, or to a backup, are first kept as Backups/replaced-<yyyy-mm-dd-hhmmss>.json (30 kept).
///
///     LibrarySession session(folder, LibrarySession::Access::write);   // throws LockedError, StoreError
///     Library library = session.loaded().value_or(Library::make());
///     auto saved = session.save(library);                              // saved.library is what now stands on disk
class LibrarySession {
public:
    enum class Access { read, write };

    /// Locks (for `write`) and loads. A damaged file throws `StoreError::unreadable` and nothing is touched.
    LibrarySession(std::filesystem::path folder, Access access);
    ~LibrarySession();
    LibrarySession(const LibrarySession&) = delete;
    LibrarySession& operator=(const LibrarySession&) = delete;

    [[nodiscard]] const LibraryStore& store() const { return store_; }
    /// What opening found; nothing for a new book.
    [[nodiscard]] const std::optional<Library>& loaded() const { return base_; }

    struct Saved {
        Library library;                  ///< what now stands on disk: `ours`, or the merge
        bool merged = false;              ///< another machine's changes came in
        std::vector<Conflict> conflicts;  ///< fields both changed; ours were kept, theirs are named here
        Library theirs = {};              ///< what the other machine had written, where it was merged
    };
    /// Saves `ours`. When the file on disk is no longer what was last read or written, its changes are merged in first.
    /// Throws `StoreError`; what is on disk then stays, also when it became unreadable.
    Saved save(const Library& ours);

    /// Another machine's change, when there is one, merged with `ours`. Saves only where the file lacks something of
    /// ours. Throws `StoreError` as `save` does.
    [[nodiscard]] std::optional<Saved> takeInChange(const Library& ours);

    struct Backup {
        enum class Kind { saved, opened, replaced };  ///< the day's first save; as the day found it; before it was lost
        std::string name;                             ///< file name in Backups
        Day day;
        Kind kind = Kind::saved;
        std::uint64_t size = 0;
    };
    /// Newest first; of one day in the order of `Kind`. The second also works on damaged books.
    [[nodiscard]] std::vector<Backup> backups() const;
    [[nodiscard]] static std::vector<Backup> backups(const std::filesystem::path& folder);
    /// Reads a backup. Throws `unreadable`, or `notAFile` for a name that is not in the Backups folder.
    [[nodiscard]] Library readBackup(std::string_view name) const;
    /// Keeps books that are on their way out among the backups, as replaced. Throws `unwritable`.
    void keep(const Library& library) const;
    /// Puts a backup in place of the books; the present file is first kept as replaced. Works on damaged books too.
    static Library restore(const std::filesystem::path& folder, std::string_view name);

private:
    struct Lock;
    void keepAsOpened() const;
    struct Change {
        Library library;
        Files::Stamp stamp;
    };
    [[nodiscard]] std::optional<Change> strangersChange();
    [[nodiscard]] Library ancestorOf(const Library& theirs) const;
    Saved mergeAndSave(const Library& ours, const Change& theirs);
    void wrote(const Library& library);

    LibraryStore store_;
    std::unique_ptr<Lock> lock_;
    std::optional<Library> base_;       // the books as last read or written
    std::vector<Library> earlier_;      // as read from somebody, and as saved here since then, before `base_`
    std::optional<Library> attempted_;  // by a save that failed
    std::optional<Files::Stamp> stamp_;
};

}  // namespace tamba
