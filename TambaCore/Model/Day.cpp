#include "TambaCore/Model/Day.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"

#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>
#include <limits>
#include <map>
#include <memory>
#include <mutex>

namespace tamba {
namespace {

constexpr std::int64_t secondsPerDay = 86'400;

bool isLeap(std::int64_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

std::int64_t floorDiv(std::int64_t a, std::int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }

/// Days from the first day of the year 1 to the first day of `year`.
std::int64_t daysBefore(std::int64_t year) {
    const std::int64_t past = year - 1;
    return past * 365 + floorDiv(past, 4) - floorDiv(past, 100) + floorDiv(past, 400);
}

constexpr std::int64_t epochDays = 719'162;  // daysBefore(1970)

std::string twoDigits(std::int64_t value) {
    const std::string text = std::to_string(value);
    return text.size() < 2 ? "0" + text : text;
}

std::optional<int> wholeNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) return {};
    return value;
}

std::tm localTime(std::time_t time) {
    std::tm parts{};
    localtime_r(&time, &parts);
    return parts;
}

}  // namespace

Day Day::today() { return of(now()); }

Day Day::of(Instant instant) {
    const std::tm parts = localTime(std::chrono::system_clock::to_time_t(instant));
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday};
}

std::optional<Day> Day::iso(std::string_view text) {
    // As the books have it, without taking it to pieces.
    const auto isDigit = [&text](std::size_t i) { return text[i] >= '0' && text[i] <= '9'; };
    if (text.size() == 10 && text[4] == '-' && text[7] == '-' && isDigit(0) && isDigit(1) && isDigit(2) && isDigit(3) &&
        isDigit(5) && isDigit(6) && isDigit(8) && isDigit(9)) {
        const auto number = [&text](std::size_t at) { return (text[at] - '0') * 10 + text[at + 1] - '0'; };
        return valid(number(0) * 100 + number(2), number(5), number(8));
    }
    std::vector<int> numbers;
    for (const std::string& piece : Text::split(Text::prefix(text, 10), '-'))
        if (const auto number = wholeNumber(piece)) numbers.push_back(*number);
    if (numbers.size() != 3) return {};
    return valid(numbers[0], numbers[1], numbers[2]);
}

std::optional<Day> Day::valid(int year, int month, int day) {
    if (month < 1 || month > 12 || day < 1 || day > daysIn(year, month)) return {};
    return Day{year, month, day};
}

