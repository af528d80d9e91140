#include "TambaCLI/Arguments.h"
#include "TambaCLI/Output.h"
#include "TambaCLI/SettingCommands.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <iostream>

namespace tamba::cli {

int listRates(const Context& context) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    if (context.json) {
        JSON list = JSON::array();
        for (const FXRate& rate : library.rates)
            list.append(JSON::object()
                            .add("currency", rate.currency)
                            .add("rateMicros", rate.rateMicros)
                            .add("updated", rate.updated));
        std::cout << list.text() << "\n";
        return 0;
    }
    if (library.rates.empty()) {
        std::cout << "No exchange rates are kept.\n";
        return 0;
    }
    Table table({{"Currency"}, {"Rate", Table::Align::right}, {"Of"}});
    for (const FXRate& rate : library.rates)
        table.add({rate.currency, MoneyFormat::fxRate(rate.rateMicros), rate.updated.iso()});
    std::cout << table.text();
    return 0;
}

int setRate(const Context& context, const RateEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const std::string currency = currencyCode(entry.currency);
    if (currency == library.business.homeCurrency)
        throw Refusal(currency + " is the currency of these books and needs no exchange rate.");
    const bool clears = Text::trim(entry.rate).empty();
    const auto rate = clears ? std::nullopt : std::optional(exchangeRateOf(entry.rate));
    save(session, Expenses::keepRate(library, currency, rate, context.today));
    if (context.json)
        std::cout << JSON::object().add("currency", currency).add("rateMicros", rate).text() << "\n";
    else if (clears)
        std::cout << "No rate is kept for " << currency << " any more.\n";
    else
        std::cout << "1 " << currency << " is " << MoneyFormat::fxRate(*rate) << " " << library.business.homeCurrency
                  << ", for what is entered from now on.\n";
    return 0;
}

int convertExpense(const Context& context, const std::string& id, const std::string& rate) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    Expense expense = expenseOf(library, id);
    if (expense.currency == library.business.homeCurrency)
        throw Refusal("That expense is in " + expense.currency + " already.");
    if (!Text::trim(rate).empty()) expense.rateMicros = exchangeRateOf(rate);
    const Expense converted = Expenses::convertedToHome(library, std::move(expense));
    const Library saved = save(session, Expenses::replace(library, converted));
    if (context.json)
        std::cout << ModelsJSON::json(converted) << "\n";
    else
        std::cout << expenseDetails(saved, converted);
    return 0;
}

}  // namespace tamba::cli
