#pragma once

#include <chrono>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamba {

/// A point in time with whole seconds; 2026-04-01T09:30:00Z in the books.
using Instant = std::chrono::sys_seconds;

struct FinancialYear;

/// A calendar date of the proleptic Gregorian calendar: no time, no zone. Arithmetic counts days, never hours, so that
/// no clock change can move a date.
struct Day {
    int y = 1970;
    int m = 1;
    int d = 1;

    /// Today by the machine's clock and time zone. Only for the edges of the program; operations take a day.
    [[nodiscard]] static Day today();
    /// The day a point in time falls on in the machine's time zone.
    [[nodiscard]] static Day of(Instant instant);
    /// Reads the first ten characters as year-month-day: 2026-04-01T10:00:00Z is 1 April 2026, 2026-4-1 too; 2026-02-30
    /// gives nothing. Years are taken as written.
    [[nodiscard]] static std::optional<Day> iso(std::string_view text);
    /// A day that exists, or nothing.
    [[nodiscard]] static std::optional<Day> valid(int year, int month, int day);
    [[nodiscard]] static int daysIn(int year, int month);
    /// The day of a number of days since 1970-01-01, and back.
    [[nodiscard]] static Day fromNumber(std::int64_t number);
    [[nodiscard]] std::int64_t number() const;

    [[nodiscard]] std::string iso() const;       ///< 2026-04-01
    [[nodiscard]] std::string monthKey() const;  ///< 2026-04
    /// Noon of the day in the machine's time zone, which no clock change can push to another day.
    [[nodiscard]] Instant date() const;

    [[nodiscard]] Day addingDays(std::int64_t n) const;
    /// Same day of the month n months on, or that month's last day. Never fails; stops at the year 0.
    [[nodiscard]] Day addingMonths(std::int64_t n) const;
    /// Whole days from this day to the other; negative when the other is earlier.
    [[nodiscard]] std::int64_t daysUntil(const Day& other) const;
    [[nodiscard]] Day firstOfMonth() const;
    [[nodiscard]] Day lastOfMonth() const;

    /// Printed with a Unicode (UTS #35) date pattern in British English: "d MMM yyyy" gives 1 Apr 2026 and 1 Sept 2026.
    [[nodiscard]] std::string formatted(std::string_view pattern) const;
    /// The financial year, starting in month 1–12, that holds the day.
    [[nodiscard]] FinancialYear financialYear(int startMonth) const;

    auto operator<=>(const Day&) const = default;
};

/// Twelve months from the first of `startMonth`; April in India. Order compares the start year only.
struct FinancialYear {
    int startYear = 1970;
    int startMonth = 4;

    [[nodiscard]] Day start() const;
    [[nodiscard]] Day end() const;
    [[nodiscard]] bool contains(const Day& day) const;
    [[nodiscard]] FinancialYear previous() const;
    [[nodiscard]] FinancialYear next() const;
    /// The twelve first days of its months.
    [[nodiscard]] std::vector<Day> months() const;
    /// "2026-27"; "2026" when it starts in January. Also its identity.
    [[nodiscard]] std::string label() const;
    [[nodiscard]] std::string id() const { return label(); }
    /// "26-27"; "2026" when it starts in January: the `{FY}` of number series.
    [[nodiscard]] std::string shortLabel() const;

    bool operator==(const FinancialYear&) const = default;
    std::strong_ordering operator<=>(const FinancialYear& other) const { return startYear <=> other.startYear; }
};

/// RFC 3339 in UTC without fractions, as the books write points in time.
[[nodiscard]] std::string instantText(Instant instant);
/// Reads that form; an offset such as +05:30 is accepted and converted. Anything else gives nothing.
[[nodiscard]] std::optional<Instant> parseInstant(std::string_view text);
/// Now, in whole seconds. Only for the edges of the program.
[[nodiscard]] Instant now();

}  // namespace tamba

template <>
struct std::hash<tamba::Day> {
    std::size_t operator()(const tamba::Day& day) const noexcept {
        return (static_cast<std::size_t>(day.y) * 16 + static_cast<std::size_t>(day.m)) * 32 +
               static_cast<std::size_t>(day.d);
    }
};
