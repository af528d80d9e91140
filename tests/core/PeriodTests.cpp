#include "TambaCore/Model/Period.h"

#include <utility>

namespace tamba {
namespace {

TEST(Period, coversYearsMonthsAndQuarters) {
    const struct {
        Period period;
        std::string_view from, to, label;
    } cases[] = {
        {Period::fy({2025, 4}), "2025-04-01", "2026-03-31", "1 Apr 2025 – 31 Mar 2026"},
        {Period::fy({2025, 1}), "2025-01-01", "2025-12-31", "1 Jan 2025 – 31 Dec 2025"},
        {Period::month({2025, 4, 17}), "2025-04-01", "2025-04-30", "April 2025"},
        {Period::month({2024, 2, 29}), "2024-02-01", "2024-02-29", "February 2024"},
        {Period::quarter({2026, 2, 15}, 4), "2026-01-01", "2026-03-31", "1 Jan 2026 – 31 Mar 2026"},
        {Period::quarter({2026, 4, 1}, 4), "2026-04-01", "2026-06-30", "1 Apr 2026 – 30 Jun 2026"},
        {Period::quarter({2026, 1, 31}, 12), "2025-12-01", "2026-02-28", "1 Dec 2025 – 28 Feb 2026"},
        {Period::quarter({2026, 1, 31}, 2), "2025-11-01", "2026-01-31", "1 Nov 2025 – 31 Jan 2026"},
        // A year that begins in no month begins in April.
        {Period::fy(Day{2026, 2, 15}.financialYear(2'147'483'647)), "2025-04-01", "2026-03-31",
         "1 Apr 2025 – 31 Mar 2026"},
        {Period::quarter({2026, 2, 15}, -2'147'483'647), "2026-01-01", "2026-03-31", "1 Jan 2026 – 31 Mar 2026"},
        {{{2026, 9, 1}, {2026, 9, 29}}, "2026-09-01", "2026-09-29", "1 Sept 2026 – 29 Sept 2026"},
    };
    for (const auto& [period, from, to, label] : cases) {
        EXPECT_EQ(period.from.iso(), from) << label;
        EXPECT_EQ(period.to.iso(), to) << label;
        EXPECT_EQ(period.label(), label);
        EXPECT_TRUE(period.contains(period.from) && period.contains(period.to)) << label;
        EXPECT_FALSE(period.contains(period.from.addingDays(-1)) || period.contains(period.to.addingDays(1))) << label;
    }
}

TEST(Period, quartersHoldTheirDayAndFillTheYear) {
    for (int start = 1; start <= 12; ++start) {
        const FinancialYear year{2026, start};
        Day next = year.start();
        for (const Day& month : year.months()) {
            const Period quarter = Period::quarter(month.addingDays(14), start);
            EXPECT_TRUE(quarter.contains(month)) << start;
            if (quarter.from != month) continue;
            EXPECT_EQ(std::exchange(next, quarter.to.addingDays(1)), month) << start;
        }
        EXPECT_EQ(next, year.next().start()) << start;
    }
}

}  // namespace
}  // namespace tamba
