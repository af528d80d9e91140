#include "TambaCore/Model/LibraryStore.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace tamba {

namespace {

namespace fs = std::filesystem;

/// Longest file name of the usual file systems, in bytes.
constexpr std::size_t longestName = 255;
/// A logo is drawn on every page of every invoice: a larger file is the wrong one.
constexpr std::uint64_t largestLogo = 20'000'000;

/// Extension of a picture by its first bytes, whatever its name says; nothing for what `ImageFile` does not read.
std::optional<std::string> pictureExtension(std::string_view bytes) {
    if (bytes.starts_with("\x89PNG\r\n\x1A\n")) return ".png";
    if (bytes.starts_with("\xFF\xD8\xFF")) return ".jpg";
    if (bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a")) return ".gif";
    if (bytes.starts_with("RIFF") && bytes.size() > 12 && bytes.substr(8, 4) == "WEBP") return ".webp";
    if (bytes.starts_with(std::string_view("II*\0", 4)) || bytes.starts_with(std::string_view("MM\0*", 4)))
        return ".tiff";
    return std::nullopt;
}

std::string sentence(StoreError::Code code, std::string_view message) {
    switch (code) {
        case StoreError::Code::unreadable:
            return "Tamba couldn’t read its library: " + std::string(message) +
                   ". A daily backup is in the Backups folder.";
        case StoreError::Code::unwritable:
            return "Tamba couldn’t save: " + std::string(message) + ".";
        case StoreError::Code::notAFile:
            break;
    }
    return "That file couldn’t be added.";
}

/// Runs a step whose failure means that books cannot be read.
template <class Step>
auto reading(Step&& step) {
    try {
        return step();
    } catch (const FileError& error) {
        throw StoreError(StoreError::Code::unreadable, error.what());
    } catch (const ModelsJSON::DecodeError& error) {
        throw StoreError(StoreError::Code::unreadable, error.what());
    }
}

/// Runs a step whose failure means that the folder cannot be written.
template <class Step>
auto writing(Step&& step) {
    try {
        return step();
    } catch (const FileError& error) {
        throw StoreError(StoreError::Code::unwritable, error.what());
    }
}

std::string extension(const fs::path& file) {
    std::string written = file.extension().string();
    if (!written.empty()) written.erase(0, 1);
    const std::string kept = Text::lettersAndDigits(Text::lower(written));
    return kept.empty() || kept.size() > 20 ? "dat" : kept;
}

/// Throws `FileError` at the first file that differs from its copy.
void compareTrees(const fs::path& from, const fs::path& to) {
    for (const std::string& name : Files::names(from)) {
        if (Files::size(from / name)) {
            if (!Files::size(to / name) || !Files::sameBytes(from / name, to / name))
                throw FileError("the copy of “" + name + "” is not the same");
        } else if (fs::is_directory(from / name)) {
            compareTrees(from / name, to / name);
        }
    }
}

}  // namespace

StoreError::StoreError(Code code, std::string_view message) : code_(code), text_(sentence(code, message)) {}

LibraryStore::Path LibraryStore::defaultFolder() {
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data == '/') return Path(data) / "Tamba";
    const char* home = std::getenv("HOME");
    return Path(home && *home ? home : "/") / ".local" / "share" / "Tamba";
}

LibraryStore::Path LibraryStore::placeIn(const Path& chosen) {
    try {
        const bool own = !Files::exists(chosen) || Files::exists(LibraryStore(chosen).fileURL());
        return own || Files::names(chosen).empty() ? chosen : chosen / "Tamba";
    } catch (const FileError& error) {
        throw StoreError(StoreError::Code::unreadable, error.what());
    }
}

void LibraryStore::prepare() const {
    writing([&] {
        for (const Path& folder : {folder_, receiptsFolder(), invoicesFolder(), assetsFolder(), backupsFolder()})
            Files::makeFolders(folder);
    });
}

std::optional<Library> LibraryStore::load() const {
    return reading([&]() -> std::optional<Library> {
        if (!Files::exists(fileURL())) return std::nullopt;
        return ModelsJSON::decode(Files::read(fileURL()));
    });
}

Library LibraryStore::read(const Path& file) {
    return reading([&] { return ModelsJSON::decode(Files::read(file)); });
}

Files::Stamp LibraryStore::save(const Library& library) const {
    prepare();
    const auto write = [&library](const Path& file) {
        return Files::writeAtomically(file, [&library](const auto& pieces) { ModelsJSON::encode(library, pieces); });
    };
    const Files::Stamp written = writing([&] { return write(fileURL()); });
    try {
        const Path backup = backupsFolder() / ("tamba-" + Day::today().iso() + ".json");
        if (Files::exists(backup)) return written;
        write(backup);
        pruneBackups("tamba-", 14);
    } catch (const FileError&) {
        // The books are safe; a missing backup must not keep anybody from working.
    }
    return written;
}

void LibraryStore::pruneBackups(std::string_view prefix, std::size_t keep) const {
    std::vector<std::string> names;
    try {
        names = Files::names(backupsFolder());
    } catch (const FileError&) {
        return;
    }
    std::erase_if(names, [&](const std::string& name) { return !name.starts_with(prefix); });
    std::reverse(names.begin(), names.end());  // the day in the name makes this newest first
    for (std::size_t i = keep; i < names.size(); ++i) {
        try {
            Files::remove(backupsFolder() / names[i]);
        } catch (const FileError&) {
            // One too many does no harm.
        }
    }
}

