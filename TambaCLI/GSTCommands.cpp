#include "TambaCLI/ReportCommands.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/Sum.h"

#include <iostream>

namespace tamba::cli {
namespace {

using namespace GSTReturns;
using enum Table::Align;

std::string money(std::int64_t paise) { return MoneyFormat::string(paise, Currency::inr()); }
std::string percent(int rateBP) { return MoneyFormat::rate(rateBP); }

Period returnPeriod(const ReturnOptions& options) {
    // The tax year starts in April whatever the business's does.
    const Period period = periodOf(options.period, 4);
    if (period != Period::month(period.from) && period != Period::quarter(period.from, 4))
        throw Refusal("A return is for a month such as 2026-10 or a quarter such as 2026-Q3.");
    return period;
}

std::string listOf(const std::vector<Problem>& problems) {
    std::string text;
    const Problem* last = nullptr;
    for (const Problem& problem : problems) {
        if (!last || last->severity != problem.severity)
            text +=
                problem.severity == Problem::Severity::refused ? "\nThe portal will refuse:\n" : "\nWorth a look:\n";
        text += "  " + oneLine(problem.sentence) + "\n";
        last = &problem;
    }
    return text;
}

JSON problemsJSON(const std::vector<Problem>& problems) {
    JSON list = JSON::array();
    for (const Problem& problem : problems) {
        JSON one = JSON::object();
        one.add("severity", problem.severity == Problem::Severity::refused ? "refused" : "look");
        if (problem.recordID) one.add("id", problem.recordID->text());
        list.append(one.add("sentence", problem.sentence));
    }
    return list;
}

std::size_t refusals(const std::vector<Problem>& problems) {
    return static_cast<std::size_t>(std::count_if(problems.begin(), problems.end(), [](const Problem& problem) {
        return problem.severity == Problem::Severity::refused;
    }));
}

/// Writes the portal's file, unless the portal would refuse it.
int writeReturn(const ReturnOptions& options, const std::vector<Problem>& problems, const std::string& text) {
    if (const std::size_t count = refusals(problems)) {
        std::cerr << listOf(problems).substr(1) << "\n";
        throw Refusal("The portal would refuse this file for " + counted(count, "reason", "reasons") +
                      ", so it is not written.");
    }
    if (options.output == "-") {
        std::cout << text;
        return 0;
    }
    writeFile(options.output, text);
    std::cout << "Wrote " << oneLine(options.output) << ". Check the figures on the portal before you file.\n"
              << listOf(problems);
    return 0;
}

JSON split(JSON object, std::int64_t taxable, const TaxSplit& tax) {
    return object.add("taxable", taxable).raw("tax", ModelsJSON::json(tax));
}

JSON entriesJSON(const std::vector<Entry>& entries) {
    JSON list = JSON::array();
    for (const Entry& entry : entries) {
        JSON rates = JSON::array();
        for (const RateGroup& rate : entry.rates)
            rates.append(split(JSON::object().add("rateBP", std::int64_t{rate.rateBP}), rate.taxable, rate.tax));
        list.append(JSON::object()
                        .add("id", entry.id.text())
                        .add("number", entry.number)
                        .add("date", entry.date)
                        .add("party", entry.party)
                        .add("gstin", entry.gstin)
                        .add("placeOfSupply", entry.place)
                        .add("supply", word(entry.supply))
                        .add("value", entry.value)
                        .add("rates", rates));
    }
    return list;
}

JSON codesJSON(const std::vector<HSNRow>& rows) {
    JSON list = JSON::array();
    for (const HSNRow& row : rows)
        list.append(split(JSON::object()
                              .add("hsn", row.code)
                              .add("description", row.description)
                              .add("unit", row.unit)
                              .add("qtyMilli", row.qtyMilli)
                              .add("rateBP", std::int64_t{row.rateBP}),
                          row.taxable, row.tax)
                        .add("documentIDs", idsJSON(row.documentIDs)));
    return list;
}

JSON json(const GSTR1& outward, const std::vector<Problem>& problems) {
    JSON consumers = JSON::array(), nilRated = JSON::array(), numbers = JSON::array();
    for (const ConsumerRow& row : outward.b2cs)
        consumers.append(split(JSON::object()
                                   .add("supply", word(row.supply))
                                   .add("placeOfSupply", row.place)
                                   .add("rateBP", std::int64_t{row.rateBP}),
                               row.taxable, row.tax)
                             .add("documentIDs", idsJSON(row.documentIDs)));
    for (const NilRow& row : outward.nilRated)
        nilRated.append(JSON::object()
                            .add("supply", word(row.supply))
                            .add("registered", row.registered)
                            .add("taxable", row.taxable)
                            .add("documentIDs", idsJSON(row.documentIDs)));
    for (const NumberRun& run : outward.numbers)
        numbers.append(JSON::object()
                           .add("kind", word(run.kind))
                           .add("from", run.from)
                           .add("to", run.to)
                           .add("used", static_cast<std::int64_t>(run.used))
                           .add("cancelled", static_cast<std::int64_t>(run.cancelled))
                           .add("missing", static_cast<std::int64_t>(run.missing)));
    return JSON::object()
        .add("gstin", outward.gstin)
        .add("from", outward.period.from)
        .add("to", outward.period.to)
        .add("b2b", entriesJSON(outward.b2b))
        .add("b2cl", entriesJSON(outward.b2cl))
        .add("b2cs", consumers)
        .add("nilRated", nilRated)
        .add("exports", entriesJSON(outward.exports))
        .add("cdnr", entriesJSON(outward.cdnr))
        .add("cdnur", entriesJSON(outward.cdnur))
        .add("hsnB2B", codesJSON(outward.hsnB2B))
        .add("hsnB2C", codesJSON(outward.hsnB2C))
        .add("numbers", numbers)
        .add("outside", idsJSON(outward.outside))
        .add("leftOut", idsJSON(outward.leftOut))
        .add("problems", problemsJSON(problems));
}

/// One line of the overview: a table's number, name and sums.
class Overview {
public:
    Overview()
        : table_({{"Table"},
                  {""},
                  {"Rows", right},
                  {"Taxable", right},
                  {"IGST", right},
                  {"CGST", right},
                  {"SGST", right}}) {}

