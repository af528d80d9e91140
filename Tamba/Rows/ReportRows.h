#pragma once

#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/Rows/RecordRows.h"
#include "TambaCore/Reports/Reports.h"
#include "TambaCore/Reports/Table.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the Reports screen shows: pages of tables, bars and remarks, and the records behind each figure. Pure: the
/// books, what is chosen and today in, finished texts out.
namespace tamba {

enum class ReportKind {
    profit,
    spending,
    clients,
    owed,
    outward,
    summary,
    composition,
    tds,
    inputTax,
    mileage,
    projects,
    yearEnd
};
/// Those that mean something to this business, in the order of the screen.
[[nodiscard]] std::vector<ReportKind> reportsFor(const Business& business);
[[nodiscard]] std::string_view title(ReportKind kind);
/// Name of the glyph beside it.
[[nodiscard]] std::string_view icon(ReportKind kind);

/// What a report can be of; empty for what is owed, which is always as of today.
[[nodiscard]] std::vector<Span> spansOf(ReportKind kind);
/// First month of its year: April for tax whatever the business's own year is.
[[nodiscard]] int yearStartOf(ReportKind kind, const Library& library);

struct ReportChoice {
    ReportKind kind = ReportKind::profit;
    Span span = Span::year;
    Day day;  ///< any of the span
    IncomeBasis basis = IncomeBasis::accrual;
    int compositionBP = 600;

    bool operator==(const ReportChoice&) const = default;
};
/// What people look at first: this year, for returns the month that has ended last.
[[nodiscard]] ReportChoice firstChoice(ReportKind kind, Day today);
[[nodiscard]] Period periodOf(const ReportChoice& choice, const Library& library);

/// A bar across the page.
struct ShareBar {
    std::string label, figure;  ///< "Software", "₹1,20,000.00"
    std::string colorHex;       ///< of a category; empty: by `tone`
    Tone tone = Tone::none;
    std::int64_t amount = 0;
    ReportRecords records;

    bool operator==(const ShareBar&) const = default;
};

/// A sentence with the records it is about.
struct ReportRemark {
    Tone tone = Tone::warning;  ///< `danger`: will be refused
    std::string sentence;
    ReportRecords records;
    std::string note = {};  ///< of a table, in English, that says the same
    std::size_t lines = 0;  ///< how many open bank lines it speaks of

    bool operator==(const ReportRemark&) const = default;
};

struct ReportPage {
    ReportChoice choice;
    Period period;
    std::vector<Table> tables;
    std::vector<MonthRow> months;  ///< for the chart of a year
    std::vector<ShareBar> shares;
    std::vector<ReportRemark> remarks;  ///< what will be refused first
    std::string advice;                 ///< how far the figures can be trusted
    bool empty = false;                 ///< nothing happened in this time

    bool operator==(const ReportPage&) const = default;
};
[[nodiscard]] ReportPage reportPage(const Library& library, const ReportChoice& choice, Day today);

/// The cell for people, fixed words in the language of the windows; empty where the row is shorter.
[[nodiscard]] std::string cellText(const Table& table, std::size_t row, std::size_t column);
/// The records behind a cell; for a sum, those of the rows that it sums up. None where nothing made the figure.
[[nodiscard]] ReportRecords recordsOf(const ReportPage& page, const Table& table, std::size_t row, std::size_t column);
/// Those behind a bar of the chart. `series` 0: income, 1: spending.
[[nodiscard]] ReportRecords recordsOf(const ReportPage& page, std::size_t month, std::size_t series);

/// What stands in the way of a year-end bundle the accountant can use, each with its records.
[[nodiscard]] std::vector<ReportRemark> yearEndRemarks(const Library& library, const FinancialYear& year, Day today);

/// The file of the GST portal for this page's period, and its name.
struct PortalFile {
    std::string name, bytes;
};
[[nodiscard]] PortalFile portalFile(const Library& library, const ReportChoice& choice);

/// A name for a report's file, without ending: "Profit and loss 2026-27".
[[nodiscard]] std::string fileNameOf(const ReportChoice& choice, const Library& library);

}  // namespace tamba
