#include "TambaCLI/Arguments.h"
#include "TambaCLI/DocCommands.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Numbering.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace tamba::cli {
namespace {

constexpr std::string_view beyondBelief = "The figures can’t be right, so it is in no sum.";

using Lines = std::vector<std::pair<std::string, std::string>>;

std::string longDay(Day day) { return day.formatted("d MMM yyyy"); }

/// "CGST ₹41.00, SGST ₹41.00"
std::string taxText(const TaxSplit& tax, const Currency& currency) {
    std::vector<std::string> parts;
    for (const auto& [name, part] :
         {std::pair{"CGST ", tax.cgst}, {"SGST ", tax.sgst}, {"IGST ", tax.igst}, {"tax ", tax.other}})
        if (part != 0) parts.push_back(name + MoneyFormat::string(part, currency));
    return parts.empty() ? "no tax" : Text::join(parts, ", ");
}

Lines heading(const Library& library, const Document& document, DocStatus status, std::int64_t daysLate) {
    const bool foreign = document.currency != library.business.homeCurrency;
    const auto state = IndianState::of(document.placeOfSupply);
    const Document* linked = document.linkedID ? library.document(*document.linkedID) : nullptr;
    std::string standing(Books::title(status));
    if (daysLate > 0) standing += ", " + counted(static_cast<std::size_t>(daysLate), "day", "days") + " late";
    std::string reminders;
    if (document.remindersSent > 0) {
        reminders = std::to_string(document.remindersSent);
        if (document.lastReminder) reminders += ", the last on " + longDay(*document.lastReminder);
    }
    return {{std::string(Books::title(document.kind)), document.displayNumber()},
            {"ID", document.id.text()},
            {"Status", standing},
            {"Date", longDay(document.issueDate)},
            {document.kind == DocKind::estimate ? "Valid to" : "Due",
             document.kind == DocKind::creditNote ? "" : longDay(document.dueDate)},
            {"Client", clientName(library, document)},
            {"GSTIN", document.billTo ? document.billTo->taxID : ""},
            {"Supply", std::string(title(document.supply))},
            {"Place of supply", state ? state->label() : ""},
            {"Reference", document.reference},
            {"Rate", foreign && document.rateMicros != 0 ? MoneyFormat::fxRate(document.rateMicros) : ""},
            {document.kind == DocKind::creditNote ? "For invoice" : "Became", linked ? linked->displayNumber() : ""},
            {"Reason", document.reason},
            {"Sent", document.sentOn ? longDay(*document.sentOn) : ""},
            {"Reminders", reminders}};
}

std::string linesTable(const Document& document, const DocTotals& totals, const Currency& currency) {
    using enum Table::Align;
    Table table({{"#", right},
                 {"Item"},
                 {"HSN"},
                 {"Quantity", right},
                 {"Price", right},
                 {"Off", right},
                 {"Tax", right},
                 {"Amount", right}});
    for (std::size_t i = 0; i < document.lines.size(); ++i) {
        const Line& line = document.lines[i];
        const std::string unit = line.unit.empty() ? "" : " " + line.unit;
        table.add({std::to_string(i + 1), line.name, line.hsn, MoneyFormat::quantity(line.qtyMilli) + unit,
                   MoneyFormat::string(line.priceMinor, currency),
                   line.discountBP == 0 ? "" : MoneyFormat::rate(line.discountBP), MoneyFormat::rate(line.taxBP),
                   MoneyFormat::string(totals.lines[i].taxable, currency)});
    }
    return table.text();
}

Lines figures(const Document& document, const Books::Standing& standing, const Currency& currency) {
    const DocTotals& totals = standing.totals;
    const auto amount = [&](std::int64_t minor) { return MoneyFormat::string(minor, currency); };
    const auto unlessZero = [&](std::int64_t minor) { return minor == 0 ? std::string() : amount(minor); };
    Lines lines{{"Subtotal", totals.discount == 0 ? "" : amount(totals.subtotal)},
                {"Discount", unlessZero(totals.discount)},
                {"Taxable", amount(totals.taxable)}};
    for (const RateGroup& group : totals.byRate)
        lines.emplace_back("At " + MoneyFormat::rate(group.rateBP),
                           amount(group.taxable) + ": " + taxText(group.tax, currency));
    for (const HSNGroup& group : totals.byHSN) {
        if (group.hsn.empty()) continue;
        lines.emplace_back("HSN " + group.hsn, MoneyFormat::quantity(group.qtyMilli) +
                                                   (group.unit.empty() ? "" : " " + group.unit) + ", " +
                                                   amount(group.taxable) + " at " + MoneyFormat::rate(group.rateBP) +
                                                   ": " + taxText(group.tax, currency));
    }
    lines.emplace_back("Round-off", unlessZero(totals.roundOff));
    lines.emplace_back("Total", amount(totals.total));
    for (const Payment& payment : document.payments) {
        std::string text = longDay(payment.date) + ": " + amount(payment.amount);
        if (payment.tds != 0) text += " and TDS " + amount(payment.tds);
        text += " by " + std::string(word(payment.method));
        if (!payment.reference.empty()) text += ", " + payment.reference;
        lines.emplace_back("Paid", text + " (" + shortID(payment.id) + ")");
    }
    lines.emplace_back("Credited", unlessZero(standing.credited));
    if (document.kind == DocKind::invoice && document.isIssued())
        lines.emplace_back(standing.balance < 0 ? "To refund" : "To be paid", amount(std::abs(standing.balance)));
    return lines;
}

/// What is known of a draft before it is issued.
Lines outlook(const Library& library, const Document& draft) {
    Lines lines;
    for (const NumberSeries& series : library.series)
        if (draft.seriesID == series.id)
            lines.emplace_back("Will be numbered", Numbering::nextNumber(library, series, draft.issueDate));
    for (const std::string& sentence : Books::warnings(library, draft, draft.issueDate))
        lines.emplace_back("Check", sentence);
    return lines;
}

const Document& present(const Library& library, const UUID& id) {
    const Document* document = library.document(id);
    if (!document) throw Refusal("Another machine has removed that document since.");
    return *document;
}

/// How it stands, also where its figures are beyond belief.
DocStatus statusOf(const Context& context, const Library& library, const Document& document,
                   const std::optional<Books::Standing>& standing) {
    return standing ? standing->status : Books::status(library, document, context.today);
}

std::vector<const Document*> filtered(const Context& context, const Library& library, const DocFilter& filter,
                                      const Books::Standings& standings) {
    const std::string client = Text::lower(Text::trim(filter.client));
    std::vector<const Document*> found;
    for (const Document& document : library.documents) {
        if (filter.kind && document.kind != *filter.kind) continue;
        if ((filter.from && document.issueDate < *filter.from) || (filter.to && *filter.to < document.issueDate))
            continue;
        if (!Text::contains(Text::lower(clientName(library, document)), client)) continue;
        if (filter.status && statusOf(context, library, document, standings.of(document)) != *filter.status) continue;
        found.push_back(&document);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto* a, const auto* b) { return a->issueDate < b->issueDate; });
    return found;
}

