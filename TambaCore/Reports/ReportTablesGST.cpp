#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/GSTRules.h"
#include "TambaCore/Reports/ReportTables.h"
#include "TambaCore/Reports/TableParts.h"

#include <array>
#include <string_view>
#include <utility>

namespace tamba::ReportTables {
namespace {

using namespace TableParts;
using namespace GSTReturns;

std::string heading(const std::string& gstin, const Period& period) {
    return period.label() + (gstin.empty() ? "" : " · " + gstin);
}

/// A table of GSTR-1 in the making; each one that has rows is kept.
class Tables1 {
public:
    Tables1(const Library& library, const GSTR1& outward)
        : home_(library), subtitle_(heading(outward.gstin, outward.period)) {}

    void addEntries(std::string title, const std::vector<Entry>& entries) {
        Table table = start(std::move(title));
        table.columns = {{"Number"},          {"Date", Kind::day}, {"Recipient"},           {"GSTIN"},
                         {"Place of supply"}, {"Supply"},          {"Value", Kind::amount}, {"Rate", Kind::percent}};
        addTaxColumns(table);
        for (const std::size_t detail : {1U, 3U, 5U}) table.columns[detail].isDetail = true;
        for (const Entry& entry : entries)
            for (const RateGroup& rate : entry.rates) {
                // The value is the document's, so it stands once however many rates it has.
                const bool isFirst = &rate == &entry.rates.front();
                Table::Row row;
                row.cells = {entry.number,
                             entry.date,
                             entry.party,
                             entry.gstin,
                             GSTFigures::isExport(entry.supply) ? "96 · Outside India" : place(entry.place),
                             std::string(tamba::title(entry.supply)),
                             isFirst ? Table::Cell(home_(entry.value)) : Table::Cell(),
                             std::int64_t{rate.rateBP}};
                addTax(row, rate.taxable, rate.tax);
                row.documentIDs = {entry.id};
                table.rows.push_back(std::move(row));
            }
        keep(std::move(table), {6, 8, 9, 10, 11});
    }

    void addConsumers(std::string title, const std::vector<ConsumerRow>& rows) {
        Table table = start(std::move(title));
        table.columns = {{"Place of supply"}, {"Supply"}, {"Rate", Kind::percent}};
        addTaxColumns(table);
        for (const ConsumerRow& one : rows) {
            Table::Row row;
            row.cells = {place(one.place), std::string(tamba::title(one.supply)), std::int64_t{one.rateBP}};
            addTax(row, one.taxable, one.tax);
            row.documentIDs = one.documentIDs;
            table.rows.push_back(std::move(row));
        }
        keep(std::move(table), {3, 4, 5, 6});
    }

    void addNilRated(std::string title, const std::vector<NilRow>& rows) {
        Table table = start(std::move(title));
        table.columns = {{"Supply"}, {"To"}, {"Nil-rated or exempt", Kind::amount}};
        for (const NilRow& one : rows)
            table.rows.push_back({{std::string(tamba::title(one.supply)),
                                   one.registered ? "Registered persons" : "Unregistered persons", home_(one.taxable)},
                                  one.documentIDs,
                                  {}});
        keep(std::move(table), {2});
    }

    void addCodes(std::string title, const std::vector<HSNRow>& rows) {
        Table table = start(std::move(title));
        table.columns = {{"HSN/SAC"}, {"Description"}, {"Unit"}, {"Quantity", Kind::quantity}, {"Rate", Kind::percent}};
        addTaxColumns(table);
        for (const HSNRow& one : rows) {
            const bool isService = one.unit == "NA";
            Table::Row row;
            row.cells = {one.code, one.description, isService ? "" : one.unit,
                         isService ? Table::Cell() : Table::Cell(one.qtyMilli), std::int64_t{one.rateBP}};
            addTax(row, one.taxable, one.tax);
            row.documentIDs = one.documentIDs;
            table.rows.push_back(std::move(row));
        }
        keep(std::move(table), {5, 6, 7, 8});
    }

