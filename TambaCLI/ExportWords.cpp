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

    const std::string folder = "The folder to put it in (this one)";
    auto& bundle = c.options<YearEndOptions>();
    command =
        c.add(group, "year-end", "All of a year for the accountant: tables, GST, invoices and receipts, zipped too",
              [&](const Context& x) { return exportYearEnd(x, bundle); });
    addText(command, "--year", bundle.year, "2026 for the financial year from then (that of today)");
    addText(command, "-o,--output", bundle.folder, folder)->type_name("DIR");
    auto& tables = c.options<TablesOptions>();
    command = c.add(group, "csv", "Expenses, invoices, payments and more as CSV files",
                    [&](const Context& x) { return exportTables(x, tables); });
    addText(command, "--period", tables.period, "2026 for the year from then, 2026-Q3, 2026-10 (the year of today)");
    addText(command, "-o,--output", tables.folder, folder)->type_name("DIR");
}

}  // namespace tamba::cli
