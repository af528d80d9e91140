#include "TambaCLI/BankCommands.h"
#include "TambaCLI/Words.h"
#include "TambaCore/Model/Fields.h"

namespace tamba::cli {

void addBankCommands(CLI::App& app, Command& c) {
    auto* bank = app.add_subcommand("bank", "Bank statements and their lines")->require_subcommand(1);
    auto& options = c.options<StatementOptions>();
    auto* parse = c.add(bank, "parse", "Read a statement and print its lines",
                        [&](const Context& x) { return parseStatement(x, options); });
    parse->add_option("FILE", options.file, "CSV, .xlsx, OFX, QIF, a table of a web page")->required();
    addWord(parse, "--order", options.order, "How the statement writes dates (dmy)");
    addText(parse, "--currency", options.currency, "Currency of the account (INR)");
    addMatchCommands(*bank, c);
}

}  // namespace tamba::cli
