#include "TambaCLI/ReportCommands.h"
#include "TambaCLI/Words.h"

namespace tamba::cli {
namespace {

void addReturnCommands(CLI::App& app, Command& c) {
    auto& options = c.options<ReturnOptions>();
    auto* gst = app.add_subcommand("gst", "GST returns, prepared from the books")->require_subcommand(1);
    const auto add = [&](const std::string& word, const std::string& help, auto action) {
        auto* command = c.add(gst, word, help, [&options, action](const Context& x) { return action(x, options); });
        addText(command, "--period", options.period, "A month, 2026-10, or a quarter of the tax year, 2026-Q3")
            ->required();
        return command;
    };
    const std::string file = "Write the file for the portal";
    addText(add("gstr1", "What was supplied, by the tables of GSTR-1", showGSTR1), "-o,--output", options.output, file);
    addText(add("gstr3b", "The summary of GSTR-3B, to check the portal’s against", showGSTR3B), "-o,--output",
            options.output, file);
    addText(add("composition", "Turnover and tax of a quarter for CMP-08", showComposition), "--rate", options.rate,
            "1 for goods, 5 for restaurants, 6 for services (6)")
        ->check(CLI::IsMember({"1", "5", "6"}));
}

}  // namespace

void addReportCommands(CLI::App& app, Command& c) {
    auto& options = c.options<ReportOptions>();
    auto* report = app.add_subcommand("report", "Profit, spending, what is owed and more")->require_subcommand(1);
    const auto add = [&](const std::string& word, const std::string& help, const std::string& period, auto action) {
        auto* command = c.add(report, word, help, [&options, action](const Context& x) { return action(x, options); });
        if (!period.empty()) addText(command, "--period", options.period, period + " (the financial year of today)");
        command->add_flag("--csv", options.csv, "Print the rows as CSV");
        return command;
    };
    const std::string any = "2026 for the year from then, 2026-Q3, 2026-10", year = "2026 for the year from then";
    auto* months = add("profit", "Income, spending and profit by month", year, reportProfit)->alias("months");
    addText(months, "--basis", options.basis, "What counts as income: invoices or what was received (accrual)")
        ->check(CLI::IsMember({"accrual", "cash"}));
    add("spending", "Spending by category", any, reportSpending);
    add("clients", "Income by client", any, reportClients);
    add("owed", "What clients owe, by days past due", "", reportOwed);
    add("tds", "Tax that clients deducted, by client and quarter; April to March", year, reportTDS);
    add("input-tax", "Tax paid on expenses by month, claimed and not", year, reportInputTax);
    add("mileage", "Distances driven by month", year, reportMileage);
    add("projects", "What projects earn and cost", any, reportProjects);
    addReturnCommands(app, c);
    c.add(&app, "overview", "What is owed, and what the year has brought so far", showOverview);
    auto& days = c.options<int>();
    days = 45;
    c.add(&app, "due", "The dates to keep, with what is in them",
          [&days](const Context& x) { return showDue(x, days); })
        ->add_option("--days", days, "How far ahead (45)")
        ->check(CLI::Range(1, 1'000));
}

}  // namespace tamba::cli