std::string LibraryStore::importReceipt(const Path& file, Day date, std::string_view vendor) const {
    prepare();
    if (!Files::stamp(file)) throw StoreError(StoreError::Code::notAFile, "");
    const Path folder = receiptsFolder() / date.monthKey();
    const std::string ending = "." + extension(file);
    const std::string base = slug(vendor.empty() ? file.stem().string() : std::string(vendor));
    return writing([&] {
        Files::makeFolders(folder);
        for (int n = 1;; ++n) {
            const std::string count = n == 1 ? "" : "-" + std::to_string(n);
            const std::string start = date.iso() + "-";
            const std::size_t room = longestName - start.size() - 7 - ending.size();  // the count may grow to "-99999"
            const Path target = folder / (start + std::string(Text::prefixBytes(base, room)) + count + ending);
            if (Files::copyToNew(file, target)) return relative(target);
        }
    });
}

std::string LibraryStore::writeAttachment(std::string_view data, std::string_view name, Day date) const {
    const Path folder = writing(Files::temporaryFolder) / ("tamba-" + UUID::random().text());
    struct Cleanup {
        Path folder;
        ~Cleanup() {
            std::error_code ignored;
            fs::remove_all(folder, ignored);
        }
    } const cleanup{folder};
    const Path file = folder / Files::safeName(name);
    writing([&] {
        Files::makeFolders(folder);
        Files::writeAtomically(file, data);
    });
    return importReceipt(file, date, "");
}

std::string LibraryStore::relative(const Path& path) const {
    return fs::absolute(path)
        .lexically_normal()
        .lexically_relative(fs::absolute(folder_).lexically_normal())
        .generic_string();
}

std::optional<LibraryStore::Path> LibraryStore::url(const Attachment& attachment) const {
    return Files::inside(folder_, attachment.path);
}

void LibraryStore::removeAttachment(const Attachment& attachment) const {
    const auto file = url(attachment);
    if (!file || !Files::size(*file)) return;  // a folder is no attachment
    writing([&] {
        Files::makeFolders(removedFolder());
        Path target = removedFolder() / file->filename();
        if (Files::exists(target)) {
            const std::string mark = UUID::random().text().substr(0, 8) + "-";
            const std::string stem = file->stem().string();
            std::string ending = file->extension().string();
            if (ending.size() > 20) ending.clear();
            const std::size_t room = longestName - mark.size() - ending.size();
            target = removedFolder() / (mark + std::string(Text::prefixBytes(stem, room)) + ending);
        }
        Files::move(*file, target);
    });
}

std::string LibraryStore::keepInvoice(std::string_view name, std::string_view pdf) const {
    prepare();
    const Path file = invoicesFolder() / Files::safeName(name);
    writing([&] { Files::writeAtomically(file, pdf); });
    return relative(file);
}

std::string LibraryStore::importLogo(const Path& file) const {
    prepare();
    if (Files::size(file).value_or(largestLogo + 1) > largestLogo) throw StoreError(StoreError::Code::notAFile, "");
    return writing([&] {
        const auto ending = pictureExtension(Files::read(file));
        if (!ending) throw StoreError(StoreError::Code::notAFile, "");
        for (int n = 1;; ++n) {
            const std::string name = "logo" + (n == 1 ? "" : "-" + std::to_string(n)) + *ending;
            const Path target = assetsFolder() / name;
            if (Files::copyToNew(file, target) || Files::sameBytes(file, target)) return name;
        }
    });
}

std::optional<LibraryStore::Path> LibraryStore::logo(const Business& business) const {
    const auto file = business.logoFile ? Files::inside(assetsFolder(), *business.logoFile) : std::nullopt;
    // A folder or a pipe has no size; reading a pipe would wait for ever.
    return file && Files::size(*file).value_or(largestLogo + 1) <= largestLogo ? file : std::nullopt;
}

void LibraryStore::copyTo(const Path& destination) const {
    writing([&] {
        // Else the copy would be copied into itself without end.
        const Path from = Files::realPath(folder_), to = Files::realPath(destination);
        if (from != to && std::mismatch(from.begin(), from.end(), to.begin(), to.end()).first == from.end())
            throw FileError("That folder lies inside the books’ own");
        Files::makeFolders(destination);
        for (const std::string& name : Files::names(folder_)) {
            if (Files::exists(destination / name)) throw FileError("“" + name + "” already exists in that folder");
            Files::copyTree(folder_ / name, destination / name);
        }
    });
}

void LibraryStore::copyVerified(const Path& destination) const {
    writing([&] {
        if (Files::exists(destination) && !Files::names(destination).empty())
            throw FileError("there are other files in that folder");
    });
    try {
        copyTo(destination);
        writing([&] { compareTrees(folder_, destination); });
    } catch (const StoreError&) {
        std::error_code ignored;
        for (const auto& entry : fs::directory_iterator(destination, ignored)) fs::remove_all(entry.path(), ignored);
        throw;
    }
}

std::vector<std::string> LibraryStore::ownNames() {
    return {"Assets", "Backups", "Invoices", "Receipts", "Removed", "tamba.json"};
}

std::string LibraryStore::slug(std::string_view text) {
    const std::string lower = Text::lower(text);
    std::string kept;
    for (const std::string_view character : Text::characters(lower)) {
        if (Text::isLetterOrDigit(character))
            kept += character;
        else if (!kept.ends_with('-'))
            kept += '-';
    }
    const std::string_view short_ = Text::prefix(Text::trim(kept, "-"), 40);
    return short_.empty() ? "receipt" : std::string(short_);
}

}  // namespace tamba
