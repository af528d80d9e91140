#pragma once

#include "CorvexKit/UpdateInstallation.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/updates/Signed.h"

#include <archive.h>
#include <archive_entry.h>

#include <map>
#include <string>
#include <system_error>
#include <vector>

namespace tamba::testing {

namespace fs = std::filesystem;

/// One entry of an archive, as good or as bad as wanted.
struct Packed {
    std::string path, content;
    unsigned type = AE_IFREG;
    unsigned mode = 0755;
    std::string link = {}, hardLink = {};
};

inline std::string pack(const std::vector<Packed>& entries, int compression = ARCHIVE_FILTER_GZIP) {
    std::string bytes(100'000, '\0');
    std::size_t used = 0;
    archive* tar = archive_write_new();
    archive_write_set_format_pax_restricted(tar);
    archive_write_add_filter(tar, compression);
    archive_write_set_bytes_in_last_block(tar, 1);
    archive_write_open_memory(tar, bytes.data(), bytes.size(), &used);
    for (const Packed& packed : entries) {
        archive_entry* entry = archive_entry_new();
        archive_entry_set_pathname(entry, packed.path.c_str());
        archive_entry_set_filetype(entry, packed.type);
        archive_entry_set_perm(entry, static_cast<mode_t>(packed.mode));
        archive_entry_set_size(entry, static_cast<la_int64_t>(packed.content.size()));
        if (!packed.link.empty()) archive_entry_set_symlink(entry, packed.link.c_str());
        if (!packed.hardLink.empty()) archive_entry_set_hardlink(entry, packed.hardLink.c_str());
        if (packed.type == AE_IFCHR) archive_entry_set_rdev(entry, 0x0103);
        archive_write_header(tar, entry);
        archive_write_data(tar, packed.content.data(), packed.content.size());
        archive_entry_free(entry);
    }
    archive_write_close(tar);
    archive_write_free(tar);
    bytes.resize(used);
    return bytes;
}

/// Everything below a folder by its path: the content of files, where links lead.
inline std::map<std::string, std::string> tree(const fs::path& root) {
    std::map<std::string, std::string> found;
    if (!fs::exists(root)) return found;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string path = entry.path().lexically_relative(root);
        if (entry.is_symlink())
            found[path] = "-> " + fs::read_symlink(entry.path()).native();
        else
            found[path] = entry.is_directory() ? "/" : contents(entry.path());
    }
    return found;
}

/// What a command prints, and its exit status at the end.
inline std::string outputOf(const std::string& command) {
    FILE* pipe = ::popen(command.c_str(), "r");
    std::string output;
    for (int letter = 0; (letter = std::fgetc(pipe)) != EOF;) output += static_cast<char>(letter);
    const int status = ::pclose(pipe);
    return output + '=' + std::to_string(WEXITSTATUS(status));
}

/// Version 1.0.0 of a program that says its version, with the launcher beside it.
class Installed {
public:
    explicit Installed(const fs::path& root, const fs::path& program = {}) : root_(root) {
        fs::create_directories(root / "versions/1.0.0/bin");
        if (program.empty())
            write(root / "versions/1.0.0/bin/books", saying("1.0.0"));
        else
            fs::copy_file(program, root / "versions/1.0.0/bin/books");
        fs::permissions(root / "versions/1.0.0/bin/books", fs::perms::owner_all);
        fs::create_symlink("versions/1.0.0", root / "current");
        std::error_code elsewhere;
        fs::create_hard_link(LAUNCHER, root / "books", elsewhere);
        if (elsewhere) fs::copy_file(LAUNCHER, root / "books");
    }
    static std::string saying(const std::string& words) { return "#!/bin/sh\necho " + words + "\n"; }
    [[nodiscard]] UpdateInstallation installation() const {
        return *UpdateInstallation::around(root_ / "current/bin/books");
    }
    /// What starting the program prints, with its exit status.
    [[nodiscard]] std::string started(const std::string& arguments = {}) const {
        return outputOf((root_ / "books").native() + ' ' + arguments + " 2>/dev/null");
    }

private:
    fs::path root_;
};

inline Update updateTo(const Version& version, std::string_view archive) {
    return {"Books " + version.text(), version, {"https://updates.example/", archive.size(), sha256(archive)}};
}

/// Flushing is for the computer that stops, and slow.
class SwiftDisk : public UpdateDisk {
public:
    void flush(const Path&) override {}
};

/// Tells of each operation before it is done. `append` is told of twice: half of its bytes are there the second time.
class WatchedDisk : public UpdateDisk {
public:
    void makeFolder(const Path& folder) override { before(), UpdateDisk::makeFolder(folder); }
    void createFile(const Path& file, Mode mode) override { before(), UpdateDisk::createFile(file, mode); }
    void append(const Path& file, std::string_view bytes) override {
        before();
        UpdateDisk::append(file, bytes.substr(0, bytes.size() / 2));
        before();
        UpdateDisk::append(file, bytes.substr(bytes.size() / 2));
    }
    void makeLink(const Path& target, const Path& link) override { before(), UpdateDisk::makeLink(target, link); }
    void rename(const Path& from, const Path& to) override { before(), UpdateDisk::rename(from, to); }
    void remove(const Path& path) override { before(), UpdateDisk::remove(path); }
    void flush(const Path&) override { before(); }

protected:
    virtual void before() = 0;
};

/// Ends the process, or is full, from the operation with this number on, counted from 0.
class BreakingDisk : public WatchedDisk {
public:
    enum class How { kill, full };
    BreakingDisk(How how, int at) : how_(how), left_(at) {}
    [[nodiscard]] bool broke() const { return left_ < 0; }
    void remove(const Path& path) override {
        if (how_ == How::kill) before();  // a full disk has files removed
        UpdateDisk::remove(path);
    }

private:
    void before() override {
        if (left_-- > 0) return;
        left_ = -1;
        if (how_ == How::kill) ::_exit(9);
        throw std::system_error(ENOSPC, std::generic_category());
    }
    const How how_;
    int left_;
};

}  // namespace tamba::testing
