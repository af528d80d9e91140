#include "CorvexKit/UpdateArchive.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <set>
#include <string_view>

namespace tamba::UpdateArchive {
namespace {

constexpr std::size_t longestName = 200;

/// The name with a leading "./" and a trailing "/" taken off; empty for the folder of all.
std::string plainPath(std::string_view name) {
    if (name.size() > longestName) throw Spoiled("a name that is too long");
    const Spoiled refusal("“" + std::string(name) + "”, a name that leads elsewhere");
    std::string path;
    for (std::string_view rest = name; !rest.empty();) {
        const std::size_t slash = rest.find('/');
        const std::string_view part = rest.substr(0, slash);
        const bool first = rest.size() == name.size();
        rest.remove_prefix(slash == std::string_view::npos ? rest.size() : slash + 1);
        if (part == "." && first) continue;
        const bool plain = std::all_of(part.begin(), part.end(),
                                       [](char letter) { return letter >= ' ' && letter <= '~' && letter != '\\'; });
        if (part.empty() || part == "." || part == ".." || !plain) throw refusal;
        path += (path.empty() ? "" : "/") + std::string(part);
    }
    return path;
}

/// Reads one archive from its beginning to its end, all rules kept. `begin` is told of each file, `data` of its bytes;
/// `folder` of each folder, those that the archive does not name itself included, before what is in it.
struct Walk {
    std::function<void(const Entry&)> begin = [](const Entry&) {};
    std::function<void(const Entry&, std::string_view)> data = [](const Entry&, std::string_view) {};
    std::function<void(const std::string&)> folder = [](const std::string&) {};

    void over(const std::filesystem::path& file) {
        const std::unique_ptr<archive, decltype(&archive_read_free)> reader(archive_read_new(), &archive_read_free);
        archive* const tar = reader.get();
        archive_read_support_format_tar(tar);
        archive_read_support_filter_gzip(tar);
        archive_read_support_filter_xz(tar);
        if (archive_read_open_filename(tar, file.c_str(), 1 << 16) != ARCHIVE_OK) throw unreadable();
        archive_entry* header = nullptr;
        int status = 0;
        while ((status = archive_read_next_header(tar, &header)) == ARCHIVE_OK) {
            if (++entries_ > mostEntries) throw Spoiled("too many files");
            take(tar, header);
        }
        if (status != ARCHIVE_EOF) throw unreadable();
    }

private:
    static Spoiled unreadable() { return Spoiled("what can’t be read"); }

    void addFolders(const std::string& path) {
        for (std::size_t at = 0; at != std::string::npos;) {
            at = path.find('/', at + 1);
            const std::string part = path.substr(0, at);
            if (files_.contains(part)) throw Spoiled("“" + part + "” twice");
            if (folders_.insert(part).second) folder(part);
        }
    }

    void take(archive* tar, archive_entry* header) {
        const char* const name = archive_entry_pathname_utf8(header);
        if (!name) throw Spoiled("a name that can’t be read");
        Entry entry{plainPath(name), 0, UpdateDisk::Mode::plain};
        const auto type = archive_entry_filetype(header);
        if (archive_entry_hardlink(header) || archive_entry_symlink(header))
            throw Spoiled("“" + entry.path + "”, a link");
        if (type == AE_IFDIR) return entry.path.empty() ? void() : addFolders(entry.path);
        if (type != AE_IFREG || entry.path.empty()) throw Spoiled("“" + entry.path + "”, which is no plain file");
        if (!archive_entry_size_is_set(header) || archive_entry_size(header) < 0) throw unreadable();
        entry.size = static_cast<std::uint64_t>(archive_entry_size(header));
        if (entry.size > mostBytes - bytes_) throw Spoiled("more than any update has");
        bytes_ += entry.size;
        if (archive_entry_perm(header) & 0100) entry.mode = UpdateDisk::Mode::executable;
        if (const auto slash = entry.path.rfind('/'); slash != std::string::npos)
            addFolders(entry.path.substr(0, slash));
        if (folders_.contains(entry.path) || !files_.insert(entry.path).second)
            throw Spoiled("“" + entry.path + "” twice");
        begin(entry);
        std::uint64_t taken = 0;
        for (;;) {
            const la_ssize_t count = archive_read_data(tar, buffer_.data(), buffer_.size());
            if (count == 0) break;
            if (count < 0) throw unreadable();
            taken += static_cast<std::uint64_t>(count);
            if (taken > entry.size) throw unreadable();
            data(entry, {buffer_.data(), static_cast<std::size_t>(count)});
        }
        if (taken != entry.size) throw unreadable();
    }

    std::set<std::string> files_, folders_;
    std::size_t entries_ = 0;
    std::uint64_t bytes_ = 0;
    std::vector<char> buffer_ = std::vector<char>(1 << 18);
};

}  // namespace

std::vector<Entry> files(const std::filesystem::path& archive) {
    std::vector<Entry> found;
    Walk walk;
    walk.begin = [&](const Entry& entry) { found.push_back(entry); };
    walk.over(archive);
    return found;
}

void unpack(const std::filesystem::path& archive, const std::filesystem::path& folder, UpdateDisk& disk) {
    Walk walk;
    walk.folder = [&](const std::string& path) { disk.makeFolder(folder / path); };
    walk.begin = [&](const Entry& entry) { disk.createFile(folder / entry.path, entry.mode); };
    walk.data = [&](const Entry& entry, std::string_view bytes) { disk.append(folder / entry.path, bytes); };
    walk.over(archive);
}

}  // namespace tamba::UpdateArchive