/// What `doc show` prints.
std::string documentDetails(const Context& context, const Library& library, const Document& document,
                            const Books::Standings& standings) {
    const auto standing = standings.of(document);
    const DocStatus status = statusOf(context, library, document, standing);
    const Currency currency = Currency::of(document.currency);
    std::string text = details(heading(library, document, status, standing ? standing->daysLate : 0));
    if (standing && !document.lines.empty()) text += "\n" + linesTable(document, standing->totals, currency) + "\n";
    Lines lines = standing ? figures(document, *standing, currency) : Lines{{"Check", std::string(beyondBelief)}};
    lines.emplace_back("Notes", document.notes);
    lines.emplace_back("Terms", document.terms);
    if (document.state == DocState::draft && standing)
        for (auto& line : outlook(library, document)) lines.push_back(std::move(line));
    return text + details(lines);
}

/// The record and what follows from it.
std::string documentJSON(const Context& context, const Library& library, const Document& document,
                         const Books::Standings& standings) {
    const std::string record = ModelsJSON::json(document);
    JSON object = JSON::object();
    object.item(std::string_view(record).substr(1, record.size() - 2));
    const auto split = [](const TaxSplit& tax) { return ModelsJSON::json(tax); };
    const auto standing = standings.of(document);
    if (standing) {
        const DocTotals& totals = standing->totals;
        JSON lines = JSON::array();
        for (const LineTotals& line : totals.lines)
            lines.append(JSON::object()
                             .add("gross", line.gross)
                             .add("discount", line.discount)
                             .add("taxable", line.taxable)
                             .raw("tax", split(line.tax))
                             .add("total", line.total()));
        JSON byRate = JSON::array();
        for (const RateGroup& group : totals.byRate)
            byRate.append(JSON::object()
                              .add("rateBP", std::int64_t{group.rateBP})
                              .add("taxable", group.taxable)
                              .raw("tax", split(group.tax)));
        JSON byHSN = JSON::array();
        for (const HSNGroup& group : totals.byHSN)
            byHSN.append(JSON::object()
                             .add("hsn", group.hsn)
                             .add("rateBP", std::int64_t{group.rateBP})
                             .add("qtyMilli", group.qtyMilli)
                             .add("unit", group.unit)
                             .add("taxable", group.taxable)
                             .raw("tax", split(group.tax)));
        object.add("totals", JSON::object()
                                 .add("lines", lines)
                                 .add("subtotal", totals.subtotal)
                                 .add("discount", totals.discount)
                                 .add("taxable", totals.taxable)
                                 .raw("tax", split(totals.tax))
                                 .add("roundOff", totals.roundOff)
                                 .add("total", totals.total)
                                 .add("byRate", byRate)
                                 .add("byHSN", byHSN));
        object.add("paid", standing->paid)
            .add("tds", standing->tds)
            .add("credited", standing->credited)
            .add("balance", standing->balance)
            .add("daysLate", standing->daysLate);
    }
    return object.add("status", word(statusOf(context, library, document, standing))).text();
}

}  // namespace

