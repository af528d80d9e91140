#include "TambaCLI/SettingCommands.h"
#include "TambaCLI/Words.h"
#include "TambaCore/Model/Fields.h"

namespace tamba::cli {
namespace {

void addBusinessCommands(CLI::App& app, Command& c) {
    auto* business = app.add_subcommand("business", "What documents say of your business")->require_subcommand(1);
    c.add(business, "show", "Show the business", showBusiness);
    auto& entry = c.options<BusinessEntry>();
    auto* set = c.add(business, "set", "Change what is named; \"\" clears it",
                      [&](const Context& x) { return setBusiness(x, entry); });
    addText(set, "--name", entry.name, "Its name");
    addText(set, "--address", entry.address, "Address, in several lines if you like");
    addText(set, "--state", entry.state, "State or its GST code (that of the GSTIN)");
    addText(set, "--gstin", entry.gstin, "GSTIN");
    addWord(set, "--regime", entry.regime, "How tax is charged");
    addText(set, "--tax", entry.tax, "Usual tax rate of a line");
    addText(set, "--pan", entry.pan, "PAN");
    addText(set, "--lut", entry.lut, "Reference of the letter of undertaking");
    addText(set, "--email", entry.email, "E-mail address");
    addText(set, "--phone", entry.phone, "Phone");
    addText(set, "--website", entry.website, "Website");
    addText(set, "--due-days", entry.dueDays, "Days clients have to pay");
    auto* round = set->add_flag_callback("--round", [&entry] { entry.round = true; }, "Round totals to whole units");
    set->add_flag_callback("--no-round", [&entry] { entry.round = false; }, "Do not")->excludes(round);
    addText(set, "--upi", entry.upi, "UPI ID: name@handle");
    auto* code = set->add_flag_callback("--upi-code", [&entry] { entry.showCode = true; }, "Print a code to pay with");
    set->add_flag_callback("--no-upi-code", [&entry] { entry.showCode = false; }, "Do not")->excludes(code);
    addText(set, "--bank", entry.bankName, "Bank");
    addText(set, "--account-name", entry.accountName, "Name of the account");
    addText(set, "--account", entry.accountNumber, "Number of the account");
    addText(set, "--ifsc", entry.ifsc, "IFSC");
    addText(set, "--swift", entry.swift, "SWIFT code");
    addText(set, "--iban", entry.iban, "IBAN");
    addText(set, "--logo", entry.logo, "A picture for the head of documents; it is copied");
    addText(set, "--accent", entry.accent, "Colour of documents: 1E4A66");
    addText(set, "--signatory", entry.signatory, "Text below the signature");
    addText(set, "--terms", entry.terms, "Terms on new documents");
    addText(set, "--footer", entry.footer, "Last line of documents");
}

void addSeriesCommands(CLI::App& app, Command& c) {
    auto* series = app.add_subcommand("series", "How documents are numbered")->require_subcommand(1);
    c.add(series, "list", "List the series with the number each gives next", listSeries);
    auto& entry = c.options<SeriesEntry>();
    auto* set = c.add(series, "set", "Change a series", [&](const Context& x) { return setSeries(x, entry); });
    addText(set, "SERIES", entry.series, "invoice, estimate, credit-note, a name, or the beginning of an ID")
        ->required();
    addText(set, "--pattern", entry.pattern,
            "Pattern such as INV/{FY}/{###}. Tokens: {FY} 26-27, {YYYY}, {YY}, {MM}, and {###} for the counter, one # "
            "a digit. With a year token the count restarts each year");
    addText(set, "--start", entry.start, "The counter of the next number in this period, to go on from other books");
    set->add_flag("--anyway", entry.anyway, "Keep a pattern that something is said against");
}

void addRateCommands(CLI::App& app, Command& c) {
    auto* rate =
        app.add_subcommand("rate", "Exchange rates to the home currency, as you type them")->require_subcommand(1);
    c.add(rate, "list", "List the rates that are kept", listRates);
    auto& entry = c.options<RateEntry>();
    auto* set = c.add(rate, "set", "Keep a rate for what is entered from now on; \"\" forgets it",
                      [&](const Context& x) { return setRate(x, entry); });
    addText(set, "CURRENCY", entry.currency, "USD")->required();
    addText(set, "RATE", entry.rate, "What one of it is worth: 83.25")->required();
}

}  // namespace

void addSettingCommands(CLI::App& app, Command& c) {
    addBusinessCommands(app, c);
    addSeriesCommands(app, c);
    addRateCommands(app, c);
}

}  // namespace tamba::cli
