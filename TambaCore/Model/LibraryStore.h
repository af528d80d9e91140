#pragma once

#include "TambaCore/Base/Files.h"
#include "TambaCore/Model/Models.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamba {

/// A refusal of the store; `what()` is the finished sentence for the user.
class StoreError : public std::exception {
public:
    enum class Code { unreadable, unwritable, notAFile };
    StoreError(Code code, std::string_view message);
    [[nodiscard]] Code code() const { return code_; }
    [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }

private:
    Code code_;
    std::string text_;
};

/// Keeps one `Library` in one folder: `tamba.json`, receipts by month, invoice PDFs, assets, daily backups. Holds only
/// the folder's location; takes no lock and keeps no copy. Used from one thread. What must happen around it (the lock,
/// noticing another machine's changes) is `LibrarySession`'s.
class LibraryStore {
public:
    using Path = std::filesystem::path;

    /// Binds to a folder; touches nothing.
    explicit LibraryStore(Path folder) : folder_(std::move(folder)) {}

    /// $XDG_DATA_HOME/Tamba, else ~/.local/share/Tamba.
    [[nodiscard]] static Path defaultFolder();

    /// Where books go when somebody points at `chosen`: there when nothing or books are in it, else in a folder "Tamba"
    /// inside, so that they are not mixed with other files. Throws `unreadable`.
    [[nodiscard]] static Path placeIn(const Path& chosen);

    [[nodiscard]] const Path& folder() const { return folder_; }
    [[nodiscard]] Path fileURL() const { return folder_ / "tamba.json"; }
    [[nodiscard]] Path receiptsFolder() const { return folder_ / "Receipts"; }
    [[nodiscard]] Path invoicesFolder() const { return folder_ / "Invoices"; }
    [[nodiscard]] Path assetsFolder() const { return folder_ / "Assets"; }
    [[nodiscard]] Path backupsFolder() const { return folder_ / "Backups"; }
    [[nodiscard]] Path removedFolder() const { return folder_ / "Removed"; }

    /// Makes the folder and its subfolders. Throws `unwritable`.
    void prepare() const;
    /// The books; nothing when there is no file yet. Throws `unreadable`, with the path of the culprit inside the file,
    /// and leaves the file as it is.
    [[nodiscard]] std::optional<Library> load() const;
    /// Books from any file, a backup say. Throws `unreadable`.
    [[nodiscard]] static Library read(const Path& file);
    /// Writes the books atomically; the first save of a calendar day is also that day's backup, of which 14 are kept.
    /// Throws `unwritable`; the file on disk is then the old one. Gives the stamp of the file written.
    Files::Stamp save(const Library& library) const;

    /// Deletes all but the `keep` newest backups whose names begin with `prefix`; failures are passed over.
    void pruneBackups(std::string_view prefix, std::size_t keep) const;

    /// Copies a file to Receipts/<yyyy-mm>/<date>-<vendor or name>[-n].<ext> and gives that path relative to the
    /// folder. Throws `notAFile` when nothing is there, `unwritable` when it cannot be copied.
    [[nodiscard]] std::string importReceipt(const Path& file, Day date, std::string_view vendor) const;
    /// The same for bytes that are not yet a file.
    [[nodiscard]] std::string writeAttachment(std::string_view data, std::string_view name, Day date) const;
    /// Path relative to the folder, "/"-separated.
    [[nodiscard]] std::string relative(const Path& path) const;
    /// Where the attachment lies; nothing when its path is absolute or leaves the folder.
    [[nodiscard]] std::optional<Path> url(const Attachment& attachment) const;
    /// Moves the file to Removed/, never deletes it. A path that leaves the folder is left alone. Throws `unwritable`.
    void removeAttachment(const Attachment& attachment) const;
    /// Keeps a document's PDF as Invoices/<name>, in place of an earlier one of that name, and gives the path relative
    /// to the folder. `name` as `Books::fileName` gives it. Throws `unwritable`.
    [[nodiscard]] std::string keepInvoice(std::string_view name, std::string_view pdf) const;
    /// Copies a picture to Assets/ and gives its name for `Business::logoFile`. Throws `notAFile`, `unwritable`.
    [[nodiscard]] std::string importLogo(const Path& file) const;
    /// Where the business's logo lies; nothing when it has none, its path leaves the folder or
    /// is no file that can be one.
    [[nodiscard]] std::optional<Path> logo(const Business& business) const;
    /// Copies every top-level item to `destination`; refuses, before copying anything more, when one is there already
    /// or the destination lies within the folder itself.
    void copyTo(const Path& destination) const;

    /// Copies the folder into `destination`, which must not be there or hold nothing, and compares every file with its
    /// copy. When that fails, what was copied is taken away again. Throws `unwritable`.
    void copyVerified(const Path& destination) const;
    /// The entries of the folder that the store itself makes; anything else is somebody's own.
    [[nodiscard]] static std::vector<std::string> ownNames();

    /// File-name-safe form of a vendor: lower case, letters and digits of any script, at most 40 characters.
    [[nodiscard]] static std::string slug(std::string_view text);

private:
    Path folder_;
};

}  // namespace tamba
