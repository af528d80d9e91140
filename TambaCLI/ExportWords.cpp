#include "TambaCLI/ExportCommands.h"
#include "TambaCLI/Words.h"

namespace tamba::cli {

void addExportCommands(CLI::App& app, Command& c) {
    auto* group = app.add_subcommand("export", "The books as files for others")->require_subcommand(1);
    auto& journal = c.options<JournalOptions>();
    auto* command = c.add(group, "journal", "The whole book as a journal for hledger and ledger",
                          [&](const Context& x) { return exportJournal(x, journal); });
    addText(command, "--basis", journal.basis, "What counts as income: invoices or what was received (accrual)")
        ->check(CLI::IsMember({"accrual", "cash"}));
    addText(command, "-o,--output", journal.output, "A file (standard output)");
}

}  // namespace tamba::cli
