#include "TambaCLI/ReportCommands.h"

#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Breakdowns.h"
#include "TambaCore/Reports/ReportTables.h"
#include "TambaCore/Reports/Reports.h"
#include "TambaCore/Reports/Sum.h"
#include "TambaCore/Reports/TDS.h"

#include <iostream>

namespace tamba::cli {
namespace {

using enum Table::Align;

/// Books that are only looked at stay until the process ends: to free a hundred thousand records one by one takes as
/// long as the report.
const LibrarySession& opened(const Context& context) {
    static const auto* const session = new LibrarySession(context.folder, LibrarySession::Access::read);
    return *session;
}

/// The books and what every report needs of them.
class Asked {
public:
    Asked(const Context& context, const ReportOptions& options)
        : reports{existing(opened(context)), context.today},
          period(options.period.empty() ? Period::fy(library().fy(context.today))
                                        : periodOf(options.period, library().fyStart())) {}

    [[nodiscard]] const Library& library() const { return reports.lib; }
    [[nodiscard]] std::string money(std::int64_t amount) const { return MoneyFormat::string(amount, library().home()); }
    /// The financial year that the period is; refuses a shorter one.
    [[nodiscard]] FinancialYear year() const {
        const FinancialYear year = library().fy(period.from);
        if (period != Period::fy(year)) throw Refusal("This report covers a whole year: give one such as 2026.");
        return year;
    }

