#pragma once

#include "CorvexKit/UpdateDisk.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

/// The file of an update: a tar archive, compressed with gzip or xz, of plain files and folders. Anything else in it,
/// and any name that leads elsewhere, spoils the whole of it.
namespace tamba::UpdateArchive {

/// Names of the files and bytes of all of them together that an update may have.
inline constexpr std::size_t mostEntries = 20'000;
inline constexpr std::uint64_t mostBytes = 2'000'000'000;

/// `what()` says, for the end of a sentence, what an update must not hold.
class Spoiled : public std::exception {
public:
    explicit Spoiled(std::string why) : why_(std::move(why)) {}
    [[nodiscard]] const char* what() const noexcept override { return why_.c_str(); }

private:
    std::string why_;
};

struct Entry {
    std::string path;  // relative, of plain names: "bin/tamba"
    std::uint64_t size = 0;
    UpdateDisk::Mode mode = UpdateDisk::Mode::plain;
};

/// The files in it, in their order. Throws `Spoiled`, also for an archive that breaks off; touches nothing.
[[nodiscard]] std::vector<Entry> files(const std::filesystem::path& archive);

/// Unpacks what `files` has found to be in order, into `folder`, which is there and empty. Throws `Spoiled` and
/// `std::system_error`.
void unpack(const std::filesystem::path& archive, const std::filesystem::path& folder, UpdateDisk& disk);

}  // namespace tamba::UpdateArchive