int Day::daysIn(int year, int month) {
    if (month == 2) return isLeap(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

Day Day::fromNumber(std::int64_t number) {
    constexpr std::int64_t farthest = std::int64_t{std::numeric_limits<int>::max()} * 365 - epochDays;
    if (number > farthest || number < -farthest) fatal("day out of range");
    const std::int64_t days = number + epochDays;
    // 400 years have 146,097 days, so this is the year or one beside it.
    std::int64_t year = floorDiv(days, 146'097) * 400 + (days - floorDiv(days, 146'097) * 146'097) * 400 / 146'097 + 1;
    while (daysBefore(year) > days) --year;
    while (daysBefore(year + 1) <= days) ++year;
    std::int64_t rest = days - daysBefore(year);
    Day day{static_cast<int>(year), 1, 1};
    while (rest >= daysIn(day.y, day.m)) rest -= daysIn(day.y, day.m++);
    day.d = static_cast<int>(rest) + 1;
    return day;
}

std::int64_t Day::number() const {
    std::int64_t days = daysBefore(y) - epochDays + d - 1;
    for (int month = 1; month < m; ++month) days += daysIn(y, month);
    return days;
}

std::string Day::iso() const { return monthKey() + "-" + twoDigits(d); }

std::string Day::monthKey() const { return std::to_string(y) + "-" + twoDigits(m); }

Instant Day::date() const {
    std::tm parts{};
    parts.tm_year = y - 1900;
    parts.tm_mon = m - 1;
    parts.tm_mday = d;
    parts.tm_hour = 12;
    parts.tm_isdst = -1;
    // −1 is also a valid time (1969-12-31T23:59:59Z); the week day is set only where the conversion worked.
    parts.tm_wday = -1;
    const std::time_t time = std::mktime(&parts);
    return parts.tm_wday < 0 ? now() : Instant(std::chrono::seconds(time));
}

Day Day::addingDays(std::int64_t n) const { return fromNumber(Checked::add(number(), n)); }

Day Day::addingMonths(std::int64_t n) const {
    const std::int64_t last = std::int64_t{std::numeric_limits<int>::max()} * 12 + 11;
    const std::int64_t mine = std::int64_t{y} * 12 + m - 1;
    const std::int64_t index = std::clamp<std::int64_t>(mine + std::clamp(n, -2 * last, 2 * last), 0, last);
    const int year = static_cast<int>(index / 12);
    const int month = static_cast<int>(index % 12) + 1;
    return {year, month, std::min(d, daysIn(year, month))};
}

std::int64_t Day::daysUntil(const Day& other) const { return other.number() - number(); }

Day Day::firstOfMonth() const { return {y, m, 1}; }

Day Day::lastOfMonth() const { return {y, m, daysIn(y, m)}; }

std::string Day::formatted(std::string_view pattern) const {
    static std::mutex mutex;
    static std::map<std::string, std::unique_ptr<icu::SimpleDateFormat>, std::less<>> formatters;
    const std::lock_guard lock(mutex);
    auto entry = formatters.find(pattern);
    if (entry == formatters.end()) {
        UErrorCode status = U_ZERO_ERROR;
        const icu::Locale british("en_GB");
        auto formatter = std::make_unique<icu::SimpleDateFormat>(
            icu::UnicodeString::fromUTF8({pattern.data(), static_cast<std::int32_t>(pattern.size())}), british, status);
        auto calendar = std::make_unique<icu::GregorianCalendar>(*icu::TimeZone::getGMT(), british, status);
        // No Julian dates: the calendar of the books is Gregorian before 1582 too.
        calendar->setGregorianChange(-8.64e15, status);
        if (U_FAILURE(status)) fatal("bad date pattern");
        formatter->adoptCalendar(calendar.release());
        entry = formatters.emplace(pattern, std::move(formatter)).first;
    }
    const double noon = static_cast<double>(number() * secondsPerDay + secondsPerDay / 2) * 1000;
    icu::UnicodeString text;
    entry->second->format(noon, text);
    std::string result;
    text.toUTF8String(result);
    return result;
}

FinancialYear Day::financialYear(int startMonth) const {
    // A file may say anything; the days of month 2,147,483,647 would never be counted to their end.
    if (startMonth < 1 || startMonth > 12) startMonth = FinancialYear{}.startMonth;
    return {m >= startMonth ? y : y - 1, startMonth};
}

Day FinancialYear::start() const { return {startYear, startMonth, 1}; }

Day FinancialYear::end() const { return start().addingMonths(12).addingDays(-1); }

bool FinancialYear::contains(const Day& day) const { return start() <= day && day <= end(); }

FinancialYear FinancialYear::previous() const { return {startYear - 1, startMonth}; }

FinancialYear FinancialYear::next() const { return {startYear + 1, startMonth}; }

std::vector<Day> FinancialYear::months() const {
    std::vector<Day> result;
    for (int i = 0; i < 12; ++i) result.push_back(start().addingMonths(i));
    return result;
}

std::string FinancialYear::label() const {
    const std::string year = std::to_string(startYear);
    return startMonth == 1 ? year : year + "-" + twoDigits((startYear + 1) % 100);
}

std::string FinancialYear::shortLabel() const {
    if (startMonth == 1) return std::to_string(startYear);
    return twoDigits(startYear % 100) + "-" + twoDigits((startYear + 1) % 100);
}

std::string instantText(Instant instant) {
    const std::int64_t seconds = instant.time_since_epoch().count();
    const std::int64_t days = floorDiv(seconds, secondsPerDay);
    const std::int64_t rest = seconds - days * secondsPerDay;
    return Day::fromNumber(days).iso() + "T" + twoDigits(rest / 3600) + ":" + twoDigits(rest / 60 % 60) + ":" +
           twoDigits(rest % 60) + "Z";
}

std::optional<Instant> parseInstant(std::string_view text) {
    // 2026-04-01T09:30:00 and then Z or +05:30
    constexpr std::string_view shape = "0000-00-00T00:00:00";
    const auto fits = [](std::string_view given, std::string_view form) {
        return std::equal(given.begin(), given.end(), form.begin(), form.end(),
                          [](char c, char f) { return f == '0' ? c >= '0' && c <= '9' : c == f; });
    };
    const auto number = [&text](std::size_t at, std::size_t count) {
        return wholeNumber(text.substr(at, count)).value();
    };
    if (!fits(text.substr(0, shape.size()), shape)) return {};
    const auto day = Day::valid(number(0, 4), number(5, 2), number(8, 2));
    const int hour = number(11, 2), minute = number(14, 2), second = number(17, 2);
    if (!day || hour > 23 || minute > 59 || second > 59) return {};
    std::int64_t seconds = day->number() * secondsPerDay + hour * 3600 + minute * 60 + second;
    const std::string_view zone = text.substr(shape.size());
    if (zone != "Z") {
        if (!fits(zone, "+00:00") && !fits(zone, "-00:00")) return {};
        const int hours = number(shape.size() + 1, 2), minutes = number(shape.size() + 4, 2);
        if (hours > 23 || minutes > 59) return {};
        const int offset = hours * 3600 + minutes * 60;
        seconds -= zone.front() == '+' ? offset : -offset;
    }
    return Instant(std::chrono::seconds(seconds));
}

Instant now() { return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()); }

}  // namespace tamba
