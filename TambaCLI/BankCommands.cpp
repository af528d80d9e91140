#include "TambaCLI/BankCommands.h"

#include "TambaCLI/Arguments.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Bank/BankImport.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <iostream>

namespace tamba::cli {
namespace {

using BankImport::Parsed;
using BankImport::Role;

std::int64_t number(std::size_t count) { return static_cast<std::int64_t>(count); }

template <class Items>
JSON texts(const Items& items) {
    JSON list = JSON::array();
    for (const auto& item : items) list.append(std::string_view(item));
    return list;
}

JSON columns(const Parsed& parsed) {
    JSON object = JSON::object();
    for (std::size_t i = 0; i < BankImport::roleCount; ++i) {
        const auto role = static_cast<Role>(i);
        const auto place = parsed.columns[role];
        if (place && *place < parsed.columnTitles.size())
            object.add(BankImport::name(role),
                       JSON::object().add("column", number(*place + 1)).add("title", parsed.columnTitles[*place]));
    }
    return object;
}

JSON statement(const Parsed& parsed) {
    JSON transactions = JSON::array(), rows = JSON::array(), skipped = JSON::array(), breaks = JSON::array();
    for (const BankTransaction& line : parsed.transactions) transactions.item(ModelsJSON::json(line));
    for (const std::size_t row : parsed.rows) rows.item(std::to_string(row));
    for (const auto& row : parsed.skippedRows)
        skipped.append(
            JSON::object().add("row", number(row.row)).add("cells", texts(row.cells)).add("reason", row.reason));
    for (const auto& one : parsed.balanceBreaks)
        breaks.append(JSON::object().add("row", number(one.row)).add("expected", one.expected).add("found", one.found));
    JSON object = JSON::object()
                      .add("format", parsed.format)
                      .add("skipped", std::int64_t{parsed.skipped})
                      .add("transactions", transactions)
                      .add("rows", rows)
                      .add("skippedRows", skipped)
                      .add("balanceBreaks", breaks)
                      .add("order", word(parsed.order))
                      .add("orderReason", parsed.orderReason)
                      .add("notes", texts(parsed.notes));
    if (const auto& proof = parsed.balanceProof)
        object.add("balanceProof", JSON::object()
                                       .add("opening", proof->opening)
                                       .add("sum", proof->sum)
                                       .add("closing", proof->closing)
                                       .add("closes", proof->closes()));
    if (parsed.headerRow) object.add("headerRow", number(*parsed.headerRow)).add("columns", columns(parsed));
    return object;
}

std::string forPeople(const Parsed& parsed, const Currency& currency) {
    using enum Table::Align;
    const auto money = [&](std::int64_t minor) { return MoneyFormat::string(minor, currency); };
    Table lines({{"Date"}, {"Amount", right}, {"Balance", right}, {"Payee"}, {"Narration"}});
    for (const BankTransaction& line : parsed.transactions)
        lines.add({line.date.formatted("d MMM yyyy"), money(line.amount), line.balance ? money(*line.balance) : "",
                   oneLine(line.counterparty.value_or("")), oneLine(line.text)});
    std::string text = lines.text() + "\n" + parsed.format + ", " +
                       counted(parsed.transactions.size(), "line", "lines") + ". " + parsed.orderReason + "\n";
    for (const std::string& note : parsed.notes) text += note + "\n";
    for (const auto& row : parsed.skippedRows)
        text += "Row " + std::to_string(row.row) + " was skipped. " + oneLine(row.reason) + "\n";
    for (const auto& one : parsed.balanceBreaks)
        text += "Row " + std::to_string(one.row) + ": the balance should be " + money(one.expected) + " and is " +
                money(one.found) + ".\n";
    return text;
}

}  // namespace

int parseStatement(const Context& context, const StatementOptions& options) {
    const Currency currency = Currency::of(options.currency.empty() ? "INR" : currencyCode(options.currency));
    try {
        const Parsed parsed = BankImport::read(options.file, options.order.value_or(DateOrder::dmy), currency);
        std::cout << (context.json ? statement(parsed).text() + "\n" : forPeople(parsed, currency));
        return 0;
    } catch (const BankImport::ImportError& error) {
        if (!context.json) throw;
        std::cout << JSON::object().add("error", error.what()).text() << "\n";
        return 1;
    } catch (const FileError& error) {
        throw Refusal("“" + oneLine(options.file) + "” couldn’t be read: " + error.what() + ".");
    }
}

}  // namespace tamba::cli
