#include "TambaCLI/Commands.h"
#include "TambaCLI/Output.h"

#include <iostream>

namespace tamba::cli {

namespace {

struct Kind {
    const char *word, *text;
};
const Kind& kind(const LibrarySession::Backup& backup) {
    static constexpr Kind kinds[] = {{"saved", "as first saved that day"},
                                     {"opened", "as first opened that day"},
                                     {"replaced", "before it was replaced"}};
    return kinds[static_cast<std::size_t>(backup.kind)];
}

}  // namespace

int listBackups(const Context& context) {
    const auto backups = LibrarySession::backups(context.folder);
    if (context.json) {
        JSON list = JSON::array();
        for (const LibrarySession::Backup& backup : backups)
            list.append(JSON::object()
                            .add("name", backup.name)
                            .add("day", backup.day)
                            .add("kind", kind(backup).word)
                            .add("size", static_cast<std::int64_t>(backup.size)));
        std::cout << list.text() << "\n";
        return 0;
    }
    if (backups.empty()) {
        std::cout << "No backups.\n";
        return 0;
    }
    Table table({{"Name"}, {"Day"}, {"Bytes", Table::Align::right}, {"Kept"}});
    for (const LibrarySession::Backup& backup : backups)
        table.add({backup.name, backup.day.iso(), std::to_string(backup.size), kind(backup).text});
    std::cout << table.text();
    return 0;
}

int restoreBackup(const Context& context, const std::string& name) {
    const Library library = [&] {
        try {
            return LibrarySession::restore(context.folder, name);
        } catch (const StoreError& error) {
            if (error.code() != StoreError::Code::notAFile) throw;
            throw Refusal("There is no backup “" + name + "” of these books.");
        }
    }();
    if (context.json)
        std::cout << JSON::object().add("restored", name).text() << "\n";
    else
        std::cout << "Restored " << name << ": " << counted(library.expenses.size(), "expense", "expenses") << ", "
                  << counted(library.documents.size(), "document", "documents") << ".\n";
    return 0;
}

}  // namespace tamba::cli
