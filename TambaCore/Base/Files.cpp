#include "TambaCore/Base/Files.h"

#include "TambaCore/Base/Helper.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Base/UUID.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <system_error>
#include <thread>
#include <utility>

namespace tamba::Files {

namespace {

namespace fs = std::filesystem;

std::function<void(const char*)>& observer() {
    static std::function<void(const char*)> current;
    return current;
}

void observe(const char* operation) {
    if (observer()) observer()(operation);
}

[[noreturn]] void fail(int error) { throw FileError(std::generic_category().message(error)); }

/// Runs a std::filesystem call and turns its error code into our exception.
template <class Call>
auto checked(Call&& call) {
    std::error_code error;
    if constexpr (std::is_void_v<decltype(call(error))>) {
        call(error);
        if (error) throw FileError(error.message());
    } else {
        auto result = call(error);
        if (error) throw FileError(error.message());
        return result;
    }
}

/// A file descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(const Path& path, int flags, mode_t mode = 0) : fd_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {
        if (fd_ < 0) fail(errno);
    }
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int get() const { return fd_; }

private:
    int fd_;
};

void writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), std::min<std::size_t>(bytes.size(), 1U << 30));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) fail(errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void flush(int fd) {
    observe("flush");
    if (::fsync(fd) != 0) fail(errno);
}

void flushFolder(const Path& folder) {
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0 && errno == EACCES) return;  // files may be made in it, but it may not be opened
    if (fd < 0) fail(errno);
    const Descriptor descriptor(fd);
    observe("flush folder");
    // Some network and FUSE file systems cannot flush a folder; the file itself is safe by then.
    if (::fsync(descriptor.get()) != 0 && errno != EINVAL && errno != ENOTSUP) fail(errno);
}

/// The hidden name a file has until it is whole. Fixed, so that what a crash leaves behind is overwritten next time.
Path unfinished(const Path& path) {
    const std::string name = path.filename().string();
    return path.parent_path() / ("." + std::string(Text::prefixBytes(name, 240)) + ".tmp");
}

Stamp stampOf(const struct stat& info) {
    return {static_cast<std::uint64_t>(info.st_size),
            std::int64_t{info.st_mtim.tv_sec} * 1'000'000'000 + info.st_mtim.tv_nsec,
            static_cast<std::uint64_t>(info.st_ino)};
}

void removeQuietly(const Path& path) {
    std::error_code ignored;
    fs::remove(path, ignored);
}

/// False when `to` exists.
bool renameToNew(const Path& from, const Path& to) {
    observe("rename");
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno == EEXIST) return false;
    if (errno != EINVAL && errno != ENOSYS) fail(errno);
    // A file system without that call: the folder has one writer, so looking first is enough.
    if (Files::exists(to)) return false;
    if (::rename(from.c_str(), to.c_str()) != 0) fail(errno);
    return true;
}

}  // namespace

void setObserver(std::function<void(const char* operation)> newObserver) { observer() = std::move(newObserver); }

bool exists(const Path& path) {
    std::error_code error;
    const auto type = fs::symlink_status(path, error).type();
    if (type == fs::file_type::none) throw FileError(error.message());
    return type != fs::file_type::not_found;
}

/// Memory for a large text is handed out in large pages, by another thread while its beginning is filled: of a hundred
/// megabytes, half the time would go to that. Memory of less than some megabytes is left as it is.
static std::jthread handOutPages(char* begin, std::size_t size) {
    constexpr std::uintptr_t page = 2 << 20;
    const auto from = (reinterpret_cast<std::uintptr_t>(begin) + page - 1) / page * page;
    const auto to = (reinterpret_cast<std::uintptr_t>(begin) + size) / page * page;
    if (to < from + 8 * page) return {};
    void* pages = reinterpret_cast<void*>(from);
    (void)::madvise(pages, to - from, MADV_HUGEPAGE);
    return helper([pages, length = to - from] { (void)::madvise(pages, length, MADV_POPULATE_WRITE); });
}

