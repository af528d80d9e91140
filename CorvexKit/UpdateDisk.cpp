#include "CorvexKit/UpdateDisk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <vector>

namespace tamba {
namespace {

void check(bool done, const UpdateDisk::Path& path) {
    if (!done) throw std::system_error(errno, std::generic_category(), path.native());
}

class Open {
public:
    Open(const UpdateDisk::Path& path, int flags, mode_t mode = 0)
        : number_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {
        check(number_ >= 0, path);
    }
    ~Open() { ::close(number_); }
    Open(const Open&) = delete;
    Open& operator=(const Open&) = delete;
    [[nodiscard]] int number() const { return number_; }

private:
    int number_;
};

}  // namespace

void UpdateDisk::makeFolder(const Path& folder) { check(::mkdir(folder.c_str(), 0755) == 0, folder); }

void UpdateDisk::createFile(const Path& file, Mode mode) {
    const Open open(file, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode == Mode::executable ? 0755 : 0644);
}

void UpdateDisk::append(const Path& file, std::string_view bytes) {
    const Open open(file, O_WRONLY | O_APPEND | O_NOFOLLOW);
    while (!bytes.empty()) {
        const ssize_t written = ::write(open.number(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        check(written >= 0, file);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void UpdateDisk::makeLink(const Path& target, const Path& link) {
    check(::symlink(target.c_str(), link.c_str()) == 0, link);
}

void UpdateDisk::rename(const Path& from, const Path& to) { check(::rename(from.c_str(), to.c_str()) == 0, to); }

void UpdateDisk::remove(const Path& path) { check(::remove(path.c_str()) == 0, path); }

void UpdateDisk::flush(const Path& folder) {
    const Open open(folder, O_RDONLY | O_DIRECTORY);
    check(::syncfs(open.number()) == 0, folder);
}

void UpdateDisk::removeTree(const Path& path) {
    namespace fs = std::filesystem;
    const auto status = fs::symlink_status(path);
    if (status.type() == fs::file_type::not_found) return;
    if (status.type() == fs::file_type::directory) {
        std::vector<Path> entries;
        for (const auto& entry : fs::directory_iterator(path)) entries.push_back(entry.path());
        for (const Path& entry : entries) removeTree(entry);
    }
    remove(path);
}

void UpdateDisk::replace(const Path& path, std::string_view bytes) {
    const Path fresh = path.parent_path() / ("." + path.filename().native() + ".new");
    removeTree(fresh);
    createFile(fresh, Mode::plain);
    append(fresh, bytes);
    flush(path.parent_path());
    rename(fresh, path);
}

}  // namespace tamba
