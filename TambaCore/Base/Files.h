#pragma once

#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamba {

/// A file operation that failed: `what()` is the system's own description ("No space left on device").
class FileError : public std::exception {
public:
    explicit FileError(std::string description) : description_(std::move(description)) {}
    [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

private:
    std::string description_;
};

/// The door to the disk. Everything throws `FileError` with the system's description.
namespace Files {

using Path = std::filesystem::path;

/// What identifies one state of a file without reading it.
struct Stamp {
    std::uint64_t size = 0;
    std::int64_t modifiedNanoseconds = 0;
    std::uint64_t inode = 0;
    bool operator==(const Stamp&) const = default;
};

/// Whether the folder has such an entry, be it a link that leads nowhere. Throws when that cannot be told.
[[nodiscard]] bool exists(const Path& path);
[[nodiscard]] std::string read(const Path& path);
/// Size in bytes of a regular file, or nothing.
[[nodiscard]] std::optional<std::uint64_t> size(const Path& path);

/// Replaces `path` by `bytes` so that a power cut at any moment leaves the old file or the new one, whole: a temporary
/// file beside it is written and flushed to the disk, renamed over it, and the folder is flushed. Gives the stamp of
/// what was written, which a later change by somebody else cannot have.
Stamp writeAtomically(const Path& path, std::string_view bytes);
/// The same with a text that is handed to `write` in pieces: the disk begins with the first while others are still to
/// be made. What `make` throws leaves the old file.
Stamp writeAtomically(const Path& path,
                      const std::function<void(const std::function<void(std::string_view)>& write)>& make);
/// Copies a file to a name that is not yet taken, flushed to the disk before it carries that name. False when the
/// name is taken: nothing is ever overwritten.
[[nodiscard]] bool copyToNew(const Path& from, const Path& to);
/// Renames; falls back to copy and remove between file systems. Never overwrites.
void move(const Path& from, const Path& to);
void remove(const Path& path);
void makeFolders(const Path& folder);
/// Names of the entries of a folder, sorted.
[[nodiscard]] std::vector<std::string> names(const Path& folder);
/// Copies a file or a whole folder.
void copyTree(const Path& from, const Path& to);
/// Removes a file or a whole folder, links in it as links; nothing where there is none.
void removeTree(const Path& path);

/// Adds to the end of a file, made where there is none. Nothing is flushed: for the many files of a folder that nobody
/// uses before `flushAll`.
void append(const Path& path, std::string_view bytes);
/// Puts everything on the disk that was written to the file system of `folder`.
void flushAll(const Path& folder);
/// Gives a file or folder the name `to`; what had that name before gets the name `from`, all or nothing.
void exchange(const Path& from, const Path& to);
/// A name that came from outside as a plain file name: no folders, no control characters, not hidden, at most 200
/// bytes.
[[nodiscard]] std::string safeName(std::string_view name);
/// The system's folder for temporary files.
[[nodiscard]] Path temporaryFolder();
/// A new file in that folder. Its name holds a fresh UUID and ends in `name`, made safe.
[[nodiscard]] Path writeTemporary(std::string_view bytes, std::string_view name);

/// The absolute path without links and dots, as far as it exists: one folder has one such name.
[[nodiscard]] Path realPath(const Path& path);
/// The place `relative` names inside `folder`; nothing when it is absolute, empty, climbs out with "..", or leaves the
/// folder through a link. The file itself need not exist.
[[nodiscard]] std::optional<Path> inside(const Path& folder, std::string_view relative);

/// Same size and same bytes.
[[nodiscard]] bool sameBytes(const Path& a, const Path& b);

/// Of the file itself, also behind a link; nothing when there is none.
[[nodiscard]] std::optional<Stamp> stamp(const Path& path);

/// Called before each operation that changes the disk, with its name. For tests that cut the power: the callback may
/// end the process or throw. Null by default.
void setObserver(std::function<void(const char* operation)> observer);

}  // namespace Files
}  // namespace tamba
