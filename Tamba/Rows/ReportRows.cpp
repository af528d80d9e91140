#include "Tamba/Rows/ReportRows.h"

#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/Sentences.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/ReportTables.h"
#include "TambaCore/Reports/TDS.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace tamba {
namespace {

using Measure = ReportRecords::Measure;

constexpr const char* checkOnThePortal = RowText::marked(
    "Rows", "These figures are for preparation. Check every one of them on the portal before you file.");

std::string amountText(const Library& library, std::int64_t minor) {
    return MoneyFormat::string(minor, library.home());
}

/// What stands in reports in place of a name that somebody gave.
bool withoutName(std::string_view text) {
    return text == "Uncategorised" || text == "No client" || text == "No project";
}

void removeDoubles(std::vector<UUID>& ids) {
    std::unordered_set<UUID> seen;
    std::erase_if(ids, [&seen](const UUID& id) { return !seen.insert(id).second; });
}

/// Records of a page's own measure, without ids.
ReportRecords recordsFor(const ReportPage& page, const Period& period) {
    ReportRecords records;
    records.basis = page.choice.kind == ReportKind::profit ? page.choice.basis : IncomeBasis::accrual;
    records.period = period;
    switch (page.choice.kind) {
        case ReportKind::owed:
            records.measure = Measure::balance;
            break;
        case ReportKind::tds:
            records.measure = Measure::deducted;
            break;
        case ReportKind::inputTax:
            records.measure = Measure::tax;
            break;
        case ReportKind::outward:
        case ReportKind::summary:
            records.measure = Measure::tax;
            records.addsUp = false;
            break;
        case ReportKind::projects:
            // One invoice may bill for several projects.
            records.addsUp = false;
            break;
        default:
            break;
    }
    return records;
}

ReportRemark remark(Tone tone, const std::string& sentence, std::string title, std::vector<UUID> documents,
                    std::vector<UUID> expenses) {
    ReportRecords records;
    records.title = std::move(title);
    records.documentIDs = std::move(documents);
    records.expenseIDs = std::move(expenses);
    records.measure = Measure::own;
    records.addsUp = false;
    return {tone, sentence, std::move(records), sentence};
}

/// In the words that stand under the tables, too, which are then not shown a second time.
ReportRemark countRemark(Tone tone, const char* one, const char* many, std::string title, std::vector<UUID> documents,
                         std::vector<UUID> expenses) {
    const std::size_t count = documents.size() + expenses.size();
    ReportRemark result =
        remark(tone, RowText::counted(count, one, many), std::move(title), std::move(documents), std::move(expenses));
    result.note = RowText::filled(count == 1 ? one : many, {std::to_string(count)});
    return result;
}

void addLeftOut(ReportPage& page, std::vector<UUID> documents, std::vector<UUID> expenses) {
    if (documents.empty() && expenses.empty()) return;
    page.remarks.push_back(countRemark(
        Tone::warning,
        RowText::marked("Rows",
                        "1 record is left out: without an exchange rate, or with a figure that can’t be right."),
        RowText::marked("Rows",
                        "%1 records are left out: without an exchange rate, or with a figure that can’t be right."),
        RowText::translate("Rows", "Left out"), std::move(documents), std::move(expenses)));
}

void addExpenses(ReportPage& page, const std::vector<UUID>& expenses, const char* one, const char* many) {
    if (expenses.empty()) return;
    page.remarks.push_back(
        countRemark(Tone::warning, one, many, RowText::translate("Rows", "Worth a look"), {}, expenses));
}

void addProblems(ReportPage& page, const Library& library, const GSTReturns::GSTR1& outward) {
    for (const GSTReturns::Problem& problem : GSTReturns::problems(library, outward)) {
        std::vector<UUID> ids;
        if (problem.recordID) ids.push_back(*problem.recordID);
        const bool refused = problem.severity == GSTReturns::Problem::Severity::refused;
        page.remarks.push_back(
            remark(refused ? Tone::danger : Tone::warning, Sentences::shown(problem.sentence), {}, std::move(ids), {}));
    }
}

void fillSpending(ReportPage& page, const Reports& reports, const Period& period) {
    page.tables = {ReportTables::spending(reports, period)};
    for (const CategoryRow& row : reports.byCategory(period)) {
        ReportRecords records = recordsFor(page, period);
        records.title = row.categoryID ? row.name : Sentences::shown(row.name);
        records.expenseIDs = row.expenseIDs;
        page.shares.push_back({records.title, amountText(reports.lib, row.amount), row.colorHex, Tone::none, row.amount,
                               std::move(records)});
    }
    addLeftOut(page, {}, reports.leftOut(period).expenses);
}

void fillClients(ReportPage& page, const Reports& reports, const Period& period) {
    page.tables = {ReportTables::clients(reports, period)};
    for (const ClientRow& row : reports.byClient(period)) {
        ReportRecords records = recordsFor(page, period);
        records.title = withoutName(row.name) ? Sentences::shown(row.name) : row.name;
        records.documentIDs = row.documentIDs;
        page.shares.push_back(
            {records.title, amountText(reports.lib, row.amount), {}, Tone::none, row.amount, std::move(records)});
    }
    addLeftOut(page, reports.leftOut(period).documents, {});
}

void fillOwed(ReportPage& page, const Reports& reports) {
    page.tables = {ReportTables::aging(reports), ReportTables::owed(reports)};
    const std::vector<AgingRow> rows = reports.aging();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const AgingRow& row = rows[i];
        ReportRecords records = recordsFor(page, page.period);
        records.title = Sentences::shown(row.label);
        records.documentIDs = row.documentIDs;
        const Tone tone = i == 0 ? Tone::none : i + 1 < rows.size() ? Tone::warning : Tone::danger;
        page.shares.push_back(
            {records.title, amountText(reports.lib, row.amount), {}, tone, row.amount, std::move(records)});
    }
    addLeftOut(page, reports.leftOut().documents, {});
}