std::string read(const Path& path) {
    const Descriptor descriptor(path, O_RDONLY);
    struct stat info{};
    if (::fstat(descriptor.get(), &info) != 0) fail(errno);
    if (S_ISDIR(info.st_mode)) fail(EISDIR);
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(info.st_size) + 128);  // parsers want some room behind the text
    const std::jthread pages = handOutPages(bytes.data(), bytes.capacity());
    // Piece by piece through the processor's cache: a string of the whole size would be filled with zeros first.
    std::array<char, 1 << 18> piece;
    while (true) {
        const ssize_t count = ::read(descriptor.get(), piece.data(), piece.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) fail(errno);
        if (count == 0) break;
        bytes.append(piece.data(), static_cast<std::size_t>(count));
    }
    return bytes;
}

std::optional<std::uint64_t> size(const Path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return std::nullopt;
    const auto bytes = fs::file_size(path, error);
    if (error) return std::nullopt;
    return bytes;
}

Stamp writeAtomically(const Path& path, std::string_view bytes) {
    return writeAtomically(path, [bytes](const auto& write) { write(bytes); });
}

Stamp writeAtomically(const Path& path,
                      const std::function<void(const std::function<void(std::string_view)>& write)>& make) {
    std::error_code ignored;
    Stamp written;
    // Through a link, so that a library file kept elsewhere stays where its owner put it.
    const Path target =
        fs::is_symlink(path, ignored) ? checked([&](auto& e) { return fs::weakly_canonical(path, e); }) : path;
    struct stat info{};
    const mode_t mode = ::stat(target.c_str(), &info) == 0 ? info.st_mode & 0777 : 0644;
    const Path temporary = unfinished(target);
    try {
        observe("create");
        const Descriptor descriptor(temporary, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, mode);
        observe("write");
        off_t begun = 0, end = 0;
        make([&](std::string_view bytes) {
            constexpr off_t early = 8 << 20;
            writeAll(descriptor.get(), bytes);
            end += static_cast<off_t>(bytes.size());
            if (end - begun < early) return;
            // Only a hint: what goes wrong is told when the whole is flushed.
            (void)::sync_file_range(descriptor.get(), begun, end - begun, SYNC_FILE_RANGE_WRITE);
            begun = end;
        });
        flush(descriptor.get());
        if (::fstat(descriptor.get(), &info) != 0) fail(errno);
        written = stampOf(info);
        observe("rename");
        if (::rename(temporary.c_str(), target.c_str()) != 0) fail(errno);
    } catch (...) {
        removeQuietly(temporary);
        throw;
    }
    flushFolder(target.parent_path());
    return written;
}

bool copyToNew(const Path& from, const Path& to) {
    if (Files::exists(to)) return false;
    const Path temporary = unfinished(to);
    try {
        observe("copy");
        removeQuietly(temporary);
        checked([&](auto& e) { return fs::copy_file(from, temporary, fs::copy_options::overwrite_existing, e); });
        checked([&](auto& e) { fs::permissions(temporary, fs::perms::owner_write, fs::perm_options::add, e); });
        flush(Descriptor(temporary, O_RDONLY).get());
        if (!renameToNew(temporary, to)) {
            removeQuietly(temporary);
            return false;
        }
    } catch (const FileError&) {
        removeQuietly(temporary);
        throw;
    }
    flushFolder(to.parent_path());
    return true;
}

void move(const Path& from, const Path& to) {
    observe("move");
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return;
    if (errno != EXDEV && errno != EINVAL && errno != ENOSYS) fail(errno);
    if (!copyToNew(from, to)) fail(EEXIST);
    Files::remove(from);
}

void remove(const Path& path) {
    observe("remove");
    checked([&](auto& e) { return fs::remove(path, e); });
}

void makeFolders(const Path& folder) {
    std::error_code ignored;
    if (fs::is_directory(folder, ignored)) return;
    observe("make folder");
    checked([&](auto& e) { return fs::create_directories(folder, e); });
}

