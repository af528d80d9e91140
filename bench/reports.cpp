// Reports over large books, against one pass of DocMath::totals over their invoices, in interleaved pairs:
//   months   twelve months of income and spending     at most 3 passes
//   aging    what is owed, by days past due           at most 1.5 passes
//   GSTR-1   the return of a month                    less than either
//   bench_reports [PAIRS]
#include "TambaCore/Reports/Reports.h"

#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Reports/GSTReturns.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

namespace {

using namespace tamba;

double milliseconds(const std::function<std::int64_t()>& work, std::int64_t& sink) {
    const auto begin = std::chrono::steady_clock::now();
    sink ^= work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// The books with every date moved into one year, so that no report can pass most of them over.
Library inOneYear(Library library, const FinancialYear& year) {
    const auto moved = [&year](const Day& day) { return year.start().addingDays(day.number() % 365); };
    for (std::size_t i = 0; i < library.expenses.size(); ++i)
        library.expenses.update(i, [&](Expense& expense) { expense.date = moved(expense.date); });
    for (std::size_t i = 0; i < library.documents.size(); ++i)
        library.documents.update(i, [&](Document& document) {
            document.issueDate = moved(document.issueDate);
            document.dueDate = moved(document.dueDate);
            for (Payment& payment : document.payments) payment.date = moved(payment.date);
        });
    return library;
}

}  // namespace

int main(int argc, char** argv) {
    const int pairs = argc > 1 ? std::atoi(argv[1]) : 15;
    const FinancialYear year{2026, 4};
    const Period october = Period::month({2026, 10, 1});
    const Reports reports{inOneYear(Fixtures::large(50'000, 20'000, 0, {2026, 11, 20}), year), {2026, 11, 20}};
    const struct {
        const char* name;
        double bar;  ///< in passes; 0: less than each of those before
        std::function<std::int64_t()> work;
    } cases[] = {
        {"months, by invoice", 3, [&] { return reports.months(IncomeBasis::accrual, year).back().income; }},
        {"months, by payment", 3, [&] { return reports.months(IncomeBasis::cash, year).back().income; }},
        {"aging", 1.5, [&] { return reports.aging().back().amount; }},
        {"GSTR-1 of a month", 0,
         [&] { return static_cast<std::int64_t>(GSTReturns::gstr1(reports.lib, october).hsnB2C.size()); }},
    };
    const auto floor = [&] {
        std::int64_t sum = 0;
        for (const Document& document : reports.lib.documents) sum += DocMath::totals(document).total;
        return sum;
    };
    std::int64_t sink = 0;
    bool withinBars = true;
    double least = 1e9;
    for (const auto& [name, bar, work] : cases) {
        std::vector<double> ours, theirs, ratio;
        for (int i = 0; i < pairs; ++i) {
            ours.push_back(milliseconds(work, sink));
            theirs.push_back(milliseconds(floor, sink));
            ratio.push_back(ours.back() / theirs.back());
        }
        const double limit = bar > 0 ? bar : least;
        least = std::min(least, median(ratio));
        std::printf("%-20s %7.1f ms  floor %7.1f ms  ratio %.2f (bar %.2f)\n", name, median(ours), median(theirs),
                    median(ratio), limit);
        withinBars = withinBars && median(ratio) <= limit;
    }
    std::printf("checked %lld\n", static_cast<long long>(sink));
    return withinBars ? 0 : 1;
}