    void add(const char* number, const char* name, const std::vector<Entry>& entries) {
        Sums sums;
        for (const Entry& entry : entries)
            for (const RateGroup& rate : entry.rates) sums.add(rate.taxable, rate.tax);
        add(number, name, entries.size(), sums);
    }
    void add(const char* number, const char* name, const std::vector<ConsumerRow>& rows) {
        Sums sums;
        for (const ConsumerRow& row : rows) sums.add(row.taxable, row.tax);
        add(number, name, rows.size(), sums);
    }
    void add(const char* number, const char* name, const std::vector<NilRow>& rows) {
        Sums sums;
        for (const NilRow& row : rows) sums.add(row.taxable, {});
        add(number, name, rows.size(), sums);
    }
    [[nodiscard]] std::string text() const { return table_.text(); }

private:
    struct Sums {
        Sum taxable, igst, cgst, sgst;
        void add(std::int64_t amount, const TaxSplit& tax) {
            taxable.add(amount), igst.add(tax.igst), cgst.add(tax.cgst), sgst.add(tax.sgst);
        }
    };
    void add(const char* number, const char* name, std::size_t rows, const Sums& sums) {
        table_.add({number, name, std::to_string(rows), money(sums.taxable.value()), money(sums.igst.value()),
                    money(sums.cgst.value()), money(sums.sgst.value())});
    }
    Table table_;
};

std::string codesText(const GSTR1& outward) {
    Table table({{"For"}, {"HSN"}, {"Unit"}, {"Quantity", right}, {"Rate", right}, {"Taxable", right}, {"Tax", right}});
    const auto add = [&table](const char* name, const std::vector<HSNRow>& rows) {
        for (const HSNRow& row : rows)
            table.add({name, row.code.empty() ? "(none)" : row.code, row.unit,
                       row.unit == "NA" ? "" : MoneyFormat::quantity(row.qtyMilli), percent(row.rateBP),
                       money(row.taxable), money(row.tax.total())});
    };
    add("B2B", outward.hsnB2B);
    add("B2C", outward.hsnB2C);
    return outward.hsnB2B.empty() && outward.hsnB2C.empty() ? "" : "\n" + table.text();
}

std::string numbersText(const GSTR1& outward) {
    std::string text;
    for (const NumberRun& run : outward.numbers) {
        text += (run.kind == DocKind::invoice ? "Invoices " : "Credit notes ") + oneLine(run.from);
        if (run.to != run.from) text += " to " + oneLine(run.to);
        text += ": " + std::to_string(run.used) + " used";
        if (run.cancelled > 0) text += ", " + std::to_string(run.cancelled) + " of them void";
        text += ".\n";
    }
    return text.empty() ? "" : "\n" + text;
}

std::string heading(std::string_view name, const std::string& gstin, const Period& period) {
    return std::string(name) + ", " + period.label() + (gstin.empty() ? "" : ", " + oneLine(gstin)) + "\n\n";
}

}  // namespace

int showGSTR1(const Context& context, const ReturnOptions& options) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const GSTR1 outward = gstr1(library, returnPeriod(options));
    const std::vector<Problem> found = problems(library, outward);
    if (!options.output.empty()) return writeReturn(options, found, uploadText(outward));
    if (context.json) {
        std::cout << json(outward, found).text() << "\n";
        return refusals(found) > 0 ? 1 : 0;
    }
    Overview overview;
    overview.add("4A, 6B", "Registered buyers and SEZ", outward.b2b);
    overview.add("5", "Large invoices to consumers", outward.b2cl);
    overview.add("6A", "Exports", outward.exports);
    overview.add("7", "Other consumers", outward.b2cs);
    overview.add("8", "Nil-rated or exempt", outward.nilRated);
    overview.add("9B", "Credit notes, registered", outward.cdnr);
    overview.add("9B", "Credit notes, exports and large", outward.cdnur);
    std::cout << heading("GSTR-1", outward.gstin, outward.period) << overview.text() << codesText(outward)
              << numbersText(outward) << listOf(found);
    return refusals(found) > 0 ? 1 : 0;
}