void fillSummary(ReportPage& page, const Library& library, const Period& period) {
    const GSTReturns::GSTR1 outward = GSTReturns::gstr1(library, period);
    const GSTReturns::GSTR3B summary = GSTReturns::gstr3b(library, outward);
    page.tables = ReportTables::gstr3b(library, summary);
    addProblems(page, library, outward);
    addExpenses(
        page, summary.withoutGSTIN,
        RowText::marked("Rows", "1 expense with claimed tax, but no valid GSTIN of the vendor: that is no credit."),
        RowText::marked("Rows", "%1 expenses with claimed tax, but no valid GSTIN of the vendor: that is no credit."));
    addExpenses(page, summary.wrongState,
                RowText::marked("Rows", "1 expense with CGST and SGST of another state: that credit is lost."),
                RowText::marked("Rows", "%1 expenses with CGST and SGST of another state: that credit is lost."));
    addExpenses(
        page, summary.foreign,
        RowText::marked("Rows", "1 expense in foreign currency: a service from abroad is taxed under reverse charge."),
        RowText::marked("Rows",
                        "%1 expenses in foreign currency: a service from abroad is taxed under reverse charge."));
    page.advice = RowText::translate("Rows", checkOnThePortal);
}

void fillComposition(ReportPage& page, const Library& library, const Period& period) {
    const auto turnover = GSTReturns::composition(library, period, page.choice.compositionBP);
    page.tables = {ReportTables::composition(library, turnover)};
    if (!turnover.outOfState.empty())
        page.remarks.push_back(
            countRemark(Tone::danger,
                        RowText::marked("Rows", "1 document goes out of your state, which the scheme does not allow."),
                        RowText::marked("Rows", "%1 documents go out of your state, which the scheme does not allow."),
                        RowText::translate("Rows", "Out of your state"), turnover.outOfState, {}));
    addLeftOut(page, turnover.leftOut, {});
    page.advice = RowText::translate("Rows", checkOnThePortal);
}

bool isEmpty(const ReportPage& page) {
    if (!page.remarks.empty()) return false;
    return std::all_of(page.tables.begin(), page.tables.end(), [](const Table& table) {
        return std::all_of(table.rows.begin(), table.rows.end(),
                           [](const Table::Row& row) { return row.documentIDs.empty() && row.expenseIDs.empty(); });
    });
}

}  // namespace

