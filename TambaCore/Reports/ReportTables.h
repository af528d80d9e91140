#pragma once

#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/Reports.h"
#include "TambaCore/Reports/Table.h"

#include <vector>

/// Every report as a table, for screens, paper, the clipboard and files alike. Amounts in the home currency.
namespace tamba::ReportTables {

/// Month, income, spending, profit, with the year's sum.
[[nodiscard]] Table profit(const Reports& reports, IncomeBasis basis, const FinancialYear& year);
/// Category, expenses, amount, share.
[[nodiscard]] Table spending(const Reports& reports, const Period& period);
/// Client, documents, invoiced.
[[nodiscard]] Table clients(const Reports& reports, const Period& period);
/// The five ages with their sum.
[[nodiscard]] Table aging(const Reports& reports);
/// Each invoice with a balance, by due date: number, client, date, due, days late, total, balance.
[[nodiscard]] Table owed(const Reports& reports);
/// Each deduction with its certificate's quarter; then by client and quarter.
[[nodiscard]] Table tdsDeductions(const Library& library, int startYear);
[[nodiscard]] Table tdsClients(const Library& library, int startYear);
[[nodiscard]] Table inputTax(const Library& library, const FinancialYear& year);
[[nodiscard]] Table mileage(const Library& library, const FinancialYear& year);
[[nodiscard]] Table projects(const Library& library, const Period& period);

/// GSTR-1 as people read it, one table for each section that is not empty, with the tax columns.
[[nodiscard]] std::vector<Table> gstr1(const Library& library, const GSTReturns::GSTR1& outward);
/// The check sheet: outward rows (3.1), inter-state to consumers (3.2), input tax (4) and how the tax is paid (6.1).
[[nodiscard]] std::vector<Table> gstr3b(const Library& library, const GSTReturns::GSTR3B& summary);
[[nodiscard]] Table composition(const Library& library, const GSTReturns::Composition& turnover);

/// A section of GSTR-1 in the layout that the government's offline tool imports, by the tool's file name.
struct Section {
    std::string fileName;  ///< "b2b,sez,de.csv"
    CSV csv;
};
[[nodiscard]] std::vector<Section> gstr1Sections(const GSTReturns::GSTR1& outward);

}  // namespace tamba::ReportTables