    Reports reports;
    Period period;
};

int printCSV(const tamba::Table& table) {
    std::cout << Tables::csv(table).text();
    return 0;
}

/// Ends a report: as JSON with the period, the currency and what is left out, or as text with a line about it.
int finish(const Context& context, const Asked& asked, JSON object, const std::string& text, const LeftOut& leftOut) {
    if (context.json) {
        object.add("currency", asked.library().home().code)
            .add(
                "leftOut",
                JSON::object().add("documents", idsJSON(leftOut.documents)).add("expenses", idsJSON(leftOut.expenses)));
        std::cout << object.text() << "\n";
        return 0;
    }
    std::cout << text;
    if (const std::size_t count = leftOut.count())
        std::cout << "\nLeft out: " << counted(count, "record", "records")
                  << " without an exchange rate or with a figure that can’t be right.\n";
    return 0;
}

JSON periodJSON(const Period& period) { return JSON::object().add("from", period.from).add("to", period.to); }

std::string monthName(const Day& month) { return month.formatted("MMM yyyy"); }

}  // namespace

JSON idsJSON(const std::vector<UUID>& ids) {
    JSON list = JSON::array();
    for (const UUID& id : ids) list.append(id.text());
    return list;
}

Period periodOf(std::string_view typed, int yearStart) {
    const std::string text(typed);
    const auto refuse = [&] {
        return Refusal("“" + text +
                       "” is no period: give a month such as 2026-10, a quarter such as 2026-Q3, or a year.");
    };
    const bool isYear = text.size() == 4,
               isQuarter = text.size() == 7 && text[4] == '-' && (text[5] == 'Q' || text[5] == 'q');
    const auto first = Day::iso(isYear || isQuarter ? text.substr(0, 4) + "-01-01" : text + "-01");
    if (!first || first->iso().substr(0, 4) != text.substr(0, 4)) throw refuse();
    const FinancialYear year{first->y, first->financialYear(yearStart).startMonth};
    if (isYear) return Period::fy(year);
    if (!isQuarter) {
        if (first->monthKey() != text) throw refuse();
        return Period::month(*first);
    }
    if (text[6] < '1' || text[6] > '4') throw refuse();
    return Period::quarter(year.start().addingMonths(3 * (text[6] - '1')), yearStart);
}

int reportProfit(const Context& context, const ReportOptions& options) {
    const Asked asked(context, options);
    const IncomeBasis basis = options.basis == "cash" ? IncomeBasis::cash : IncomeBasis::accrual;
    if (options.csv) return printCSV(ReportTables::profit(asked.reports, basis, asked.year()));
    Table table({{"Month"}, {"Income", right}, {"Expenses", right}, {"Profit", right}});
    JSON rows = JSON::array();
    Sum income, expenses;
    for (const MonthRow& row : asked.reports.months(basis, asked.year())) {
        income.add(row.income);
        expenses.add(row.expenses);
        table.add(
            {monthName(row.month), asked.money(row.income), asked.money(row.expenses), asked.money(row.profit())});
        rows.append(JSON::object()
                        .add("month", row.month)
                        .add("income", row.income)
                        .add("expenses", row.expenses)
                        .add("profit", row.profit())
                        .add("documentIDs", idsJSON(row.documentIDs))
                        .add("expenseIDs", idsJSON(row.expenseIDs)));
    }
    const std::int64_t profit = Checked::sub(income.value(), expenses.value());
    table.add({"Year", asked.money(income.value()), asked.money(expenses.value()), asked.money(profit)});
    JSON object = JSON::object();
    object.add("period", periodJSON(asked.period))
        .add("basis", word(basis))
        .add("months", rows)
        .add("income", income.value())
        .add("expenses", expenses.value())
        .add("profit", profit);
    const std::string text = std::string(title(basis)) + ", " + asked.period.label() + "\n\n" + table.text() + "\n" +
                             std::string(footnote(basis)) + "\n";
    return finish(context, asked, object, text, asked.reports.leftOut(asked.period));
}

int reportSpending(const Context& context, const ReportOptions& options) {
    const Asked asked(context, options);
    if (options.csv) return printCSV(ReportTables::spending(asked.reports, asked.period));
    Table table({{"Category"}, {"Expenses", right}, {"Amount", right}});
    JSON rows = JSON::array();
    for (const CategoryRow& row : asked.reports.byCategory(asked.period)) {
        table.add({row.name, std::to_string(row.count), asked.money(row.amount)});
        JSON one = JSON::object();
        if (row.categoryID) one.add("categoryID", row.categoryID->text());
        rows.append(one.add("name", row.name)
                        .add("count", std::int64_t{row.count})
                        .add("amount", row.amount)
                        .add("expenseIDs", idsJSON(row.expenseIDs)));
    }
    const std::int64_t total = asked.reports.spending(asked.period);
    table.add({"Total", "", asked.money(total)});
    JSON object = JSON::object();
    object.add("period", periodJSON(asked.period)).add("categories", rows).add("total", total);
    LeftOut leftOut = asked.reports.leftOut(asked.period);
    leftOut.documents.clear();
    return finish(context, asked, object, asked.period.label() + "\n\n" + table.text(), leftOut);
}

int reportClients(const Context& context, const ReportOptions& options) {
    const Asked asked(context, options);
    if (options.csv) return printCSV(ReportTables::clients(asked.reports, asked.period));
    Table table({{"Client"}, {"Invoices", right}, {"Invoiced without tax", right}});
    JSON rows = JSON::array();
    for (const ClientRow& row : asked.reports.byClient(asked.period)) {
        table.add({row.name, std::to_string(row.documentIDs.size()), asked.money(row.amount)});
        rows.append(JSON::object()
                        .add("name", row.name)
                        .add("amount", row.amount)
                        .add("documentIDs", idsJSON(row.documentIDs)));
    }
    JSON object = JSON::object();
    object.add("period", periodJSON(asked.period)).add("clients", rows);
    LeftOut leftOut = asked.reports.leftOut(asked.period);
    leftOut.expenses.clear();
    return finish(context, asked, object, asked.period.label() + "\n\n" + table.text(), leftOut);
}

int reportOwed(const Context& context, const ReportOptions& options) {
    const Asked asked(context, options);
    if (options.csv) return printCSV(ReportTables::owed(asked.reports));
    Table table({{"Past due"}, {"Invoices", right}, {"Owed", right}});
    JSON rows = JSON::array();
    for (const AgingRow& row : asked.reports.aging()) {
        table.add({row.label, std::to_string(row.count), asked.money(row.amount)});
        rows.append(JSON::object()
                        .add("label", row.label)
                        .add("count", std::int64_t{row.count})
                        .add("amount", row.amount)
                        .add("documentIDs", idsJSON(row.documentIDs)));
    }
    const std::int64_t outstanding = asked.reports.outstanding();
    table.add({"Total", "", asked.money(outstanding)});
    Table late({{"Number"}, {"Client"}, {"Due"}, {"Days", right}, {"Balance", right}});
    std::vector<UUID> overdue;
    const Books::Standings standings(asked.library(), context.today);
    for (const Document* invoice : asked.reports.overdue()) {
        overdue.push_back(invoice->id);
        late.add({invoice->displayNumber(), clientNameOf(asked.library(), *invoice), invoice->dueDate.iso(),
                  std::to_string(invoice->dueDate.daysUntil(context.today)),
                  MoneyFormat::string(standings.balance(*invoice).value_or(0), Currency::of(invoice->currency))});
    }
    const std::int64_t unbilled = asked.reports.unbilledTotal();
    JSON object = JSON::object();
    object.add("aging", rows)
        .add("outstanding", outstanding)
        .add("overdue", idsJSON(overdue))
        .add("unbilled", unbilled);
    std::string text = table.text();
    if (!overdue.empty()) text += "\n" + late.text();
    if (unbilled != 0) text += "\n" + asked.money(unbilled) + " of billable expenses are on no invoice yet.\n";
    LeftOut leftOut = asked.reports.leftOut();
    leftOut.expenses.clear();
    return finish(context, asked, object, text, leftOut);
}

int reportTDS(const Context& context, const ReportOptions& options) {
    const Asked asked(context, options);
    const int startYear = options.period.empty() ? context.today.financialYear(4).startYear : asked.year().startYear;
    if (options.csv) return printCSV(ReportTables::tdsDeductions(asked.library(), startYear));
    const TDS::Year year = TDS::year(asked.library(), startYear);
    const std::array<const char*, 4> quarters{"Apr–Jun", "Jul–Sep", "Oct–Dec", "Jan–Mar"};
    Table clients({{"Client"},
                   {"PAN"},
                   {quarters[0], right},
                   {quarters[1], right},
                   {quarters[2], right},
                   {quarters[3], right},
                   {"Year", right}});
    const auto addRow = [&](const std::string& name, const std::string& pan, const auto& parts, std::int64_t total) {
        std::vector<std::string> cells{name, pan};
        for (const std::int64_t part : parts) cells.push_back(asked.money(part));
        cells.push_back(asked.money(total));
        clients.add(std::move(cells));
    };
    JSON rows = JSON::array();
    for (const TDS::ClientRow& row : year.clients) {
        addRow(row.name, row.pan, row.quarters, row.total);
        JSON parts = JSON::array();
        for (const std::int64_t part : row.quarters) parts.item(std::to_string(part));
        rows.append(JSON::object()
                        .add("name", row.name)
                        .add("gstin", row.gstin)
                        .add("pan", row.pan)
                        .add("quarters", parts)
                        .add("total", row.total)
                        .add("invoiceIDs", idsJSON(row.invoiceIDs)));
    }
    addRow("Total", "", year.quarters, year.total);
    Table table(
        {{"Date"}, {"Client"}, {"Invoice"}, {"Taxable", right}, {"Received", right}, {"TDS", right}, {"Rate", right}});
    JSON deductions = JSON::array();
    for (const TDS::Deduction& one : year.deductions) {
        table.add({one.date.iso(), one.client, one.number, asked.money(one.taxable), asked.money(one.received),
                   asked.money(one.tds), MoneyFormat::rate(one.rateBP)});
        deductions.append(JSON::object()
                              .add("date", one.date)
                              .add("quarter", std::int64_t{one.quarter})
                              .add("client", one.client)
                              .add("number", one.number)
                              .add("invoiceDate", one.invoiceDate)
                              .add("taxable", one.taxable)
                              .add("received", one.received)
                              .add("tds", one.tds)
                              .add("rateBP", one.rateBP)
                              .add("invoiceID", one.invoiceID.text())
                              .add("paymentID", one.paymentID.text()));
    }
    JSON object = JSON::object();
    object.add("year", year.year.label()).add("clients", rows).add("deductions", deductions).add("total", year.total);
    std::string text = "Tax year " + year.year.label() + ", by the day of payment\n\n";
    text += year.deductions.empty() ? "No tax was deducted.\n" : clients.text() + "\n" + table.text();
    return finish(context, asked, object, text, {year.leftOut, {}});
}

int reportInputTax(const Context& context, const ReportOptions& options) {
    const Asked asked(context, options);
    if (options.csv) return printCSV(ReportTables::inputTax(asked.library(), asked.year()));
    Table table(
        {{"Month"}, {"CGST", right}, {"SGST", right}, {"IGST", right}, {"Other", right}, {"Not claimed", right}});
    JSON rows = JSON::array();
    for (const auto& row : Breakdowns::inputTax(asked.library(), asked.year())) {
        table.add({monthName(row.month), asked.money(row.claimed.cgst), asked.money(row.claimed.sgst),
                   asked.money(row.claimed.igst), asked.money(row.claimed.other), asked.money(row.notClaimed)});
        rows.append(JSON::object()
                        .add("month", row.month)
                        .add("cgst", row.claimed.cgst)
                        .add("sgst", row.claimed.sgst)
                        .add("igst", row.claimed.igst)
                        .add("other", row.claimed.other)
                        .add("notClaimed", row.notClaimed)
                        .add("expenseIDs", idsJSON(row.expenseIDs)));
    }
    LeftOut leftOut = asked.reports.leftOut(asked.period);
    leftOut.documents.clear();
    return finish(context, asked, JSON::object().add("months", rows), asked.period.label() + "\n\n" + table.text(),
                  leftOut);
}

int reportMileage(const Context& context, const ReportOptions& options) {
    const Asked asked(context, options);
    if (options.csv) return printCSV(ReportTables::mileage(asked.library(), asked.year()));
    Table table({{"Month"}, {"Trips", right}, {"Distance", right}, {"Amount", right}});
    JSON rows = JSON::array();
    for (const auto& row : Breakdowns::mileage(asked.library(), asked.year())) {
        const std::string distance =
            MoneyFormat::quantity(row.distanceMilli) + " " + asked.library().business.distanceUnit;
        table.add({monthName(row.month), std::to_string(row.expenseIDs.size()), distance, asked.money(row.amount)});
        rows.append(JSON::object()
                        .add("month", row.month)
                        .add("distanceMilli", row.distanceMilli)
                        .add("amount", row.amount)
                        .add("expenseIDs", idsJSON(row.expenseIDs)));
    }
    LeftOut leftOut = asked.reports.leftOut(asked.period);
    leftOut.documents.clear();
    return finish(context, asked, JSON::object().add("months", rows), asked.period.label() + "\n\n" + table.text(),
                  leftOut);
}

int reportProjects(const Context& context, const ReportOptions& options) {
    const Asked asked(context, options);
    if (options.csv) return printCSV(ReportTables::projects(asked.library(), asked.period));
    Table table({{"Project"}, {"Client"}, {"Income", right}, {"Expenses", right}, {"Profit", right}});
    JSON rows = JSON::array();
    for (const auto& row : Breakdowns::projects(asked.library(), asked.period)) {
        table.add(
            {row.name, row.client, asked.money(row.income), asked.money(row.expenses), asked.money(row.profit())});
        JSON one = JSON::object();
        if (row.projectID) one.add("projectID", row.projectID->text());
        rows.append(one.add("name", row.name)
                        .add("client", row.client)
                        .add("income", row.income)
                        .add("expenses", row.expenses)
                        .add("profit", row.profit())
                        .add("documentIDs", idsJSON(row.documentIDs))
                        .add("expenseIDs", idsJSON(row.expenseIDs)));
    }
    JSON object = JSON::object();
    object.add("period", periodJSON(asked.period)).add("projects", rows);
    return finish(context, asked, object, asked.period.label() + "\n\n" + table.text(),
                  asked.reports.leftOut(asked.period));
}

}  // namespace tamba::cli
