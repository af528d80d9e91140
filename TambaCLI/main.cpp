#include "TambaCLI/Commands.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/Fields.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <functional>
#include <iostream>

/// `tamba-cli`: the books without a window. This file alone knows the words of the command line; CLI11 is slow to
/// compile. Exit status: 0 done, 1 refused (the sentence on standard error) or problems found, 2 wrong use.
namespace {

using namespace tamba;
using namespace tamba::cli;

template <class E>
CLI::IsMember oneOf() {
    return CLI::IsMember(std::vector<std::string>(enumWords<E>.begin(), enumWords<E>.end()));
}

template <class E>
CLI::Option* addWord(CLI::App* app, const std::string& name, std::optional<E>& value, const std::string& help) {
    return app
        ->add_option_function<std::string>(
            name, [&value](const std::string& text) { value = fromWord<E>(text); }, help)
        ->check(oneOf<E>());
}

CLI::Option* addDay(CLI::App* app, const std::string& name, std::optional<Day>& value, const std::string& help) {
    return app
        ->add_option_function<std::string>(
            name, [&value](const std::string& text) { value = Day::iso(text); }, help)
        ->check(CLI::Validator(
            [](const std::string& text) {
                return text.size() <= 10 && Day::iso(text) ? "" : text + " is not a day such as 2026-04-01";
            },
            "DAY"));
}

/// Text for the books: what a terminal in another character set sends is no UTF-8 and is repaired.
CLI::Option* addText(CLI::App* app, const std::string& name, std::string& value, const std::string& help) {
    return app->add_option_function<std::string>(
        name, [&value](const std::string& text) { value = Text::repairedUTF8(text); }, help);
}

/// What the user asked for, filled while CLI11 reads the words.
struct Command {
    std::string library;
    std::optional<Day> today;
    Context context;
    std::function<int(const Context&)> run;

    std::string path, name;
    NewOptions fresh;
    ReceiptOptions receipt;
    ExpenseFilter filter;
    ExpenseEntry entry;