std::vector<std::string> names(const Path& folder) {
    std::vector<std::string> found;
    auto entry = checked([&](auto& e) { return fs::directory_iterator(folder, e); });
    while (entry != fs::directory_iterator()) {
        found.push_back(entry->path().filename().string());
        checked([&](auto& e) { entry.increment(e); });
    }
    std::sort(found.begin(), found.end());
    return found;
}

void copyTree(const Path& from, const Path& to) {
    observe("copy");
    checked([&](auto& e) { fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::copy_symlinks, e); });
}

void removeTree(const Path& path) {
    observe("remove");
    checked([&](auto& e) { return fs::remove_all(path, e); });
}

void append(const Path& path, std::string_view bytes) {
    observe("write");
    const Descriptor descriptor(path, O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW, 0644);
    writeAll(descriptor.get(), bytes);
}

void flushAll(const Path& folder) {
    const Descriptor descriptor(folder, O_RDONLY | O_DIRECTORY);
    observe("flush");
    if (::syncfs(descriptor.get()) != 0) fail(errno);
}

void exchange(const Path& from, const Path& to) {
    if (!renameToNew(from, to)) {
        observe("rename");
        if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_EXCHANGE) != 0) {
            if (errno != EINVAL && errno != ENOSYS) fail(errno);
            // A file system without that call.
            const Path aside = unfinished(to);
            Files::removeTree(aside);
            Files::move(to, aside);
            Files::move(from, to);
            Files::move(aside, from);
        }
    }
    flushFolder(to.parent_path());
}

std::string safeName(std::string_view name) {
    const std::size_t separator = name.find_last_of("/\\");
    if (separator != std::string_view::npos) name.remove_prefix(separator + 1);
    std::string safe = Text::repairedUTF8(name);
    std::replace_if(
        safe.begin(), safe.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    safe = std::string(Text::trim(safe));
    while (!safe.empty() && safe.front() == '.') safe.erase(0, 1);  // neither hidden nor "..", the parent
    if (safe.size() > 200) {
        const std::string extension = Path(safe).extension().string();
        safe = std::string(Text::prefixBytes(safe, 180)) + (extension.size() <= 20 ? extension : "");
    }
    return safe.empty() ? "file" : safe;
}

Path temporaryFolder() {
    return checked([&](auto& e) { return fs::temp_directory_path(e); });
}

Path writeTemporary(std::string_view bytes, std::string_view name) {
    const std::string safe = safeName(name);
    const Path path = temporaryFolder() / ("tamba-" + UUID::random().text() + "-" + safe);
    try {
        const Descriptor descriptor(path, O_WRONLY | O_CREAT | O_EXCL, 0600);
        writeAll(descriptor.get(), bytes);
    } catch (const FileError&) {
        removeQuietly(path);
        throw;
    }
    return path;
}

Path realPath(const Path& path) {
    const Path absolute = checked([&](auto& e) { return fs::absolute(path, e); });
    const Path real = checked([&](auto& e) { return fs::weakly_canonical(absolute, e); });
    return (real / "").parent_path();  // a folder that does not exist yet may have kept a slash at its end
}

std::optional<Path> inside(const Path& folder, std::string_view relative) {
    const Path part(relative);
    if (relative.empty() || part.is_absolute() || relative.find('\0') != std::string_view::npos) return std::nullopt;
    for (const Path& piece : part)
        if (piece == "..") return std::nullopt;
    std::error_code error;
    const std::string root = fs::weakly_canonical(folder, error).string();
    if (error) return std::nullopt;
    const std::string real = fs::weakly_canonical(folder / part, error).string();
    if (error || !real.starts_with(root) || real.size() < root.size() + 2 || real[root.size()] != '/')
        return std::nullopt;
    return folder / part;
}

bool sameBytes(const Path& a, const Path& b) {
    const auto sizeA = size(a);
    const auto sizeB = size(b);
    return sizeA && sizeB && *sizeA == *sizeB && read(a) == read(b);
}

std::optional<Stamp> stamp(const Path& path) {
    struct stat info{};
    if (::stat(path.c_str(), &info) != 0) return std::nullopt;
    return stampOf(info);
}

}  // namespace tamba::Files