std::vector<ReportKind> reportsFor(const Business& business) {
    std::vector<ReportKind> kinds{ReportKind::profit, ReportKind::spending, ReportKind::clients, ReportKind::owed,
                                  ReportKind::projects};
    if (business.regime == TaxRegime::gstIndia) {
        kinds.push_back(ReportKind::outward);
        kinds.push_back(ReportKind::summary);
    }
    if (business.regime == TaxRegime::gstComposition) kinds.push_back(ReportKind::composition);
    if (business.regime != TaxRegime::none && business.regime != TaxRegime::gstComposition)
        kinds.push_back(ReportKind::inputTax);
    // Also without GST: clients in India deduct income tax.
    if (business.country == "IN") kinds.push_back(ReportKind::tds);
    kinds.push_back(ReportKind::mileage);
    kinds.push_back(ReportKind::yearEnd);
    return kinds;
}

std::string_view title(ReportKind kind) {
    switch (kind) {
        case ReportKind::profit:
            return RowText::marked("Rows", "Profit and loss");
        case ReportKind::spending:
            return RowText::marked("Rows", "Spending");
        case ReportKind::clients:
            return RowText::marked("Rows", "Clients");
        case ReportKind::owed:
            return RowText::marked("Rows", "Money owed");
        case ReportKind::outward:
            return RowText::marked("Rows", "GSTR-1");
        case ReportKind::summary:
            return RowText::marked("Rows", "GSTR-3B");
        case ReportKind::composition:
            return RowText::marked("Rows", "Composition");
        case ReportKind::tds:
            return RowText::marked("Rows", "TDS");
        case ReportKind::inputTax:
            return RowText::marked("Rows", "Input tax");
        case ReportKind::mileage:
            return RowText::marked("Rows", "Mileage");
        case ReportKind::projects:
            return RowText::marked("Rows", "Projects");
        case ReportKind::yearEnd:
            return RowText::marked("Rows", "Year end");
    }
    return {};
}

std::string_view icon(ReportKind kind) {
    switch (kind) {
        case ReportKind::profit:
            return "reports";
        case ReportKind::spending:
            return "receipt";
        case ReportKind::clients:
            return "people";
        case ReportKind::owed:
            return "history";
        case ReportKind::outward:
            return "document";
        case ReportKind::summary:
            return "percent";
        case ReportKind::composition:
            return "percent";
        case ReportKind::tds:
            return "payment";
        case ReportKind::inputTax:
            return "credit";
        case ReportKind::mileage:
            return "category-road";
        case ReportKind::projects:
            return "category-briefcase";
        case ReportKind::yearEnd:
            return "archive";
    }
    return {};
}

std::vector<Span> spansOf(ReportKind kind) {
    switch (kind) {
        case ReportKind::spending:
        case ReportKind::clients:
        case ReportKind::projects:
        case ReportKind::composition:  // paid for by the quarter, filed for by the year
            return {Span::month, Span::quarter, Span::year};
        case ReportKind::outward:
        case ReportKind::summary:
            return {Span::month, Span::quarter};
        case ReportKind::owed:
            return {};
        default:
            return {Span::year};
    }
}

int yearStartOf(ReportKind kind, const Library& library) {
    switch (kind) {
        case ReportKind::outward:
        case ReportKind::summary:
        case ReportKind::composition:
        case ReportKind::tds:
            return 4;
        default:
            return library.fyStart();
    }
}

ReportChoice firstChoice(ReportKind kind, Day today) {
    ReportChoice choice;
    choice.kind = kind;
    const bool isComposition = kind == ReportKind::composition;
    const bool isReturn = isComposition || kind == ReportKind::outward || kind == ReportKind::summary;
    choice.span = !isReturn ? Span::year : isComposition ? Span::quarter : Span::month;
    choice.day = isReturn ? stepped(choice.span, today, -1) : today;
    return choice;
}

Period periodOf(const ReportChoice& choice, const Library& library) {
    return daysOf(choice.span, choice.day, yearStartOf(choice.kind, library)).value_or(Period{choice.day, choice.day});
}

