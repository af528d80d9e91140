#pragma once

#include <filesystem>
#include <string_view>

namespace tamba {

/// What an update does to the disk goes through here, one small operation at a time, so that a test can stop the
/// program or fill the disk at any of them. Everything throws `std::system_error`.
class UpdateDisk {
public:
    using Path = std::filesystem::path;
    enum class Mode { plain, executable };

    virtual ~UpdateDisk() = default;
    virtual void makeFolder(const Path& folder);
    /// A new, empty file; what has the name already, be it a link, is an error.
    virtual void createFile(const Path& file, Mode mode);
    virtual void append(const Path& file, std::string_view bytes);
    virtual void makeLink(const Path& target, const Path& link);
    /// Replaces a file or link of the name `to` at once.
    virtual void rename(const Path& from, const Path& to);
    /// A file, a link or an empty folder.
    virtual void remove(const Path& path);
    /// Puts everything on the disk that was written to the file system of `folder`.
    virtual void flush(const Path& folder);

    /// A file, a link or a folder with all that is in it, links as links; nothing where there is none.
    void removeTree(const Path& path);
    /// The file `path` with this content, whole or not at all.
    void replace(const Path& path, std::string_view bytes);
};

}  // namespace tamba
