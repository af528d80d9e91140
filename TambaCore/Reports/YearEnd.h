#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Pages/InvoicePDF.h"
#include "TambaCore/Pages/SummaryPDF.h"
#include "TambaCore/Reports/BookTables.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

/// What stands in the year-end bundle: names and how their bytes are made. Nothing here touches the disk;
/// `Export::yearEnd` writes it. What is owed stands as of the year's last day, or of today while the year is not over.
namespace tamba::YearEnd {

/// Paths, as attachments have them, of receipts that could not be copied: the tables and the summary tell of them.
using Missing = std::set<std::string>;

struct Receipt {
    std::string path;  ///< in the books
    std::string name;  ///< in the bundle: "Receipts/2026-10-14 Chai Point.jpg"
    std::string what;  ///< "2026-10-14 Chai Point, ₹118.00"
};
struct File {
    std::string name;  ///< "/" between folders
    std::function<std::string(const Missing&)> bytes;
};
struct Bundle {
    std::string name;  ///< of its folder: "Studio Tamarind 2026-27"
    std::vector<Receipt> receipts;
    std::vector<File> files;
};
/// `logo`: as `ImageFile::load` gives it. The files keep what they need of the books.
[[nodiscard]] Bundle plan(const Library& library, const FinancialYear& year, Day today,
                          const std::optional<Image>& logo);

/// The day whose evening the bundle shows.
[[nodiscard]] Day closing(const FinancialYear& year, Day today);
/// The first page an accountant opens. `books` as of `closing`.
[[nodiscard]] SummaryPDF::Sheet summary(const Library& books, const FinancialYear& year, Day today,
                                        const std::vector<Receipt>& receipts, const Missing& missing);
/// The same for people without a PDF reader, with all notes.
[[nodiscard]] std::string text(const SummaryPDF::Sheet& sheet);

/// The GST returns of the year: the offline tool's sheets by month, and tables with the taxes by month. Under the
/// composition scheme the turnover by quarter. A year in which the scheme changed has both.
[[nodiscard]] std::vector<File> gstFiles(const Library& books, const FinancialYear& year);
/// What the year's returns are made of: the documents of the regular scheme, as if it had held all year, and the bills
/// of supply of the composition scheme. Without documents where the year has none of that kind.
struct Schemes {
    std::optional<Library> regular, composition;
};
[[nodiscard]] Schemes schemes(const Library& books, const FinancialYear& year);

}  // namespace tamba::YearEnd