int showGSTR3B(const Context& context, const ReturnOptions& options) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const GSTR1 outward = gstr1(library, returnPeriod(options));
    const std::vector<Problem> found = problems(library, outward);
    const GSTR3B summary = gstr3b(library, outward);
    if (!options.output.empty()) return writeReturn(options, found, uploadText(summary));
    const SetOff& paid = summary.setOff;
    if (context.json) {
        JSON places = JSON::array();
        for (const PlaceRow& row : summary.interState)
            places.append(
                JSON::object().add("placeOfSupply", row.place).add("taxable", row.taxable).add("igst", row.igst));
        std::cout << JSON::object()
                         .add("gstin", summary.gstin)
                         .add("from", summary.period.from)
                         .add("to", summary.period.to)
                         .add("taxed", split(JSON::object(), summary.taxed.taxable, summary.taxed.tax))
                         .add("zeroRated", split(JSON::object(), summary.zeroRated.taxable, summary.zeroRated.tax))
                         .add("nilRated", summary.nilRated)
                         .add("interState", places)
                         .raw("credit", ModelsJSON::json(summary.credit))
                         .add("notClaimed", summary.notClaimed)
                         .add("creditIDs", idsJSON(summary.creditIDs))
                         .add("withoutGSTIN", idsJSON(summary.withoutGSTIN))
                         .add("wrongState", idsJSON(summary.wrongState))
                         .add("foreign", idsJSON(summary.foreign))
                         .raw("payable", ModelsJSON::json(paid.payable))
                         .raw("cash", ModelsJSON::json(paid.cash))
                         .raw("creditLeft", ModelsJSON::json(paid.creditLeft))
                         .add("problems", problemsJSON(found))
                         .text()
                  << "\n";
        return refusals(found) > 0 ? 1 : 0;
    }
    Table table({{"Table"}, {""}, {"Taxable", right}, {"IGST", right}, {"CGST", right}, {"SGST", right}});
    const auto add = [&table](const char* number, const std::string& name, const std::string& taxable,
                              const TaxSplit& tax) {
        table.add({number, name, taxable, money(tax.igst), money(tax.cgst), money(tax.sgst)});
    };
    add("3.1(a)", "Taxed supplies", money(summary.taxed.taxable), summary.taxed.tax);
    add("3.1(b)", "Exports and SEZ", money(summary.zeroRated.taxable), summary.zeroRated.tax);
    add("3.1(c)", "Nil-rated or exempt", money(summary.nilRated), {});
    for (const PlaceRow& row : summary.interState) {
        const auto state = IndianState::of(row.place);
        add("3.2", "of these to consumers in " + (state ? state->label() : row.place), money(row.taxable),
            {0, 0, row.igst, 0});
    }
    add("4(A)(5)", "Credit by the books", "", summary.credit);
    add("6.1", "Payable", "", paid.payable);
    add("", "in cash", "", paid.cash);
    add("", "Credit left of this period", "", paid.creditLeft);
    std::cout << heading("GSTR-3B", summary.gstin, summary.period) << table.text() << "\n";
    if (summary.notClaimed != 0) std::cout << money(summary.notClaimed) << " of tax on expenses is not claimed.\n";
    const auto tell = [](const std::vector<UUID>& ids, const char* what) {
        if (!ids.empty()) std::cout << counted(ids.size(), "expense", "expenses") << what << "\n";
    };
    tell(summary.withoutGSTIN, " with claimed tax, but no valid GSTIN of the vendor: that is no credit.");
    tell(summary.wrongState, " with CGST and SGST of another state: that credit is lost.");
    tell(summary.foreign, " in foreign currency: a service from abroad is taxed under reverse charge.");
    std::cout << "Credit counts only where the vendor’s invoice is in GSTR-2B.\n" << listOf(found);
    return refusals(found) > 0 ? 1 : 0;
}