    void addNumbers(std::string title, const std::vector<NumberRun>& runs) {
        Table table = start(std::move(title));
        table.columns = {{"Documents"},
                         {"From"},
                         {"To"},
                         {"Used", Kind::count},
                         {"Void", Kind::count},
                         {"Issued", Kind::count},
                         {"Missing", Kind::count}};
        for (const NumberRun& run : runs) {
            const auto used = static_cast<std::int64_t>(run.used), cancelled = static_cast<std::int64_t>(run.cancelled);
            table.rows.push_back({{run.kind == DocKind::invoice ? "Invoices" : "Credit notes", run.from, run.to, used,
                                   cancelled, used - cancelled, static_cast<std::int64_t>(run.missing)},
                                  run.documentIDs,
                                  {}});
        }
        keep(std::move(table), {3, 4, 5, 6});
    }

    std::vector<Table> all;

private:
    Table start(std::string title) const {
        Table table;
        table.title = std::move(title);
        table.subtitle = subtitle_;
        return table;
    }
    static void addTaxColumns(Table& table) {
        for (const char* title : {"Taxable", "IGST", "CGST", "SGST"}) table.columns.push_back({title, Kind::amount});
    }
    void addTax(Table::Row& row, std::int64_t taxable, const TaxSplit& tax) const {
        for (const std::int64_t amount : {taxable, tax.igst, tax.cgst, tax.sgst}) row.cells.emplace_back(home_(amount));
    }
    void keep(Table table, std::initializer_list<std::size_t> sums) {
        if (table.rows.empty()) return;
        addSum(table, "Total", sums);
        all.push_back(std::move(table));
    }

    Home home_;
    std::string subtitle_;
};

Table outwardTable(const Home& home, const GSTR3B& summary) {
    Table table;
    table.title = "3.1 Outward supplies";
    table.columns = {{"Supplies"}};
    for (const char* title : {"Taxable", "IGST", "CGST", "SGST"}) table.columns.push_back({title, Kind::amount});
    const auto add = [&](const char* name, std::int64_t taxable, const TaxSplit& tax) {
        table.rows.push_back({{name, home(taxable), home(tax.igst), home(tax.cgst), home(tax.sgst)}, {}, {}});
    };
    add("(a) Taxable, other than zero-rated", summary.taxed.taxable, summary.taxed.tax);
    add("(b) Zero-rated: exports and SEZ", summary.zeroRated.taxable, summary.zeroRated.tax);
    add("(c) Nil-rated or exempt", summary.nilRated, {});
    addSum(table, "Total", {1, 2, 3, 4});
    return table;
}

Table consumersTable(const Home& home, const GSTR3B& summary) {
    Table table;
    table.title = "3.2 Inter-state supplies to unregistered persons";
    table.columns = {{"Place of supply"}, {"Taxable", Kind::amount}, {"IGST", Kind::amount}};
    for (const PlaceRow& row : summary.interState)
        table.rows.push_back({{place(row.place), home(row.taxable), home(row.igst)}, {}, {}});
    addSum(table, "Total", {1, 2});
    return table;
}

Table creditTable(const Home& home, const GSTR3B& summary, const Currency& currency) {
    Table table;
    table.title = "4 Input tax credit";
    table.columns = {{"Credit"}, {"IGST", Kind::amount}, {"CGST", Kind::amount}, {"SGST", Kind::amount}};
    const TaxSplit& credit = summary.credit;
    table.rows.push_back(
        {{"(A)(5) All other credit, by the books", home(credit.igst), home(credit.cgst), home(credit.sgst)},
         {},
         summary.creditIDs});
    table.notes.emplace_back("Credit counts only where the vendor’s invoice is in GSTR-2B.");
    for (std::string& note : creditNotes(summary, currency)) table.notes.push_back(std::move(note));
    return table;
}

Table paymentTable(const Home& home, const GSTR3B& summary) {
    Table table;
    table.title = "6.1 Payment of tax";
    table.columns = {{"Tax"},
                     {"Payable", Kind::amount},
                     {"Paid by credit", Kind::amount},
                     {"Paid in cash", Kind::amount},
                     {"Credit left", Kind::amount}};
    static constexpr std::array heads{std::pair("IGST", &TaxSplit::igst), std::pair("CGST", &TaxSplit::cgst),
                                      std::pair("SGST", &TaxSplit::sgst)};
    for (const auto& [name, part] : heads) {
        const std::int64_t payable = summary.setOff.payable.*part, cash = summary.setOff.cash.*part;
        table.rows.push_back(
            {{name, home(payable), home(payable - cash), home(cash), home(summary.setOff.creditLeft.*part)}, {}, {}});
    }
    addSum(table, "Total", {1, 2, 3, 4});
    table.notes.emplace_back(
        "With the credit of this period alone: what was left of earlier ones is not in the books.");
    return table;
}

}  // namespace

}  // namespace tamba::ReportTables

