#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/ReportTables.h"
#include "TambaCore/Reports/TableParts.h"
#include "TambaCore/Reports/YearEnd.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace tamba::YearEnd {
namespace {

using namespace TableParts;

File file(std::string name, const CSV& csv) {
    return {std::move(name), [bytes = csv.bytes()](const Missing&) { return bytes; }};
}

bool isTaxed(const Document& document) {
    return document.supply != SupplyType::simple && document.supply != SupplyType::noTax;
}

Library onlyDocuments(Library library, const std::function<bool(const Document&)>& fits) {
    List<Document> kept;
    for (std::size_t i = 0; i < library.documents.size(); ++i)
        if (fits(library.documents[i])) kept.append(library.documents.at(i));
    library.documents = std::move(kept);
    return library;
}

/// The tables of GSTR-1 that people read, of all months, each with a column for the month.
class ByMonth {
public:
    void add(const Day& month, const std::vector<Table>& tables) {
        for (const Table& one : tables) {
            auto found = std::find_if(all_.begin(), all_.end(), [&](const Table& t) { return t.title == one.title; });
            if (found == all_.end()) {
                found = all_.insert(all_.end(), one);
                found->rows.clear();
                found->columns.insert(found->columns.begin(), {"Month", Kind::month});
            }
            for (Table::Row row : one.rows) {
                row.cells.insert(row.cells.begin(), month);
                found->rows.push_back(std::move(row));
            }
        }
    }
    [[nodiscard]] const std::vector<Table>& all() const { return all_; }

private:
    std::vector<Table> all_;
};

void addRegular(std::vector<File>& files, const Library& library, const FinancialYear& year) {
    const Home home(library);
    ByMonth tables;
    Table summary;
    summary.columns = {{"Month", Kind::month}};
    for (const char* title :
         {"3.1(a) Taxable", "3.1(a) IGST", "3.1(a) CGST", "3.1(a) SGST", "3.1(b) Zero-rated", "3.1(b) IGST",
          "3.1(c) Nil-rated or exempt", "4(A)(5) IGST", "4(A)(5) CGST", "4(A)(5) SGST", "Tax on expenses not claimed"})
        summary.columns.push_back({title, Kind::amount});
    for (const Day& month : year.months()) {
        const auto outward = GSTReturns::gstr1(library, Period::month(month));
        for (const auto& section : ReportTables::gstr1Sections(outward))
            files.push_back(
                file("GST/GSTR-1 for the offline tool/" + month.monthKey() + "/" + section.fileName, section.csv));
        tables.add(month, ReportTables::gstr1(library, outward));
        const auto returned = GSTReturns::gstr3b(library, outward);
        Table::Row row;
        row.cells = {month};
        const TaxSplit& taxed = returned.taxed.tax;
        for (const std::int64_t amount :
             {returned.taxed.taxable, taxed.igst, taxed.cgst, taxed.sgst, returned.zeroRated.taxable,
              returned.zeroRated.tax.igst, returned.nilRated, returned.credit.igst, returned.credit.cgst,
              returned.credit.sgst, returned.notClaimed})
            row.cells.emplace_back(home(amount));
        summary.rows.push_back(std::move(row));
    }
    for (const Table& table : tables.all())
        files.push_back(file("GST/GSTR-1 " + table.title + ".csv", Tables::csv(table)));
    files.push_back(file("GST/GSTR-3B.csv", Tables::csv(summary)));
}

void addComposition(std::vector<File>& files, const Library& library, const FinancialYear& year) {
    const Home home(library);
    Table table;
    table.columns = {{"From", Kind::day}, {"To", Kind::day}, {"Documents", Kind::count}, {"Turnover", Kind::amount}};
    // The rate is the trade's own, which the books don't know: half is central tax, half the state's.
    constexpr std::array rates{100, 500, 600};
    for (const int rate : rates)
        for (const char* tax : {"CGST", "SGST"})
            table.columns.push_back({std::string(tax) + " at " + MoneyFormat::rate(rate), Kind::amount});
    for (Period quarter = Period::quarter(year.start(), 4); quarter.from <= year.end();
         quarter = Period::quarter(quarter.to.addingDays(1), 4)) {
        Table::Row row;
        const auto turnover = GSTReturns::composition(library, quarter);
        row.cells = {quarter.from, quarter.to, static_cast<std::int64_t>(turnover.documentIDs.size()),
                     home(turnover.turnover)};
        for (const int rate : rates) {
            const auto taxed = GSTReturns::composition(library, quarter, rate);
            row.cells.insert(row.cells.end(), {home(taxed.cgst), home(taxed.sgst)});
        }
        table.rows.push_back(std::move(row));
    }
    files.push_back(file("GST/Turnover by quarter.csv", Tables::csv(table)));
}

}  // namespace

Schemes schemes(const Library& books, const FinancialYear& year) {
    if (!isIndia(books.business.regime)) return {};
    const Period period = Period::fy(year);
    const auto has = [&](bool taxed) {
        return std::any_of(books.documents.begin(), books.documents.end(), [&](const Document& document) {
            return GSTFigures::counts(document) && period.contains(document.issueDate) && isTaxed(document) == taxed &&
                   document.supply != SupplyType::simple;
        });
    };
    const bool isRegular = books.business.regime == TaxRegime::gstIndia;
    Schemes result;
    if (isRegular || has(true)) {
        result.regular = isRegular ? books : onlyDocuments(books, isTaxed);
        result.regular->business.regime = TaxRegime::gstIndia;
    }
    if (!isRegular || has(false))
        result.composition = onlyDocuments(books, [](const Document& one) { return one.supply == SupplyType::noTax; });
    return result;
}

std::vector<File> gstFiles(const Library& books, const FinancialYear& year) {
    const auto [regular, composition] = schemes(books, year);
    std::vector<File> files;
    if (regular) addRegular(files, *regular, year);
    if (composition) addComposition(files, *composition, year);
    return files;
}

}  // namespace tamba::YearEnd
