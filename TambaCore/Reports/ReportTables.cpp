#include "TambaCore/Reports/ReportTables.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Breakdowns.h"
#include "TambaCore/Reports/Sum.h"
#include "TambaCore/Reports/TDS.h"
#include "TambaCore/Reports/TableParts.h"

#include <algorithm>
#include <array>

namespace tamba::ReportTables {
namespace {

using namespace TableParts;

std::string on(const Day& day) { return "On " + day.formatted("d MMM yyyy"); }

/// In tenths of a percent. Nothing where money that came back makes shares meaningless.
Table::Cell share(std::int64_t amount, std::int64_t total) {
    if (amount < 0 || amount > total || total < 1) return {};
    return 10 * MoneyMath::mulDiv(amount, 1000, total);
}

std::string quarterName(std::size_t quarter) {
    static constexpr std::array names{"Apr–Jun", "Jul–Sep", "Oct–Dec", "Jan–Mar"};
    return names.at(quarter);
}

}  // namespace

Table profit(const Reports& reports, IncomeBasis basis, const FinancialYear& year) {
    const Home home(reports.lib);
    Table table;
    table.title = "Profit and loss";
    table.subtitle = Period::fy(year).label() + " · " + std::string(title(basis));
    table.columns = {{"Month", Kind::month},
                     {"Income", Kind::amount, From::documents},
                     {"Expenses", Kind::amount, From::expenses},
                     {"Profit", Kind::amount}};
    for (MonthRow& row : reports.months(basis, year))
        table.rows.push_back({{row.month, home(row.income), home(row.expenses), home(row.profit())},
                              std::move(row.documentIDs),
                              std::move(row.expenseIDs)});
    addSum(table, "Year", {1, 2, 3});
    table.notes.emplace_back(footnote(basis));
    noteLeftOut(table, reports.leftOut(Period::fy(year)).count());
    return table;
}

Table spending(const Reports& reports, const Period& period) {
    const Home home(reports.lib);
    const std::int64_t total = reports.spending(period);
    Table table;
    table.title = "Spending by category";
    table.subtitle = period.label();
    table.columns = {{"Category"}, {"Expenses", Kind::count}, {"Amount", Kind::amount}, {"Share", Kind::percent}};
    for (CategoryRow& row : reports.byCategory(period))
        table.rows.push_back({{row.name, std::int64_t{row.count}, home(row.amount), share(row.amount, total)},
                              {},
                              std::move(row.expenseIDs)});
    addSum(table, "Total", {1, 2});
    noteLeftOut(table, reports.leftOut(period).expenses.size());
    return table;
}

Table clients(const Reports& reports, const Period& period) {
    const Home home(reports.lib);
    Table table;
    table.title = "Income by client";
    table.subtitle = period.label();
    table.columns = {{"Client"}, {"Invoices", Kind::count}, {"Invoiced", Kind::amount}};
    for (ClientRow& row : reports.byClient(period)) {
        const auto count = static_cast<std::int64_t>(row.documentIDs.size());
        table.rows.push_back({{row.name, count, home(row.amount)}, std::move(row.documentIDs), {}});
    }
    addSum(table, "Total", {1, 2});
    table.notes.emplace_back("Taxable value of the invoices dated in this time. Credit notes are not taken off.");
    noteLeftOut(table, reports.leftOut(period).documents.size());
    return table;
}

Table aging(const Reports& reports) {
    const Home home(reports.lib);
    Table table;
    table.title = "Money owed";
    table.subtitle = on(reports.today);
    table.columns = {{"Past due"}, {"Invoices", Kind::count}, {"Amount", Kind::amount}};
    Sum owed;
    for (AgingRow& row : reports.aging()) {
        owed.add(row.amount);
        table.rows.push_back({{row.label, std::int64_t{row.count}, home(row.amount)}, std::move(row.documentIDs), {}});
    }
    addSum(table, "Total", {1, 2});
    const std::int64_t overpaid = Checked::sub(owed.value(), reports.outstanding());
    if (overpaid > 0)
        table.notes.push_back(MoneyFormat::string(overpaid, reports.lib.home()) +
                              " more than invoiced has come in or was credited. It is not taken off here.");
    noteLeftOut(table, reports.leftOut().documents.size());
    return table;
}

Table owed(const Reports& reports) {
    const Home home(reports.lib);
    Table table;
    table.title = "Unpaid invoices";
    table.subtitle = on(reports.today);
    table.columns = {{"Number"},
                     {"Client"},
                     {"Date", Kind::day},
                     {"Due", Kind::day},
                     {"Days late", Kind::count},
                     {"Total", Kind::amount},
                     {"Balance", Kind::amount}};
    const Books::Standings standings(reports.lib, reports.today);
    auto invoices = reports.issuedInvoices();
    std::stable_sort(invoices.begin(), invoices.end(),
                     [](const Document* a, const Document* b) { return a->dueDate < b->dueDate; });
    for (const Document* invoice : invoices) {
        const auto standing = standings.of(*invoice);
        if (!standing || standing->balance < 1) continue;
        const auto inHome = [&](std::int64_t amount) { return Books::inHomeCurrency(reports.lib, *invoice, amount); };
        const auto total = inHome(standing->totals.total), balance = inHome(standing->balance);
        if (!total || !balance) continue;
        table.rows.push_back({{invoice->displayNumber(), clientNameOf(reports.lib, *invoice), invoice->issueDate,
                               invoice->dueDate, standing->daysLate, home(*total), home(*balance)},
                              {invoice->id},
                              {}});
    }
    addSum(table, "Total", {6});
    noteLeftOut(table, reports.leftOut().documents.size());
    return table;
}

Table tdsDeductions(const Library& library, int startYear) {
    const Home home(library);
    TDS::Year year = TDS::year(library, startYear);
    Table table;
    table.title = "Tax deducted at source";
    table.subtitle = "Tax year " + year.year.label() + ", by the day of payment";
    table.columns = {{"Date", Kind::day},
                     {"Quarter"},
                     {"Client"},
                     {"PAN"},
                     {"GSTIN"},
                     {"Invoice"},
                     {"Invoice date", Kind::day},
                     {"Taxable", Kind::amount},
                     {"Received", Kind::amount},
                     {"TDS", Kind::amount},
                     {"Rate", Kind::percent}};
    for (const std::size_t detail : {1U, 3U, 4U, 6U}) table.columns[detail].isDetail = true;
    for (TDS::Deduction& one : year.deductions) {
        const std::string quarter =
            "Q" + std::to_string(one.quarter) + " " + quarterName(static_cast<std::size_t>(one.quarter - 1));
        table.rows.push_back({{one.date, quarter, one.client, one.pan, one.gstin, one.number, one.invoiceDate,
                               home(one.taxable), home(one.received), home(one.tds), one.rateBP},
                              {one.invoiceID},
                              {}});
    }
    addSum(table, "Total", {7, 8, 9});
    table.notes.emplace_back(
        "Compare with the certificates (Form 16A, from April 2026 Form 131). A client may have booked the tax at the "
        "date of the invoice, in another quarter or year.");
    noteLeftOut(table, year.leftOut.size());
    return table;
}

Table tdsClients(const Library& library, int startYear) {
    const Home home(library);
    TDS::Year year = TDS::year(library, startYear);
    Table table;
    table.title = "Tax deducted at source, by client";
    table.subtitle = "Tax year " + year.year.label();
    table.columns = {{"Client"}, {"PAN"}, {"GSTIN"}};
    for (std::size_t i = 0; i < 4; ++i) table.columns.push_back({quarterName(i), Kind::amount});
    table.columns.push_back({"Year", Kind::amount});
    for (const std::size_t detail : {1U, 2U}) table.columns[detail].isDetail = true;
    for (TDS::ClientRow& row : year.clients) {
        std::vector<Table::Cell> cells{row.name, row.pan, row.gstin};
        for (const std::int64_t quarter : row.quarters) cells.emplace_back(home(quarter));
        cells.emplace_back(home(row.total));
        table.rows.push_back({std::move(cells), std::move(row.invoiceIDs), {}});
    }
    addSum(table, "Total", {3, 4, 5, 6, 7});
    noteLeftOut(table, year.leftOut.size());
    return table;
}

Table inputTax(const Library& library, const FinancialYear& year) {
    const Home home(library);
    Table table;
    table.title = "Tax on expenses";
    table.subtitle = Period::fy(year).label();
    table.columns = {{"Month", Kind::month}, {"CGST", Kind::amount},  {"SGST", Kind::amount},
                     {"IGST", Kind::amount}, {"Other", Kind::amount}, {"Not claimed", Kind::amount}};
    for (Breakdowns::InputTaxRow& row : Breakdowns::inputTax(library, year)) {
        const TaxSplit& tax = row.claimed;
        table.rows.push_back(
            {{row.month, home(tax.cgst), home(tax.sgst), home(tax.igst), home(tax.other), home(row.notClaimed)},
             {},
             std::move(row.expenseIDs)});
    }
    addSum(table, "Year", {1, 2, 3, 4, 5});
    noteLeftOut(table, Reports{library, year.end()}.leftOut(Period::fy(year)).expenses.size());
    return table;
}

Table mileage(const Library& library, const FinancialYear& year) {
    const Home home(library);
    Table table;
    table.title = "Mileage";
    table.subtitle = Period::fy(year).label();
    table.columns = {{"Month", Kind::month},
                     {"Trips", Kind::count},
                     {"Distance, " + library.business.distanceUnit, Kind::quantity},
                     {"Amount", Kind::amount}};
    for (Breakdowns::MileageRow& row : Breakdowns::mileage(library, year)) {
        const auto trips = static_cast<std::int64_t>(row.expenseIDs.size());
        table.rows.push_back({{row.month, trips, row.distanceMilli, home(row.amount)}, {}, std::move(row.expenseIDs)});
    }
    addSum(table, "Year", {1, 2, 3});
    return table;
}

Table projects(const Library& library, const Period& period) {
    const Home home(library);
    Table table;
    table.title = "Projects";
    table.subtitle = period.label();
    table.columns = {{"Project"},
                     {"Client"},
                     {"Income", Kind::amount, From::documents},
                     {"Expenses", Kind::amount, From::expenses},
                     {"Profit", Kind::amount}};
    for (Breakdowns::ProjectRow& row : Breakdowns::projects(library, period))
        table.rows.push_back({{row.name, row.client, home(row.income), home(row.expenses), home(row.profit())},
                              std::move(row.documentIDs),
                              std::move(row.expenseIDs)});
    addSum(table, "Total", {2, 3, 4});
    table.notes.emplace_back(
        "Income by invoice date. A line that bills an expense counts for the expense’s project, any other for its "
        "client’s project where the client has just one.");
    noteLeftOut(table, Reports{library, period.to}.leftOut(period).count());
    return table;
}

}  // namespace tamba::ReportTables
