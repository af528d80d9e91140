#pragma once

#include "CorvexKit/UpdateDisk.h"
#include "CorvexKit/UpdateFeed.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A program that can be replaced by its next version: a folder that the user may write, laid out like this.
///
///     tamba                   the launcher, which people start
///     current                 a link to the version in use, replaced at once by renaming
///     versions/1.0.0/bin/tamba
///     versions/1.0.1/bin/tamba
///     trial, tried            a version that has not shown its window yet, and the one it goes back to
///     refused                 the version that failed to start
///
/// A kill at any moment leaves `current` leading to a whole version.
namespace tamba {

/// Why an update was not installed; `what()` is the finished sentence, and the present version stays in use.
class UpdateError : public std::exception {
public:
    enum class Code { altered, spoiled, noRoom, disk, busy };
    UpdateError(Code code, std::string sentence) : code_(code), sentence_(std::move(sentence)) {}
    [[nodiscard]] Code code() const { return code_; }
    [[nodiscard]] const char* what() const noexcept override { return sentence_.c_str(); }

private:
    Code code_;
    std::string sentence_;
};

/// A version that was judged worth having.
struct Update {
    std::string name;  // as people call it, "Tamba 1.0.1"
    Version version;
    UpdateFile file;
};

class UpdateInstallation {
public:
    using Path = std::filesystem::path;

    /// The one that this executable runs from; nothing where it is laid out in another way or may not be written,
    /// because a package manager owns it.
    [[nodiscard]] static std::optional<UpdateInstallation> around(const Path& executable);
    /// One that stands at `root` for certain.
    UpdateInstallation(Path root, std::string program) : root_(std::move(root)), program_(std::move(program)) {}

    /// The version that `current` leads to, whole; nothing when there is none.
    [[nodiscard]] std::optional<Version> current() const;
    /// The version that failed to start here and must not come again.
    [[nodiscard]] std::optional<Version> refused() const;
    [[nodiscard]] Path executable(const Version& version) const;

    /// Checks the downloaded file against what was signed, unpacks it beside the present version and switches to it;
    /// the start to come is its trial. Leaves versions older than the present one behind. Nothing to do when the
    /// version in use is as new. Throws `UpdateError`; `current` is then as it was, and nothing of the file is left.
    void install(const Path& archive, const Update& update, UpdateDisk& disk) const;

    /// To be called when a version has shown its window: its trial is over. Throws `std::system_error`.
    void confirm(const Version& version, UpdateDisk& disk) const;

    /// Starts the version in use with these arguments, and waits for it only in its trial: when that ends in failure
    /// the version before is back, and is started. Gives the exit status; does not return where it need not wait.
    [[nodiscard]] int launch(const std::vector<std::string>& arguments, UpdateDisk& disk) const;

private:
    struct Trial {
        Version version, previous;
    };
    [[nodiscard]] Path versions() const { return root_ / "versions"; }
    [[nodiscard]] std::optional<Trial> trial(const Path& mark) const;
    /// Throws `UpdateArchive::Spoiled`.
    void check(const Path& archive) const;
    void unpack(const Path& archive, const Version& version, UpdateDisk& disk) const;
    /// All versions but the present one, and what an interrupted installation left.
    void removeOthers(const Version& present, UpdateDisk& disk) const;
    void switchTo(const Version& version, UpdateDisk& disk) const;
    void goBack(const Trial& trial, UpdateDisk& disk) const;
    [[nodiscard]] int tryOut(const Trial& trial, int mark, const std::vector<std::string>& arguments,
                             UpdateDisk& disk) const;
    [[nodiscard]] int start(const std::vector<std::string>& arguments) const;

    Path root_;
    std::string program_;
};

}  // namespace tamba