ReportPage reportPage(const Library& library, const ReportChoice& choice, Day today) {
    ReportPage page;
    page.choice = choice;
    page.period = periodOf(choice, library);
    const Reports reports{library, today};
    const Period& period = page.period;
    const FinancialYear year = choice.day.financialYear(yearStartOf(choice.kind, library));
    switch (choice.kind) {
        case ReportKind::profit: {
            page.tables = {ReportTables::profit(reports, choice.basis, year)};
            page.months = reports.months(choice.basis, year);
            LeftOut leftOut = reports.leftOut(period);
            addLeftOut(page, std::move(leftOut.documents), std::move(leftOut.expenses));
            break;
        }
        case ReportKind::spending:
            fillSpending(page, reports, period);
            break;
        case ReportKind::clients:
            fillClients(page, reports, period);
            break;
        case ReportKind::owed:
            fillOwed(page, reports);
            break;
        case ReportKind::outward: {
            const GSTReturns::GSTR1 outward = GSTReturns::gstr1(library, period);
            page.tables = ReportTables::gstr1(library, outward);
            addProblems(page, library, outward);
            page.advice = RowText::translate("Rows", checkOnThePortal);
            break;
        }
        case ReportKind::summary:
            fillSummary(page, library, period);
            break;
        case ReportKind::composition:
            fillComposition(page, library, period);
            break;
        case ReportKind::tds:
            page.tables = {ReportTables::tdsClients(library, year.startYear),
                           ReportTables::tdsDeductions(library, year.startYear)};
            addLeftOut(page, TDS::year(library, year.startYear).leftOut, {});
            page.advice = RowText::translate(
                "Rows",
                "Compare these with your clients’ certificates (Form 16A, from April 2026 Form 131) and with the tax "
                "department’s statement (Form 26AS, now Form 168).");
            break;
        case ReportKind::inputTax:
            page.tables = {ReportTables::inputTax(library, year)};
            addLeftOut(page, {}, reports.leftOut(period).expenses);
            break;
        case ReportKind::mileage:
            page.tables = {ReportTables::mileage(library, year)};
            break;
        case ReportKind::projects: {
            page.tables = {ReportTables::projects(library, period)};
            LeftOut leftOut = reports.leftOut(period);
            addLeftOut(page, std::move(leftOut.documents), std::move(leftOut.expenses));
            break;
        }
        case ReportKind::yearEnd:
            page.remarks = yearEndRemarks(library, year, today);
            break;
    }
    page.empty = isEmpty(page);
    return page;
}

std::string cellText(const Table& table, std::size_t row, std::size_t column) {
    const Table::Row& line = table.rows[row];
    if (column >= line.cells.size()) return {};
    const Table::Column& title = table.columns[column];
    std::string text = Tables::shown(line.cells[column], title.kind);
    if (title.kind == Table::Kind::month && !line.isSum) return Sentences::months(text);
    if (!std::holds_alternative<std::string>(line.cells[column])) return text;
    if (title.title == "Quarter") return Sentences::months(text);
    static constexpr std::array<std::string_view, 7> ofFixedWords{"Past due",  "Supplies", "Supply",         "To",
                                                                  "Documents", "Credit",   "Place of supply"};
    const bool fixed = line.isSum || withoutName(text) ||
                       std::find(ofFixedWords.begin(), ofFixedWords.end(), title.title) != ofFixedWords.end();
    return fixed ? Sentences::shown(text) : text;
}

ReportRecords recordsOf(const ReportPage& page, const Table& table, std::size_t row, std::size_t column) {
    if (row >= table.rows.size() || column >= table.columns.size()) return {};
    const Table::Row& chosen = table.rows[row];
    Period period = page.period;
    std::string name = cellText(table, row, 0);
    if (!chosen.cells.empty() && table.columns[0].kind == Table::Kind::month)
        if (const Day* month = std::get_if<Day>(&chosen.cells[0])) period = Period::month(*month);
    ReportRecords records = recordsFor(page, period);
    if (chosen.isSum) {
        name = Sentences::shown(table.title);
        std::size_t first = row;
        while (first > 0 && !table.rows[first - 1].isSum) --first;
        for (std::size_t i = first; i < row; ++i) {
            const Table::Row& each = table.rows[i];
            records.documentIDs.insert(records.documentIDs.end(), each.documentIDs.begin(), each.documentIDs.end());
            records.expenseIDs.insert(records.expenseIDs.end(), each.expenseIDs.begin(), each.expenseIDs.end());
        }
    } else {
        records.documentIDs = chosen.documentIDs;
        records.expenseIDs = chosen.expenseIDs;
    }
    removeDoubles(records.documentIDs);
    removeDoubles(records.expenseIDs);
    if (table.columns[column].from == Table::From::documents) records.expenseIDs.clear();
    if (table.columns[column].from == Table::From::expenses) records.documentIDs.clear();
    records.title = column == 0 ? name : name + " · " + Sentences::shown(table.columns[column].title);
    return records;
}

