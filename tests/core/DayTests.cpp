#include "TambaCore/Model/Day.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdlib>
#include <ctime>

namespace tamba {
namespace {

constexpr Day day(int y, int m, int d) { return {y, m, d}; }

/// Runs a test in one time zone and puts the old one back.
class InZone {
public:
    explicit InZone(const char* zone) : old_(std::getenv("TZ") ? std::getenv("TZ") : "") { set(zone); }
    ~InZone() { set(old_); }

private:
    static void set(const std::string& zone) {
        zone.empty() ? unsetenv("TZ") : setenv("TZ", zone.c_str(), 1);
        tzset();
    }
    std::string old_;
};

TEST(Day, readsTheISOForm) {
    for (const auto& row : testing::casesOf(TEST_DATA "/days.tsv")) {
        const auto day = Day::iso(row.at(0));
        EXPECT_EQ(day ? std::to_string(day->y) + " " + std::to_string(day->m) + " " + std::to_string(day->d) : "none",
                  row.at(1))
            << row[0];
    }
}

TEST(Day, countsAsTheCalendarDoes) {
    EXPECT_EQ(day(2024, 1, 31).addingMonths(1), day(2024, 2, 29));
    EXPECT_EQ(day(2023, 1, 31).addingMonths(1), day(2023, 2, 28));
    EXPECT_EQ(day(2026, 1, 15).addingMonths(-1), day(2025, 12, 15));
    EXPECT_EQ(day(2026, 3, 31).addingMonths(-13), day(2025, 2, 28));
    EXPECT_EQ(day(1, 5, 31).addingMonths(-100), day(0, 1, 31));
    EXPECT_EQ(day(2026, 1, 1).addingMonths(INT64_MIN), day(0, 1, 1));
    EXPECT_EQ(day(2026, 12, 31).addingDays(1), day(2027, 1, 1));
    EXPECT_EQ(day(2024, 3, 1).addingDays(-1), day(2024, 2, 29));
    EXPECT_EQ(day(1500, 2, 28).addingDays(1), day(1500, 3, 1));
    EXPECT_EQ(day(2026, 4, 1).daysUntil(day(2027, 4, 1)), 365);
    EXPECT_EQ(day(2026, 4, 1).daysUntil(day(2026, 3, 31)), -1);
    EXPECT_EQ(day(2026, 2, 9).lastOfMonth(), day(2026, 2, 28));
    EXPECT_EQ(day(2026, 2, 9).firstOfMonth(), day(2026, 2, 1));
    EXPECT_LT(day(2025, 12, 31), day(2026, 1, 1));
}

TEST(DayDeathTest, stopsWhereNoYearIs) {
    EXPECT_EQ(day(2'000'000'000, 12, 31).addingDays(1), day(2'000'000'001, 1, 1));
    EXPECT_DEATH((void)day(2026, 1, 1).addingDays(INT64_MAX - 30'000), "day out of range");
}

RC_GTEST_PROP(Day, countsDaysAsTheStandardLibraryDoes, ()) {
    const auto number = *rc::gen::inRange<std::int64_t>(-12'000'000, 11'000'000);
    const std::chrono::year_month_day expected{std::chrono::sys_days(std::chrono::days(number))};
    const Day day = Day::fromNumber(number);
    RC_ASSERT(day.y == static_cast<int>(expected.year()));
    RC_ASSERT(static_cast<unsigned>(day.m) == static_cast<unsigned>(expected.month()));
    RC_ASSERT(static_cast<unsigned>(day.d) == static_cast<unsigned>(expected.day()));
    RC_ASSERT(day.number() == number);
}

RC_GTEST_PROP(Day, printsWhatItReads, ()) {
    const Day day = Day::fromNumber(*rc::gen::inRange<std::int64_t>(-719'528, 2'932'896));
    RC_ASSERT(Day::iso(day.iso()) == day);
    RC_ASSERT(day.iso().starts_with(day.monthKey() + "-"));
}

TEST(Day, printsInBritishEnglish) {
    const struct {
        Day day;
        const char* pattern;
        const char* text;
    } cases[] = {
        {day(2026, 4, 1), "d MMM yyyy", "1 Apr 2026"},     {day(2026, 9, 1), "d MMM yyyy", "1 Sept 2026"},
        {day(2026, 9, 30), "MMMM yyyy", "September 2026"}, {day(2026, 10, 14), "EEEE d MMMM", "Wednesday 14 October"},
        {day(1500, 3, 1), "dd/MM/yyyy", "01/03/1500"},     {day(2026, 4, 1), "yyyy-MM-dd HH:mm", "2026-04-01 12:00"},
    };
    for (const auto& [d, pattern, text] : cases) EXPECT_EQ(d.formatted(pattern), text);
    EXPECT_EQ(day(2026, 4, 1).iso(), "2026-04-01");
    EXPECT_EQ(day(2026, 4, 1).monthKey(), "2026-04");
}

TEST(Day, isAtNoonWhereTheMachineIs) {
    const struct {
        const char* zone;
        Day day;
        const char* instant;
    } cases[] = {
        {"Asia/Kolkata", day(2026, 4, 1), "2026-04-01T06:30:00Z"},
        {"UTC", day(1970, 1, 1), "1970-01-01T12:00:00Z"},
        {"America/New_York", day(2026, 3, 8), "2026-03-08T16:00:00Z"},  // clocks go forward that night
        {"Pacific/Kiritimati", day(2026, 4, 1), "2026-03-31T22:00:00Z"},
    };
    for (const auto& [zone, d, instant] : cases) {
        const InZone inZone(zone);
        EXPECT_EQ(instantText(d.date()), instant) << zone;
    }
}

TEST(FinancialYear, holdsItsDays) {
    const FinancialYear year = day(2027, 3, 31).financialYear(4);
    EXPECT_EQ(year, (FinancialYear{2026, 4}));
    EXPECT_EQ(year.start(), day(2026, 4, 1));
    EXPECT_EQ(year.end(), day(2027, 3, 31));
    EXPECT_TRUE(year.contains(day(2026, 4, 1)) && year.contains(day(2027, 3, 31)));
    EXPECT_FALSE(year.contains(day(2026, 3, 31)) || year.contains(day(2027, 4, 1)));
    EXPECT_EQ(day(2027, 4, 1).financialYear(4), year.next());
    EXPECT_EQ(year.next().previous(), year);
    EXPECT_EQ(year.months().size(), 12u);
    EXPECT_EQ(year.months().front(), day(2026, 4, 1));
    EXPECT_EQ(year.months().back(), day(2027, 3, 1));
    EXPECT_EQ((FinancialYear{2024, 3}).end(), day(2025, 2, 28));
}

TEST(FinancialYear, isNamedByItsYears) {
    const struct {
        FinancialYear year;
        const char* label;
        const char* shortLabel;
    } cases[] = {
        {{2026, 4}, "2026-27", "26-27"},
        {{2027, 1}, "2027", "2027"},
        {{1999, 7}, "1999-00", "99-00"},
        {{2009, 4}, "2009-10", "09-10"},
    };
    for (const auto& [year, label, shortLabel] : cases) {
        EXPECT_EQ(year.label(), label);
        EXPECT_EQ(year.shortLabel(), shortLabel);
    }
}

TEST(Instant, readsWhatItWritesAndOffsets) {
    EXPECT_EQ(instantText(*parseInstant("2026-04-01T09:30:00Z")), "2026-04-01T09:30:00Z");
    EXPECT_EQ(instantText(*parseInstant("2026-04-01T04:30:00+05:30")), "2026-03-31T23:00:00Z");
    EXPECT_EQ(instantText(*parseInstant("2026-04-01T22:30:00-05:00")), "2026-04-02T03:30:00Z");
    EXPECT_EQ(instantText(*parseInstant("1969-12-31T23:59:59Z")), "1969-12-31T23:59:59Z");
    for (const char* text :
         {"", "2026-04-01", "2026-04-01T09:30:00", "2026-02-30T09:30:00Z", "2026-04-01T24:00:00Z",
          "2026-04-01T09:60:00Z", "2026-04-01 09:30:00Z", "2026-04-01T09:30:00.5Z", "2026-04-01T09:30:00+0530",
          "2026-04-01T09:30:00+05:3", "2026-04-01T09:30:00ZZ", "+026-04-01T09:30:00Z"})
        EXPECT_EQ(parseInstant(text), std::nullopt) << text;
}

}  // namespace
}  // namespace tamba