int showComposition(const Context& context, const ReturnOptions& options) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    if (library.business.regime != TaxRegime::gstComposition)
        throw Refusal("This business is not under the composition scheme.");
    const int rateBP = options.rate.empty() ? 600 : 100 * (options.rate[0] - '0');
    const Composition result = composition(library, returnPeriod(options), rateBP);
    if (context.json) {
        std::cout << JSON::object()
                         .add("from", result.period.from)
                         .add("to", result.period.to)
                         .add("turnover", result.turnover)
                         .add("rateBP", std::int64_t{result.rateBP})
                         .add("cgst", result.cgst)
                         .add("sgst", result.sgst)
                         .add("documentIDs", idsJSON(result.documentIDs))
                         .add("outOfState", idsJSON(result.outOfState))
                         .add("leftOut", idsJSON(result.leftOut))
                         .text()
                  << "\n";
        return 0;
    }
    std::cout << heading(title(result), GSTIN::clean(library.business.taxID), result.period)
              << details({{"Documents", std::to_string(result.documentIDs.size())},
                          {"Turnover", money(result.turnover)},
                          {"Rate", percent(result.rateBP)},
                          {"CGST", money(result.cgst)},
                          {"SGST", money(result.sgst)}});
    if (!result.outOfState.empty())
        std::cout << "\n"
                  << counted(result.outOfState.size(), "document goes", "documents go")
                  << " out of your state, which the scheme does not allow.\n";
    if (!result.leftOut.empty())
        std::cout << "\nLeft out: " << counted(result.leftOut.size(), "document", "documents")
                  << " without an exchange rate or with a figure that can’t be right.\n";
    return 0;
}

}  // namespace tamba::cli
