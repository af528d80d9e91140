#include "TambaCLI/MatchCommands.h"
#include "TambaCLI/Words.h"
#include "TambaCore/Model/Fields.h"

#include <limits>

namespace tamba::cli {

namespace {

constexpr const char* lineHelp = "The beginning of its ID, or a part of its narration that no other line has";

}  // namespace

void addMatchCommands(CLI::App& bank, Command& c) {
    auto& line = c.options<std::string>();
    const auto withLine = [&](CLI::App* command) { addText(command, "LINE", line, lineHelp)->required(); };
    auto& statement = c.options<ImportOptions>();
    auto* import = c.add(&bank, "import", "Read a statement into the books; lines that are there already are left out",
                         [&](const Context& x) { return importStatement(x, statement); });
    import->add_option("FILE", statement.file, "The statement")->required();
    auto* account = addText(import, "--account", statement.account,
                            "Bank account (the only one); made where there is none of that name");
    addText(import, "--currency", statement.currency, "Currency of an account that is made (the home currency)")
        ->needs(account);
    addWord(import, "--order", statement.order, "How the statement writes dates (as the business does)");
    import->add_flag("--anyway", statement.anyway, "Also add the lines that are in the books already");

    auto& filter = c.options<LineFilter>();
    auto* list = c.add(&bank, "list", "List bank lines and what they are matched with",
                       [&](const Context& x) { return listLines(x, filter); });
    addDay(list, "--from", filter.from, "First day");
    addDay(list, "--to", filter.to, "Last day");
    list->add_flag("--open", filter.open, "Only those that wait to be matched");

    withLine(c.add(&bank, "suggest", "Which expense, invoice or recorded payment a line could be",
                   [&](const Context& x) { return suggestMatches(x, line); }));

    auto& options = c.options<MatchOptions>();
    auto* match = bank.add_subcommand("match", "Match a line with what it paid, or all obvious ones");
    auto* one = addText(match, "LINE", options.line, lineHelp);
    auto* obvious = match->add_flag("--obvious", options.obvious, "Match every line that has one clear suggestion");
    auto* expense = addText(match, "--expense", options.expense, "An expense: the beginning of its ID");
    auto* invoice = addText(match, "--invoice", options.invoice, "An invoice: its number");
    auto* payment =
        addText(match, "--payment", options.payment, "A payment that was recorded before: the beginning of its ID");
    auto* shares = addTexts(match, "--share", options.shares, "A part of the line: NUMBER=AMOUNT; give several");
    auto* rest = match->add_flag("--rest-as-tds", options.restAsTDS, "What is left of the invoice was withheld as TDS");
    auto* exchange = match->add_flag("--rest-as-exchange", options.restAsExchange,
                                     "What is left of the invoice was lost in exchange");
    obvious->excludes(one, expense, invoice, payment, shares, rest, exchange);
    expense->excludes(invoice, payment, shares, rest, exchange);
    payment->excludes(invoice, shares, rest, exchange);
    invoice->excludes(shares);
    rest->excludes(exchange);
    match->callback([&, one, expense, invoice, payment, shares] {
        if (!options.obvious && one->empty()) throw CLI::RequiredError("LINE or --obvious");
        if (!options.obvious && expense->empty() && invoice->empty() && payment->empty() && shares->empty())
            throw CLI::RequiredError("--expense, --invoice, --payment or --share");
        c.run = [&options](const Context& x) { return matchLine(x, options); };
    });

    withLine(c.add(&bank, "unmatch", "Remove the match of a line, and the payments it made",
                   [&](const Context& x) { return unmatchLine(x, line); }));
    auto& back = c.options<bool>();
    auto* ignore = c.add(&bank, "ignore", "Set a line aside that belongs to nothing",
                         [&](const Context& x) { return ignoreLine(x, line, !back); });
    withLine(ignore);
    ignore->add_flag("--undo", back, "Bring it back");
    withLine(c.add(&bank, "expense", "Make a line of money out an expense",
                   [&](const Context& x) { return expenseFromLine(x, line); }));
}

void addRuleCommands(CLI::App& app, Command& c) {
    auto& entry = c.options<RuleEntry>();
    auto& typed = c.options<std::string>();
    auto* rule = app.add_subcommand("rule", "Which category and vendor new expenses get")->require_subcommand(1);
    c.add(rule, "list", "List the rules in the order they are tried", listRules);
    auto* add = c.add(rule, "add", "Add a rule, or change the one with the same text",
                      [&](const Context& x) { return addRule(x, entry); });
    auto* contains = addText(add, "--contains", entry.contains, "What a vendor or narration holds");
    auto* category = addText(add, "--category", entry.category, "The category an expense then gets");
    auto* vendor = addText(add, "--vendor", entry.vendor, "The vendor’s name it then gets");
    auto* expense = addText(add, "--expense", entry.expense, "Take it all from an expense: the beginning of its ID");
    expense->excludes(contains, category, vendor);
    contains->needs(category);
    add->parse_complete_callback([contains, expense] {
        if (contains->empty() && expense->empty()) throw CLI::RequiredError("--contains or --expense");
    });

    const auto withRule = [&](CLI::App* command) {
        addText(command, "RULE", typed, "Its text, or the beginning of its ID")->required();
    };
    withRule(c.add(rule, "remove", "Remove a rule", [&](const Context& x) { return removeRule(x, typed); }));
    auto& place = c.options<int>();
    auto* move =
        c.add(rule, "move", "Try a rule earlier or later", [&](const Context& x) { return moveRule(x, typed, place); });
    withRule(move);
    move->add_option("PLACE", place, "Its place in the list, from 1")
        ->required()
        ->check(CLI::Range(1, std::numeric_limits<int>::max()));
}

}  // namespace tamba::cli