namespace tamba::TableParts {

std::vector<std::string> creditNotes(const GSTReturns::GSTR3B& summary, const Currency& currency) {
    std::vector<std::string> notes;
    if (summary.notClaimed != 0)
        notes.push_back(MoneyFormat::string(summary.notClaimed, currency) + " of tax on expenses is not claimed.");
    const auto tell = [&notes](const std::vector<UUID>& ids, const char* what) {
        if (!ids.empty())
            notes.push_back(std::to_string(ids.size()) + (ids.size() == 1 ? " expense" : " expenses") + what);
    };
    tell(summary.withoutGSTIN, " with claimed tax, but no valid GSTIN of the vendor: that is no credit.");
    tell(summary.wrongState, " with CGST and SGST of another state: that credit is lost.");
    tell(summary.foreign, " in foreign currency: a service from abroad is taxed under reverse charge.");
    return notes;
}

}  // namespace tamba::TableParts

namespace tamba::ReportTables {

std::vector<Table> gstr1(const Library& library, const GSTR1& outward) {
    Tables1 tables(library, outward);
    tables.addEntries("4A, 6B Registered buyers and SEZ", outward.b2b);
    tables.addEntries("5 Large invoices to consumers", outward.b2cl);
    tables.addEntries("6A Exports", outward.exports);
    tables.addConsumers("7 Other consumers", outward.b2cs);
    tables.addNilRated("8 Nil-rated or exempt", outward.nilRated);
    tables.addEntries("9B Credit notes to registered buyers", outward.cdnr);
    tables.addEntries("9B Credit notes on exports and large invoices", outward.cdnur);
    const bool split = GSTRules::value(GSTRules::Rule::hsnSplit, outward.period.to) != 0;
    tables.addCodes(split ? "12 HSN summary, registered buyers" : "12 HSN summary", outward.hsnB2B);
    tables.addCodes("12 HSN summary, other buyers", outward.hsnB2C);
    tables.addNumbers("13 Documents issued", outward.numbers);
    return std::move(tables.all);
}

std::vector<Table> gstr3b(const Library& library, const GSTR3B& summary) {
    const Home home(library);
    std::vector<Table> tables{outwardTable(home, summary)};
    if (!summary.interState.empty()) tables.push_back(consumersTable(home, summary));
    tables.push_back(creditTable(home, summary, library.home()));
    tables.push_back(paymentTable(home, summary));
    for (Table& table : tables) table.subtitle = heading(summary.gstin, summary.period);
    return tables;
}

Table composition(const Library& library, const Composition& turnover) {
    const Home home(library);
    Table table;
    table.title = GSTReturns::title(turnover);
    table.subtitle = turnover.period.label() + " · " + MoneyFormat::rate(turnover.rateBP);
    table.columns = {{"Supplies"},
                     {"Documents", Kind::count},
                     {"Turnover", Kind::amount},
                     {"CGST", Kind::amount},
                     {"SGST", Kind::amount}};
    table.rows.push_back(
        {{"Outward supplies, exempt ones included", static_cast<std::int64_t>(turnover.documentIDs.size()),
          home(turnover.turnover), home(turnover.cgst), home(turnover.sgst)},
         turnover.documentIDs,
         {}});
    if (const std::size_t count = turnover.outOfState.size())
        table.notes.push_back((count == 1 ? "1 document goes" : std::to_string(count) + " documents go") +
                              " out of your state, which the scheme does not allow.");
    noteLeftOut(table, turnover.leftOut.size());
    return table;
}

}  // namespace tamba::ReportTables
