#include "TambaCore/Reports/Export.h"

#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/SHA256.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Base/Zip.h"
#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Pages/InvoicePDF.h"
#include "TambaCore/Reports/BookTables.h"
#include "TambaCore/Reports/YearEnd.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace tamba::Export {
namespace {

namespace fs = std::filesystem;

constexpr auto manifestName = "Manifest.txt";

/// The names that a manifest lists: "<64 hex digits>  <name>" a line, as sha256sum writes it.
std::set<std::string> listed(const std::string& manifest) {
    std::set<std::string> names{manifestName};
    for (const std::string& line : Text::split(manifest, '\n'))
        if (line.size() > 66) names.insert(line.substr(66));
    return names;
}

/// The bundle's place must be free, or hold an older bundle and nothing else: a file that somebody put beside its files
/// would be lost with it.
void refuseStrangers(const Path& folder, const Path& zip) {
    const auto refuse = [](const Path& path, const std::string& why) {
        throw FileError("“" + path.filename().string() + "” " + why);
    };
    std::error_code error;
    if (fs::is_directory(zip, error)) refuse(zip, "is a folder there. Choose another place.");
    if (!Files::exists(folder)) return;
    if (!fs::is_directory(fs::symlink_status(folder, error)))
        refuse(folder, "is no folder there. Choose another place.");
    const Path manifest = folder / manifestName;
    const std::set<std::string> ours = listed(Files::size(manifest) ? Files::read(manifest) : "");
    // What desktops leave in every folder that was looked at.
    static constexpr std::array<std::string_view, 4> droppings{".DS_Store", "Thumbs.db", "desktop.ini", ".directory"};
    for (auto entry = fs::recursive_directory_iterator(folder, error);
         !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        if (fs::is_directory(entry->symlink_status(error))) continue;
        const std::string name = entry->path().filename().string();
        if (std::find(droppings.begin(), droppings.end(), name) != droppings.end()) continue;
        if (!ours.contains(entry->path().lexically_relative(folder).generic_string()))
            refuse(folder, "holds a file that is none of the bundle’s: “" + name +
                               "”. Move it elsewhere or choose another place.");
    }
    if (error) throw FileError(error.message());
}

/// A bundle in the making, under hidden names beside its place. What is not finished goes with this.
class Building {
public:
    Building(const Path& into, const std::string& name)
        : folder_(into / ("." + name + ".unfinished")), zipFile_(into / ("." + name + ".unfinished.zip")), name_(name) {
        removeBoth();
        Files::makeFolders(folder_);
        zip_.emplace(zipFile_);
    }
    ~Building() {
        zip_.reset();
        try {
            removeBoth();
        } catch (const FileError&) {  // the next bundle of that name removes it
        }
    }
    Building(const Building&) = delete;
    Building& operator=(const Building&) = delete;

    void put(const std::string& name, const std::string& bytes) {
        Files::makeFolders((folder_ / name).parent_path());
        Files::append(folder_ / name, bytes);
        zip_->add(name_ + "/" + name, bytes);
        manifest_.push_back(sha256(bytes) + "  " + name + "\n");
    }
    /// By name, so that a person finds a file in it.
    void putManifest() {
        std::sort(manifest_.begin(), manifest_.end(),
                  [](const std::string& a, const std::string& b) { return a.substr(66) < b.substr(66); });
        put(manifestName, Text::join(manifest_, ""));
    }
    [[nodiscard]] std::size_t count() const { return manifest_.size(); }

    /// The finished bundle takes its place; an older one is removed only then.
    void finish(const Path& folder, const Path& zip) {
        zip_->finish();
        zip_.reset();
        Files::flushAll(folder_);
        Files::exchange(folder_, folder);
        try {
            Files::exchange(zipFile_, zip);
        } catch (const FileError&) {
            Files::exists(folder_) ? Files::exchange(folder_, folder) : Files::move(folder, folder_);
            throw;
        }
    }

private:
    void removeBoth() const {
        for (const Path& path : {folder_, zipFile_})
            if (Files::exists(path)) Files::removeTree(path);
    }
    Path folder_, zipFile_;
    std::string name_;
    std::optional<Zip> zip_;
    std::vector<std::string> manifest_;
};

/// The receipt's bytes; nothing where the books name no file that can be read.
std::optional<std::string> receiptBytes(const LibraryStore& store, const std::string& path) {
    const auto file = Files::inside(store.folder(), path);
    if (!file || !Files::size(*file)) return {};
    try {
        return Files::read(*file);
    } catch (const FileError&) {
        return {};
    }
}

}  // namespace

std::optional<YearEnd> yearEnd(const Library& library, const Path& books, const FinancialYear& year, Day today,
                               const Path& into, const Progress& progress) {
    const LibraryStore store(books);
    const auto logo = store.logo(library.business);
    const tamba::YearEnd::Bundle bundle =
        tamba::YearEnd::plan(library, year, today, logo ? ImageFile::load(*logo) : std::nullopt);
    if (!Files::exists(into)) throw FileError("There is no folder “" + into.string() + "”.");
    YearEnd result{into / bundle.name, into / (bundle.name + ".zip"), 0, {}};
    refuseStrangers(result.folder, result.zip);

    const std::size_t count = bundle.receipts.size() + bundle.files.size() + 1;
    std::size_t done = 0;
    const auto goesOn = [&](std::string_view name) { return !progress || progress(done++, count, name); };
    Building building(into, bundle.name);
    tamba::YearEnd::Missing missing;
    for (const auto& receipt : bundle.receipts) {
        if (!goesOn(receipt.name)) return {};
        if (const auto bytes = receiptBytes(store, receipt.path)) {
            building.put(receipt.name, *bytes);
        } else {
            missing.insert(receipt.path);
            result.missing.push_back(receipt.what + " (" + receipt.path + ")");
        }
    }
    for (const auto& file : bundle.files) {
        if (!goesOn(file.name)) return {};
        building.put(file.name, file.bytes(missing));
    }
    if (!goesOn(manifestName)) return {};
    building.putManifest();
    result.files = building.count();
    building.finish(result.folder, result.zip);
    return result;
}

std::vector<File> tables(const Library& library, const Period& period, Day today) {
    BookTables::FileNames paths;
    for (const Expense& expense : library.expenses)
        for (const Attachment& attachment : expense.attachments) paths[attachment.path] = attachment.path;
    std::vector<File> files;
    for (const Table& table : {BookTables::expenses(library, period, paths),
                               BookTables::invoices(library, period, today), BookTables::invoiceLines(library, period),
                               BookTables::creditNotes(library, period), BookTables::payments(library, period),
                               BookTables::clients(library, period), BookTables::bankLines(library, period)})
        files.push_back({table.title + ".csv", Tables::csv(table).bytes()});
    return files;
}

}  // namespace tamba::Export
