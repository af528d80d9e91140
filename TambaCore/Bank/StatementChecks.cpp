#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Check.h"

#include <algorithm>
#include <array>

namespace tamba::BankImport {
namespace {

constexpr std::array orders{DateOrder::dmy, DateOrder::mdy, DateOrder::ymd};

/// How a file's dates come out in one order.
struct Trial {
    std::size_t impossible = 0;
    bool oneDirection = true;
    std::optional<Day> first, last;
    [[nodiscard]] std::int64_t days() const { return first ? first->daysUntil(*last) : 0; }
};

Trial attempt(const std::vector<DateCell>& dates, DateOrder order) {
    Trial trial;
    bool rises = false, falls = false;
    std::optional<Day> last;
    for (const DateCell& cell : dates) {
        if (cell.kind == DateCell::Kind::none) continue;
        const auto day = cell.in(order);
        if (!day) {
            ++trial.impossible;
            continue;
        }
        if (last) {
            rises = rises || *day > *last;
            falls = falls || *day < *last;
        }
        last = day;
        if (!trial.first || *day < *trial.first) trial.first = day;
        if (!trial.last || *day > *trial.last) trial.last = day;
    }
    trial.oneDirection = !(rises && falls);
    return trial;
}

/// A spreadsheet program that expects the month first turns 04/03/2026 into a date of its own, the wrong one, and
/// leaves 13/04/2026 as text.
bool looksSwapped(const std::vector<DateCell>& dates) {
    bool any = false;
    for (const DateCell& cell : dates) {
        if (cell.kind == DateCell::Kind::fixed && cell.day.d > 12) return false;
        if (cell.kind == DateCell::Kind::numeric && cell.day.y <= 12) return false;
        any = any || cell.kind == DateCell::Kind::fixed;
    }
    return any;
}

}  // namespace

std::string_view words(DateOrder order) {
    switch (order) {
        case DateOrder::dmy:
            return "day, month, year";
        case DateOrder::mdy:
            return "month, day, year";
        case DateOrder::ymd:
            return "year, month, day";
    }
    fatal("unknown order of dates");
}

ChosenOrder chooseOrder(const std::vector<DateCell>& dates, DateOrder setting) {
    const bool numeric = std::any_of(dates.begin(), dates.end(),
                                     [](const DateCell& cell) { return cell.kind == DateCell::Kind::numeric; });
    if (!numeric) return {setting, "Every date in this file can be read in one way only.", std::nullopt};
    if (looksSwapped(dates))
        return {setting, "Dates were read as " + std::string(words(setting)) + ".",
                "Day and month may be swapped in some dates: those with days up to the 12th are written in another way "
                "than the later ones, as after a pass through a spreadsheet program of another country."};
    const Trial asked = attempt(dates, setting);
    const std::string read(words(setting));
    for (const DateOrder other : orders) {
        // A statement of many years is rather one of some weeks whose years stand first.
        constexpr std::int64_t manyDays = 1500;
        const bool scattered = asked.days() > manyDays;
        if (other == setting || (asked.impossible == 0 && asked.oneDirection && !scattered)) continue;
        const Trial trial = attempt(dates, other);
        if (trial.impossible > 0 || !trial.oneDirection) continue;
        if (asked.impossible == 0 && asked.oneDirection && trial.days() * 4 > asked.days()) continue;
        const std::string instead(words(other));
        if (asked.impossible >= 2)
            return {other,
                    "Dates were read as " + instead + ": " + std::to_string(asked.impossible) +
                        " of them are no days when read as " + read + ".",
                    std::nullopt};
        return {setting, "Dates were read as " + read + ".",
                "The dates may be meant as " + instead +
                    ": then all are days, run in one direction and lie close together."};
    }
    return {setting, "Dates were read as " + read + ".", std::nullopt};
}

namespace {

/// The balance a line leads to, and the line before it in time.
std::vector<std::size_t> inTime(const Parsed& parsed, bool newestFirst) {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < parsed.transactions.size(); ++i) {
        const std::size_t line = newestFirst ? parsed.transactions.size() - 1 - i : i;
        if (parsed.transactions[line].balance) order.push_back(line);
    }
    return order;
}

std::size_t steps(const Parsed& parsed, bool newestFirst) {
    const auto order = inTime(parsed, newestFirst);
    std::size_t right = 0;
    for (std::size_t i = 1; i < order.size(); ++i) {
        const BankTransaction& line = parsed.transactions[order[i]];
        right += Checked::tryAdd(*parsed.transactions[order[i - 1]].balance, line.amount) == line.balance;
    }
    return right;
}

}  // namespace

void checkBalances(Parsed& parsed, std::optional<std::int64_t> opening) {
    const bool newestFirst = steps(parsed, true) > steps(parsed, false);
    const auto order = inTime(parsed, newestFirst);
    if (order.empty()) return;
    const BankTransaction& first = parsed.transactions[order.front()];
    std::int64_t before = opening && !newestFirst ? *opening : Checked::sub(*first.balance, first.amount);
    BalanceProof proof{before, 0, *parsed.transactions[order.back()].balance};
    for (const std::size_t i : order) {
        const BankTransaction& line = parsed.transactions[i];
        const std::int64_t expected = Checked::add(before, line.amount);
        if (expected != *line.balance) parsed.balanceBreaks.push_back({parsed.rows[i], expected, *line.balance});
        before = *line.balance;
    }
    std::optional<std::int64_t> sum = 0;
    for (const BankTransaction& line : parsed.transactions)
        if (sum) sum = Checked::tryAdd(*sum, line.amount);
    if (!sum || !Checked::tryAdd(proof.opening, *sum)) return;
    proof.sum = *sum;
    parsed.balanceProof = proof;
}

}  // namespace tamba::BankImport
