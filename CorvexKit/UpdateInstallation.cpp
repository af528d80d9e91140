#include "CorvexKit/UpdateInstallation.h"

#include "CorvexKit/UpdateArchive.h"

#include <fcntl.h>
#include <sodium.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

namespace tamba {
namespace {

namespace fs = std::filesystem;
using Code = UpdateError::Code;

/// Held by who changes an installation; ends with the process at the latest. The folder itself is locked, so that no
/// file of the lock stays behind.
class Lock {
public:
    explicit Lock(const fs::path& folder) : number_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        if (number_ >= 0 && ::flock(number_, LOCK_EX | LOCK_NB) == 0) held_ = true;
    }
    ~Lock() {
        if (number_ >= 0) ::close(number_);
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    [[nodiscard]] bool held() const { return held_; }

private:
    int number_;
    bool held_ = false;
};

bool isTheSigned(const fs::path& archive, const UpdateFile& file) {
    std::ifstream in(archive, std::ios::binary);
    crypto_hash_sha256_state state;
    crypto_hash_sha256_init(&state);
    std::vector<char> buffer(1 << 18);
    std::uint64_t size = 0;
    while (in && size <= file.size) {
        in.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
        const auto count = static_cast<std::uint64_t>(in.gcount());
        crypto_hash_sha256_update(&state, reinterpret_cast<const unsigned char*>(buffer.data()), count);
        size += count;
    }
    SHA256 sum;
    crypto_hash_sha256_final(&state, sum.data());
    return in.eof() && size == file.size && sum == file.sha256;
}

std::string firstLine(std::istream& in) {
    std::string line;
    std::getline(in, line);
    return line;
}

}  // namespace

std::optional<UpdateInstallation> UpdateInstallation::around(const Path& executable) {
    std::error_code error;
    const Path real = fs::canonical(executable, error);
    const Path version = real.parent_path().parent_path();
    const Path root = version.parent_path().parent_path();
    if (error || real.parent_path().filename() != "bin" || !Version::read(version.filename().native()) ||
        version.parent_path().filename() != "versions" || !fs::is_symlink(root / "current", error) ||
        ::access(root.c_str(), W_OK) != 0 || ::access(version.parent_path().c_str(), W_OK) != 0)
        return {};
    return UpdateInstallation(root, real.filename().native());
}

UpdateInstallation::Path UpdateInstallation::executable(const Version& version) const {
    return versions() / version.text() / "bin" / program_;
}

std::optional<Version> UpdateInstallation::current() const {
    std::error_code error;
    const Path target = fs::read_symlink(root_ / "current", error);
    const auto version = Version::read(target.filename().native());
    if (error || !version || ::access(executable(*version).c_str(), X_OK) != 0) return {};
    return version;
}

std::optional<Version> UpdateInstallation::refused() const {
    std::ifstream in(root_ / "refused");
    return Version::read(firstLine(in));
}

std::optional<UpdateInstallation::Trial> UpdateInstallation::trial(const Path& mark) const {
    std::ifstream in(mark);
    const auto version = Version::read(firstLine(in)), previous = Version::read(firstLine(in));
    if (!version || !previous) return {};
    return Trial{*version, *previous};
}

void UpdateInstallation::install(const Path& archive, const Update& update, UpdateDisk& disk) const {
    const Lock lock(versions());
    if (!lock.held()) throw UpdateError(Code::busy, update.name + " is being installed from another window already.");
    const auto present = current();
    if (!present)
        throw UpdateError(Code::disk, update.name + " can’t be installed: the version in use can’t be found.");
    if (*present >= update.version) return;
    for (const char* mark : {"trial", "tried"})
        if (const auto made = trial(root_ / mark); made && made->version == *present)
            throw UpdateError(Code::busy, update.name + " has to wait until " + present->text() + " was started once.");
    if (!isTheSigned(archive, update.file))
        throw UpdateError(Code::altered,
                          "The file of " + update.name + " isn’t the one its makers signed, so it wasn’t unpacked.");
    const std::string stays = " " + present->text() + " stays in use.";
    try {
        check(archive);
        removeOthers(*present, disk);
        unpack(archive, update.version, disk);
        disk.replace(root_ / "trial", update.version.text() + '\n' + present->text() + '\n');
        switchTo(update.version, disk);
    } catch (const UpdateArchive::Spoiled& spoiled) {
        throw UpdateError(Code::spoiled, "The file of " + update.name + " holds " + spoiled.what() +
                                             ", so it wasn’t installed." + stays);
    } catch (const std::system_error& error) {
        if (current() == update.version) return;  // only the last flush is missing
        try {
            removeOthers(*present, disk);
        } catch (const std::system_error&) {
            // The next installation tries that again.
        }
        if (error.code() == std::errc::no_space_on_device)
            throw UpdateError(Code::noRoom, "The disk has no room for " + update.name + "." + stays);
        throw UpdateError(Code::disk,
                          update.name + " couldn’t be put in its place: " + error.code().message() + "." + stays);
    }
}

void UpdateInstallation::check(const Path& archive) const {
    const auto files = UpdateArchive::files(archive);
    if (std::none_of(files.begin(), files.end(), [&](const UpdateArchive::Entry& entry) {
            return entry.path == "bin/" + program_ && entry.mode == UpdateDisk::Mode::executable;
        }))
        throw UpdateArchive::Spoiled("no program");
}

void UpdateInstallation::unpack(const Path& archive, const Version& version, UpdateDisk& disk) const {
    const Path incoming = versions() / (".incoming-" + version.text());
    disk.makeFolder(incoming);
    UpdateArchive::unpack(archive, incoming, disk);
    disk.flush(incoming);
    disk.rename(incoming, versions() / version.text());
}

void UpdateInstallation::removeOthers(const Version& present, UpdateDisk& disk) const {
    std::vector<Path> others;
    for (const auto& entry : fs::directory_iterator(versions()))
        if (entry.path().filename() != present.text()) others.push_back(entry.path());
    for (const Path& other : others) disk.removeTree(other);
    for (const char* mark : {"trial", "tried"}) disk.removeTree(root_ / mark);
    for (const char* unfinished : {".trial.new", ".refused.new", ".current.new"}) disk.removeTree(root_ / unfinished);
}

void UpdateInstallation::switchTo(const Version& version, UpdateDisk& disk) const {
    const Path fresh = root_ / ".current.new";
    disk.removeTree(fresh);
    disk.makeLink(Path("versions") / version.text(), fresh);
    disk.flush(root_);
    disk.rename(fresh, root_ / "current");
    disk.flush(root_);
}

void UpdateInstallation::confirm(const Version& version, UpdateDisk& disk) const {
    for (const char* mark : {"trial", "tried"})
        if (const auto made = trial(root_ / mark); made && made->version == version) disk.remove(root_ / mark);
}

void UpdateInstallation::goBack(const Trial& trial, UpdateDisk& disk) const {
    if (::access(executable(trial.previous).c_str(), X_OK) != 0) return disk.remove(root_ / "tried");
    // First what must not be forgotten: else the version would come again.
    disk.replace(root_ / "refused", trial.version.text() + '\n');
    switchTo(trial.previous, disk);
    disk.remove(root_ / "tried");
}

}  // namespace tamba
