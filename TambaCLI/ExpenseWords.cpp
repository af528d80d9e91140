#include "TambaCLI/Words.h"
#include "TambaCore/Model/Fields.h"

namespace tamba::cli {
namespace {

void addRecurringCommands(CLI::App* expense, Command& c) {
    auto* recurring =
        expense->add_subcommand("recurring", "Expenses that come again: rent, subscriptions")->require_subcommand(1);
    auto& id = c.options<std::string>();
    auto& frequency = c.options<std::optional<Frequency>>();
    c.add(recurring, "list", "List them", listRecurring);
    auto* add = c.add(recurring, "add", "Make an expense come again from its own date on",
                      [&](const Context& x) { return addRecurring(x, id, frequency.value_or(Frequency::monthly)); });
    add->add_option("ID", id, "The beginning of the expense’s ID")->required();
    addWord(add, "--every", frequency, "How often (monthly)");
    const auto addOne = [&](const std::string& name, const std::string& help, auto action) {
        c.add(recurring, name, help, action)->add_option("ID", id, "The beginning of its ID")->required();
    };
    addOne("pause", "Add none for now", [&](const Context& x) { return pauseRecurring(x, id, true); });
    addOne("resume", "Go on from today; what fell due meanwhile is skipped",
           [&](const Context& x) { return pauseRecurring(x, id, false); });
    addOne("remove", "End it; expenses already added stay", [&](const Context& x) { return removeRecurring(x, id); });
    c.add(recurring, "run", "Add what is due, as the application does when it starts", addDueRecurring);
}

}  // namespace

void addExpenseCommands(CLI::App& app, Command& c) {
    auto& filter = c.options<ExpenseFilter>();
    auto& entry = c.options<ExpenseEntry>();
    auto& id = c.options<std::string>();
    auto* expense = app.add_subcommand("expense", "List, add and show expenses")->require_subcommand(1);
    auto* list = c.add(expense, "list", "List expenses with their total",
                       [&](const Context& x) { return listExpenses(x, filter); });
    addDay(list, "--from", filter.from, "First day");
    addDay(list, "--to", filter.to, "Last day");
    addText(list, "--month", filter.month, "One month: 2026-04");
    addText(list, "--category", filter.category, "One category, or “uncategorised”");
    addText(list, "--vendor", filter.vendor, "Vendors whose name holds this");
    list->add_flag("--check", filter.check, "Only those that want a look");

    auto* add = expense->add_subcommand("add", "Add an expense");
    auto* vendor = addText(add, "--vendor", entry.vendor, "Who was paid");
    auto* amount = addText(add, "--amount", entry.amount, "What was paid, tax included");
    addDay(add, "--date", entry.date, "The day (today)");
    addText(add, "--category", entry.category, "Category (that of the vendor’s latest expense)");
    auto* tax = addText(add, "--tax", entry.tax, "Tax in the amount");
    addWord(add, "--method", entry.method, "How it was paid (upi)");
    auto* currency = addText(add, "--currency", entry.currency, "Currency (the home currency)");
    auto* rate = addText(add, "--rate", entry.rate, "Exchange rate to the home currency");
    addText(add, "--mileage", entry.mileage, "Distance driven, instead of an amount")
        ->excludes(amount, tax, currency, rate);
    addText(add, "--project", entry.project, "Project");
    addText(add, "--client", entry.client, "Client (that of the project)");
    addText(add, "--notes", entry.notes, "Notes");
    add->add_flag("--billable", entry.billable, "To be billed on to the client");
    add->callback([&c, &entry, vendor, amount] {
        if (entry.mileage.empty()) {
            if (vendor->empty()) throw CLI::RequiredError("--vendor");
            if (amount->empty()) throw CLI::RequiredError("--amount");
        }
        c.run = [&entry](const Context& x) { return addExpense(x, entry); };
    });

    auto* show = c.add(expense, "show", "Show one expense", [&](const Context& x) { return showExpense(x, id); });
    show->add_option("ID", id, "The beginning of its ID")->required();
    auto& convertedAt = c.options<std::string>();
    auto* convert = c.add(expense, "convert", "Turn one into the home currency for good; its notes keep what was paid",
                          [&](const Context& x) { return convertExpense(x, id, convertedAt); });
    convert->add_option("ID", id, "The beginning of its ID")->required();
    addText(convert, "--rate", convertedAt, "Exchange rate (the expense’s own)");
    addRecurringCommands(expense, c);
}

}  // namespace tamba::cli
