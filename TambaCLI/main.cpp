#include "TambaCLI/Words.h"
#include "TambaCore/Model/Fields.h"

#include <malloc.h>

#include <cstdlib>
#include <iostream>

/// `tamba-cli`: the books without a window. Exit status: 0 done, 1 refused (the sentence on standard error) or problems
/// found, 2 wrong use.
namespace {

using namespace tamba;
using namespace tamba::cli;

void addLibraryCommands(CLI::App& app, Command& c) {
    auto& options = c.options<NewOptions>();
    auto* fresh = c.add(&app, "new", "Make new books", [&options](const Context& x) { return makeBooks(x, options); });
    addText(fresh, "--name", options.name, "Name of the business");
    addText(fresh, "--state", options.state, "State or its GST code: Maharashtra, 27");
    addText(fresh, "--gstin", options.gstin, "GSTIN, when registered");
    addText(fresh, "--currency", options.currency, "Home currency (INR)");
    addText(fresh, "--country", options.country, "Country code (IN)");
    addText(fresh, "--regime", options.regime, "How tax is charged")->check(oneOf<TaxRegime>());
    fresh->add_option("--fy-start", options.fyStartMonth, "First month of the financial year (4)")
        ->check(CLI::Range(1, 12));
    addText(fresh, "--order", options.dateOrder, "How receipts write dates")->check(oneOf<DateOrder>());

    auto& folder = c.options<std::string>();
    auto* sample = c.add(&app, "sample", "Write the sample books into a folder",
                         [&folder](const Context& x) { return makeSample(x, folder); });
    sample->add_option("DIR", folder, "The folder")->required();

    auto& find = c.options<FindOptions>();
    auto* search = c.add(&app, "find", "Find records by words, numbers, amounts and what is on receipts",
                         [&find](const Context& x) { return findRecords(x, find); });
    search->add_option("WORDS", find.words, "The beginnings of words, in any order")->required();
    search->add_option("--limit", find.limit, "How many of each kind (20)")->check(CLI::Range(1, 1'000'000));

    c.add(&app, "check", "Look for what is missing, doubled or out of range in the books", checkBooks);
}

void addReceiptCommands(CLI::App& app, Command& c) {
    auto& options = c.options<ReceiptOptions>();
    auto& message = c.options<std::string>();
    auto* receipt = app.add_subcommand("receipt", "Read receipts")->require_subcommand(1);
    const auto files = [&](CLI::App* command) {
        command->add_option("FILE", options.files, "Pictures, PDFs, saved e-mails")->required();
    };
    const auto order = [&](CLI::App* command) {
        addWord(command, "--order", options.order, "How the receipt writes dates (dmy)");
    };
    auto* scan = c.add(receipt, "scan", "Read files and print what is on them",
                       [&](const Context& x) { return scanReceipts(x, options); });
    files(scan);
    order(scan);
    auto* parse = c.add(receipt, "parse", "Read the lines of one receipt, from a text file or - (standard input)",
                        [&](const Context& x) { return parseReceipt(x, options); });
    parse->add_option("FILE", options.files, "A text file, or -")->required()->expected(1);
    order(parse);
    auto* mail = c.add(receipt, "mail", "Show what a saved e-mail holds",
                       [&](const Context& x) { return showMail(x, message); });
    mail->add_option("FILE", message, "The saved e-mail")->required();
    auto* add = c.add(receipt, "add", "Read files and file them as expenses",
                      [&](const Context& x) { return addReceipts(x, options); });
    files(add);
    order(add);
    add->add_flag("--again", options.again, "File a receipt that is in the books already");
}

void addBackupCommands(CLI::App& app, Command& c) {
    auto& name = c.options<std::string>();
    auto* backup = app.add_subcommand("backup", "List and restore backups")->require_subcommand(1);
    c.add(backup, "list", "List the backups, newest first", listBackups);
    auto* restore = c.add(backup, "restore", "Put a backup in place of the books; these are kept beside it",
                          [&](const Context& x) { return restoreBackup(x, name); });
    restore->add_option("NAME", name, "Its file name")->required();
}

/// --library, else TAMBA_LIBRARY_DIR, else the default folder.
std::filesystem::path libraryFolder(const std::string& given) {
    if (!given.empty()) return given;
    const char* variable = std::getenv("TAMBA_LIBRARY_DIR");
    return variable && *variable ? std::filesystem::path(variable) : LibraryStore::defaultFolder();
}

}  // namespace

int main(int argc, char** argv) {
    // The heaps of the threads that read the books would grow page by page, a call of the system for each.
    mallopt(M_TOP_PAD, 64 << 20);
    CLI::App app("Tamba: the books of a freelancer, on the command line.", "tamba-cli");
    app.fallthrough()->require_subcommand(1);
    Command c;
    // An empty name comes from a variable that is not set; the default folder is not what is meant then.
    app.add_option("--library", c.library, "Folder of the books")->type_name("DIR")->check([](const std::string& name) {
        return name.empty() ? "The name of the folder is empty" : "";
    });
    app.add_flag("--json", c.context.json, "Print JSON: amounts in minor units, days as yyyy-mm-dd");
    app.set_version_flag("--version", "tamba-cli " TAMBA_VERSION, "Print the version and exit");
    addDay(&app, "--today", c.today, "Take this day for today")->group("");
    addLibraryCommands(app, c);
    addReceiptCommands(app, c);
    addExpenseCommands(app, c);
    addDocumentCommands(app, c);
    addClientCommands(app, c);
    addSettingCommands(app, c);
    addBankCommands(app, c);
    addRuleCommands(app, c);
    addReportCommands(app, c);
    addExportCommands(app, c);
    addBackupCommands(app, c);
    addTreeCommands(app, c);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (const auto unknown = app.remaining(true); error.get_exit_code() != 0 && !unknown.empty())
            std::cerr << "There is no “" << unknown.front() << "”. ";
        return app.exit(error) == 0 ? 0 : 2;
    }
    try {
        c.context.folder = libraryFolder(c.library);
        c.context.today = c.today ? *c.today : Day::today();
        c.context.now = c.today ? c.today->date() : now();
        const int status = c.run(c.context);
        if (!std::cout.flush()) throw Refusal("What was found couldn’t be written out.");
        return status;
    } catch (const std::exception& error) {
        std::cout.flush();
        std::cerr << error.what() << "\n";
        return 1;
    }
}