ReportRecords recordsOf(const ReportPage& page, std::size_t month, std::size_t series) {
    if (month >= page.months.size()) return {};
    const MonthRow& row = page.months[month];
    ReportRecords records = recordsFor(page, Period::month(row.month));
    records.title = Sentences::months(row.month.formatted("MMMM yyyy")) + " · " +
                    (series == 0 ? RowText::translate("Rows", "Income") : RowText::translate("Rows", "Spending"));
    (series == 0 ? records.documentIDs : records.expenseIDs) = series == 0 ? row.documentIDs : row.expenseIDs;
    return records;
}

std::vector<ReportRemark> yearEndRemarks(const Library& library, const FinancialYear& year, Day today) {
    const Period period = Period::fy(year);
    ReportPage page;
    LeftOut leftOut = Reports{library, today}.leftOut(period);
    addLeftOut(page, std::move(leftOut.documents), std::move(leftOut.expenses));
    std::vector<UUID> drafts, unchecked, uncategorised, withoutReceipt;
    for (const Document& document : library.documents)
        if (document.state == DocState::draft && document.kind != DocKind::estimate &&
            period.contains(document.issueDate))
            drafts.push_back(document.id);
    for (const Expense& expense : library.expenses) {
        if (!period.contains(expense.date)) continue;
        if (expense.check) unchecked.push_back(expense.id);
        if (!expense.categoryID || !library.category(*expense.categoryID)) uncategorised.push_back(expense.id);
        if (expense.attachments.empty() && expense.kind == ExpenseKind::regular) withoutReceipt.push_back(expense.id);
    }
    if (!drafts.empty())
        page.remarks.push_back(
            countRemark(Tone::warning, RowText::marked("Rows", "1 document is still a draft, so no figure has it."),
                        RowText::marked("Rows", "%1 documents are still drafts, so no figure has them."),
                        RowText::translate("Rows", "Drafts"), drafts, {}));
    addExpenses(page, unchecked,
                RowText::marked("Rows", "1 expense was read from a receipt that nobody has checked yet."),
                RowText::marked("Rows", "%1 expenses were read from receipts that nobody has checked yet."));
    addExpenses(page, uncategorised, RowText::marked("Rows", "1 expense has no category."),
                RowText::marked("Rows", "%1 expenses have no category."));
    addExpenses(page, withoutReceipt, RowText::marked("Rows", "1 expense has no receipt."),
                RowText::marked("Rows", "%1 expenses have no receipt."));
    const auto open =
        std::count_if(library.transactions.begin(), library.transactions.end(),
                      [&](const BankTransaction& line) { return line.isOpen() && period.contains(line.date); });
    if (open > 0)
        page.remarks.push_back({Tone::warning,
                                RowText::counted(static_cast<std::size_t>(open),
                                                 RowText::marked("Rows", "1 bank line is not matched yet."),
                                                 RowText::marked("Rows", "%1 bank lines are not matched yet.")),
                                {},
                                {},
                                static_cast<std::size_t>(open)});
    return page.remarks;
}

PortalFile portalFile(const Library& library, const ReportChoice& choice) {
    const GSTReturns::GSTR1 outward = GSTReturns::gstr1(library, periodOf(choice, library));
    const bool isSummary = choice.kind == ReportKind::summary;
    const std::string name = std::string(isSummary ? "GSTR3B_" : "GSTR1_") + outward.gstin +
                             (outward.gstin.empty() ? "" : "_") + GSTReturns::periodCode(outward.period) + ".json";
    return {name,
            isSummary ? GSTReturns::uploadText(GSTReturns::gstr3b(library, outward)) : GSTReturns::uploadText(outward)};
}

std::string fileNameOf(const ReportChoice& choice, const Library& library) {
    std::string name(title(choice.kind));
    if (spansOf(choice.kind).empty()) return name;
    const int start = yearStartOf(choice.kind, library);
    if (choice.span == Span::year) return name + " " + choice.day.financialYear(start).label();
    const Period period = periodOf(choice, library);
    return name + " " +
           (choice.span == Span::month ? period.from.monthKey()
                                       : period.from.monthKey() + " to " + period.to.monthKey());
}

}  // namespace tamba
