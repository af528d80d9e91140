#include "TambaCLI/ExportCommands.h"

#include "TambaCLI/Output.h"
#include "TambaCLI/ReportCommands.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Reports/Export.h"

#include <algorithm>
#include <iostream>

namespace tamba::cli {
namespace {

std::filesystem::path folderOf(const std::string& typed) {
    return typed.empty() ? std::filesystem::current_path() : std::filesystem::path(typed);
}

/// Refuses with the sentence of what could not be written.
template <class Write>
auto writing(const std::filesystem::path& folder, Write&& write) {
    try {
        return write();
    } catch (const FileError& error) {
        const std::string why = error.what();
        throw Refusal("Nothing was written to “" + folder.string() + "”: " + why + (why.ends_with('.') ? "" : "."));
    }
}

}  // namespace

int exportYearEnd(const Context& context, const YearEndOptions& options) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    FinancialYear year = library.fy(context.today);
    if (!options.year.empty()) {
        if (options.year.size() != 4)
            throw Refusal("“" + options.year + "” is no year: give the one it begins in, such as 2026.");
        year = library.fy(periodOf(options.year, library.fyStart()).from);
    }
    const auto folder = folderOf(options.folder);
    const auto written = writing(folder, [&] {
        Files::makeFolders(folder);
        return Export::yearEnd(library, context.folder, year, context.today, folder);
    });
    if (context.json) {
        JSON missing = JSON::array();
        for (const std::string& one : written->missing) missing.append(one);
        std::cout << JSON::object()
                         .add("folder", written->folder.string())
                         .add("zip", written->zip.string())
                         .add("files", static_cast<std::int64_t>(written->files))
                         .add("missing", missing)
                         .text()
                  << "\n";
        return 0;
    }
    std::cout << "Wrote " << counted(written->files, "file", "files") << " into "
              << oneLine(written->folder.filename().string()) << " and " << oneLine(written->zip.filename().string())
              << ".\n";
    if (!written->missing.empty()) std::cout << "\nNot found, and not in it:\n";
    for (const std::string& one : written->missing) std::cout << "  " << oneLine(one) << "\n";
    return 0;
}

int exportTables(const Context& context, const TablesOptions& options) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const Period period =
        options.period.empty() ? Period::fy(library.fy(context.today)) : periodOf(options.period, library.fyStart());
    const auto folder = folderOf(options.folder);
    const auto files = Export::tables(library, period, context.today);
    writing(folder, [&] {
        Files::makeFolders(folder);
        for (const auto& file : files) Files::writeAtomically(folder / file.name, file.bytes);
    });
    JSON names = JSON::array();
    for (const auto& file : files) {
        names.append(file.name);
        if (!context.json) std::cout << "Wrote " << file.name << ".\n";
    }
    if (context.json) std::cout << JSON::object().add("files", names).text() << "\n";
    return 0;
}

}  // namespace tamba::cli