std::string clientName(const Library& library, const Document& document) {
    if (document.billTo) return document.billTo->name;
    const Client* client = document.clientID ? library.client(*document.clientID) : nullptr;
    return client ? client->name : "";
}

void printStanding(const Context& context, const Library& library, const UUID& id) {
    const Document& document = present(library, id);
    const Books::Standings standings(library, context.today);
    if (context.json) {
        std::cout << documentJSON(context, library, document, standings) << "\n";
        return;
    }
    const Currency currency = Currency::of(document.currency);
    const auto standing = standings.of(document);
    std::cout << Books::title(document.kind) << " " << oneLine(document.displayNumber()) << " for "
              << oneLine(clientName(library, document));
    if (standing) std::cout << ", " << MoneyFormat::string(standing->totals.total, currency);
    std::cout << ": " << Text::lower(Books::title(statusOf(context, library, document, standing)));
    if (standing && standing->daysLate > 0)
        std::cout << " for " << counted(static_cast<std::size_t>(standing->daysLate), "day", "days");
    if (standing && standing->balance != 0)
        std::cout << ", " << MoneyFormat::string(std::abs(standing->balance), currency)
                  << (standing->balance < 0 ? " to refund" : " to be paid");
    std::cout << ".\n";
}

void printDocument(const Context& context, const Library& library, const UUID& id) {
    const Document& document = present(library, id);
    const Books::Standings standings(library, context.today);
    if (context.json)
        std::cout << documentJSON(context, library, document, standings) << "\n";
    else
        std::cout << documentDetails(context, library, document, standings);
}

int listDocuments(const Context& context, const DocFilter& filter) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const Currency home = library.home();
    const Books::Standings standings(library, context.today);
    const auto found = filtered(context, library, filter, standings);

    std::int64_t owed = 0;
    std::size_t leftOut = 0;
    for (const Document* document : found) {
        const auto standing = standings.of(*document);
        const auto balance =
            standing ? Books::inHomeCurrency(library, *document, standing->balance) : std::optional<std::int64_t>();
        const auto sum = balance ? Checked::tryAdd(owed, *balance) : std::nullopt;
        owed = sum.value_or(owed);
        if (!sum && (!standing || standing->balance != 0)) ++leftOut;
    }
    if (context.json) {
        JSON records = JSON::array();
        for (const Document* document : found) records.item(documentJSON(context, library, *document, standings));
        std::cout << JSON::object()
                         .add("documents", records)
                         .add("owed", owed)
                         .add("currency", home.code)
                         .add("leftOut", static_cast<std::int64_t>(leftOut))
                         .text()
                  << "\n";
        return 0;
    }
    if (found.empty()) {
        std::cout << "No documents.\n";
        return 0;
    }
    using enum Table::Align;
    Table table({{"ID"},
                 {"Kind"},
                 {"Number"},
                 {"Date"},
                 {"Due"},
                 {"Client"},
                 {"Total", right},
                 {"Balance", right},
                 {"Status"}});
    for (const Document* document : found) {
        const Currency currency = Currency::of(document->currency);
        const auto standing = standings.of(*document);
        table.add({shortID(document->id), std::string(Books::title(document->kind)), document->displayNumber(),
                   document->issueDate.iso(), document->kind == DocKind::creditNote ? "" : document->dueDate.iso(),
                   clientName(library, *document),
                   standing ? MoneyFormat::string(standing->totals.total, currency) : "?",
                   standing && standing->balance != 0 ? MoneyFormat::string(standing->balance, currency) : "",
                   std::string(Books::title(statusOf(context, library, *document, standing)))});
    }
    std::cout << table.text() << "\n"
              << counted(found.size(), "document", "documents") << ", " << MoneyFormat::string(owed, home) << " owed.";
    if (leftOut > 0)
        std::cout << " " << leftOut << " can’t be converted to " << home.code
                  << (leftOut == 1 ? " and is left out." : " and are left out.");
    std::cout << "\n";
    return 0;
}

int showDocument(const Context& context, const std::string& typed) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    printDocument(context, library, documentOf(library, typed).id);
    return 0;
}

}  // namespace tamba::cli
