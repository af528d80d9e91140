#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"
#include "TambaCore/Reports/Reports.h"

#include <cstddef>
#include <string>
#include <vector>

/// The records behind a figure of a report, as finished texts. Pure.
namespace tamba {

/// Which records, and what each gives to the figure.
struct ReportRecords {
    /// Taxable value or cost; what is still owed; tax deducted at source in `period`; the supply or the tax that a
    /// return asks for; the record's own amount in its own currency, for what is in no figure.
    enum class Measure { income, balance, deducted, tax, own };
    std::string title;  ///< "October 2026 · Income"
    std::vector<UUID> documentIDs, expenseIDs;
    Measure measure = Measure::income;
    IncomeBasis basis = IncomeBasis::accrual;
    Period period;       ///< of the payments, on the cash basis and for tax deducted
    bool addsUp = true;  ///< what the records give is the whole figure

    [[nodiscard]] std::size_t size() const { return documentIDs.size() + expenseIDs.size(); }
    bool operator==(const ReportRecords&) const = default;
};

struct RecordRow {
    UUID id;
    bool isDocument = false;
    Day day;
    std::string date, who, what, amount;  ///< `what`: "INV/26-27/007", "Software"

    bool operator==(const RecordRow&) const = default;
};
struct RecordTable {
    std::vector<RecordRow> rows;  ///< the latest first; what is no longer in the books is in none
    std::string count, sum;       ///< "3 documents · 1 expense"; the sum is empty where nothing adds up
};
[[nodiscard]] RecordTable recordTable(const Library& library, const ReportRecords& records);

}  // namespace tamba