    CLI::App* add(CLI::App* parent, const std::string& word, const std::string& help,
                  std::function<int(const Context&)> action) {
        CLI::App* command = parent->add_subcommand(word, help);
        command->callback([this, action = std::move(action)] { run = action; });
        return command;
    }
};

void addLibraryCommands(CLI::App& app, Command& c) {
    auto* fresh = c.add(&app, "new", "Make new books", [&](const Context& x) { return makeBooks(x, c.fresh); });
    addText(fresh, "--name", c.fresh.name, "Name of the business");
    addText(fresh, "--state", c.fresh.state, "State or its GST code: Maharashtra, 27");
    addText(fresh, "--gstin", c.fresh.gstin, "GSTIN, when registered");
    addText(fresh, "--currency", c.fresh.currency, "Home currency (INR)");
    addText(fresh, "--country", c.fresh.country, "Country code (IN)");
    addText(fresh, "--regime", c.fresh.regime, "How tax is charged")->check(oneOf<TaxRegime>());
    fresh->add_option("--fy-start", c.fresh.fyStartMonth, "First month of the financial year (4)")
        ->check(CLI::Range(1, 12));
    addText(fresh, "--order", c.fresh.dateOrder, "How receipts write dates")->check(oneOf<DateOrder>());

    auto* sample = c.add(&app, "sample", "Write the sample books into a folder",
                         [&](const Context& x) { return makeSample(x, c.path); });
    sample->add_option("DIR", c.path, "The folder")->required();

    c.add(&app, "check", "Look for what is missing, doubled or out of range in the books", checkBooks);
}

void addReceiptCommands(CLI::App& app, Command& c) {
    auto* receipt = app.add_subcommand("receipt", "Read receipts")->require_subcommand(1);
    const auto files = [&](CLI::App* command) {
        command->add_option("FILE", c.receipt.files, "Pictures, PDFs, saved e-mails")->required();
    };
    const auto order = [&](CLI::App* command) {
        addWord(command, "--order", c.receipt.order, "How the receipt writes dates (dmy)");
    };
    auto* scan = c.add(receipt, "scan", "Read files and print what is on them",
                       [&](const Context& x) { return scanReceipts(x, c.receipt); });
    files(scan);
    order(scan);
    auto* parse = c.add(receipt, "parse", "Read the lines of one receipt, from a text file or - (standard input)",
                        [&](const Context& x) { return parseReceipt(x, c.receipt); });
    parse->add_option("FILE", c.receipt.files, "A text file, or -")->required()->expected(1);
    order(parse);
    auto* mail =
        c.add(receipt, "mail", "Show what a saved e-mail holds", [&](const Context& x) { return showMail(x, c.path); });
    mail->add_option("FILE", c.path, "The saved e-mail")->required();
    auto* add = c.add(receipt, "add", "Read files and file them as expenses",
                      [&](const Context& x) { return addReceipts(x, c.receipt); });
    files(add);
    order(add);
    add->add_flag("--again", c.receipt.again, "File a receipt that is in the books already");
}

void addExpenseCommands(CLI::App& app, Command& c) {
    auto* expense = app.add_subcommand("expense", "List, add and show expenses")->require_subcommand(1);
    auto* list = c.add(expense, "list", "List expenses with their total",
                       [&](const Context& x) { return listExpenses(x, c.filter); });
    addDay(list, "--from", c.filter.from, "First day");
    addDay(list, "--to", c.filter.to, "Last day");
    addText(list, "--month", c.filter.month, "One month: 2026-04");
    addText(list, "--category", c.filter.category, "One category, or “uncategorised”");
    addText(list, "--vendor", c.filter.vendor, "Vendors whose name holds this");
    list->add_flag("--check", c.filter.check, "Only those that want a look");

    auto* add = expense->add_subcommand("add", "Add an expense");
    auto* vendor = addText(add, "--vendor", c.entry.vendor, "Who was paid");
    auto* amount = addText(add, "--amount", c.entry.amount, "What was paid, tax included");
    addDay(add, "--date", c.entry.date, "The day (today)");
    addText(add, "--category", c.entry.category, "Category (that of the vendor’s latest expense)");
    auto* tax = addText(add, "--tax", c.entry.tax, "Tax in the amount");
    addWord(add, "--method", c.entry.method, "How it was paid (upi)");
    auto* currency = addText(add, "--currency", c.entry.currency, "Currency (the home currency)");
    auto* rate = addText(add, "--rate", c.entry.rate, "Exchange rate to the home currency");
    addText(add, "--mileage", c.entry.mileage, "Distance driven, instead of an amount")
        ->excludes(amount, tax, currency, rate);
    addText(add, "--project", c.entry.project, "Project");
    addText(add, "--client", c.entry.client, "Client (that of the project)");
    addText(add, "--notes", c.entry.notes, "Notes");
    add->add_flag("--billable", c.entry.billable, "To be billed on to the client");
    add->callback([&c, vendor, amount] {
        if (c.entry.mileage.empty()) {
            if (vendor->empty()) throw CLI::RequiredError("--vendor");
            if (amount->empty()) throw CLI::RequiredError("--amount");
        }
        c.run = [&c](const Context& x) { return addExpense(x, c.entry); };
    });

    auto* show = c.add(expense, "show", "Show one expense", [&](const Context& x) { return showExpense(x, c.name); });
    show->add_option("ID", c.name, "The beginning of its ID")->required();
}

void addBackupCommands(CLI::App& app, Command& c) {
    auto* backup = app.add_subcommand("backup", "List and restore backups")->require_subcommand(1);
    c.add(backup, "list", "List the backups, newest first", listBackups);
    auto* restore = c.add(backup, "restore", "Put a backup in place of the books; these are kept beside it",
                          [&](const Context& x) { return restoreBackup(x, c.name); });
    restore->add_option("NAME", c.name, "Its file name")->required();
}

/// --library, else TAMBA_LIBRARY_DIR, else the default folder.
std::filesystem::path libraryFolder(const std::string& given) {
    if (!given.empty()) return given;
    const char* variable = std::getenv("TAMBA_LIBRARY_DIR");
    return variable && *variable ? std::filesystem::path(variable) : LibraryStore::defaultFolder();
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Tamba: the books of a freelancer, on the command line.", "tamba-cli");
    app.fallthrough()->require_subcommand(1);
    Command c;
    // An empty name comes from a variable that is not set; the default folder is not what is meant then.
    app.add_option("--library", c.library, "Folder of the books")->type_name("DIR")->check([](const std::string& name) {
        return name.empty() ? "The name of the folder is empty" : "";
    });
    app.add_flag("--json", c.context.json, "Print JSON: amounts in minor units, days as yyyy-mm-dd");
    addDay(&app, "--today", c.today, "Take this day for today")->group("");
    addLibraryCommands(app, c);
    addReceiptCommands(app, c);
    addExpenseCommands(app, c);
    addBackupCommands(app, c);

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
        const int status = c.run(c.context);
        if (!std::cout.flush()) throw Refusal("What was found couldn’t be written out.");
        return status;
    } catch (const std::exception& error) {
        std::cout.flush();
        std::cerr << error.what() << "\n";
        return 1;
    }
}
