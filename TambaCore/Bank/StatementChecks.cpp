#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Check.h"

#include <algorithm>
#include <array>
#include <ranges>

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

/// A line that has a balance.
struct Step {
    std::size_t line = 0;
    std::int64_t amount = 0, balance = 0;
};

/// How many balances follow from the one before.
template <class Steps>
std::size_t right(const Steps& steps) {
    std::size_t count = 0;
    std::optional<std::int64_t> before;
    for (const Step& step : steps) {
        count += before && Checked::tryAdd(*before, step.amount) == step.balance;
        before = step.balance;
    }
    return count;
}

}  // namespace

void checkBalances(Parsed& parsed, std::optional<std::int64_t> opening) {
    std::vector<Step> steps;
    std::optional<std::int64_t> sum = 0;
    for (std::size_t i = 0; i < parsed.transactions.size(); ++i) {
        const BankTransaction& line = parsed.transactions[i];
        if (line.balance) steps.push_back({i, line.amount, *line.balance});
        if (sum) sum = Checked::tryAdd(*sum, line.amount);
    }
    if (steps.empty()) return;
    const bool newestFirst = right(std::ranges::reverse_view(steps)) > right(steps);
    if (newestFirst) std::reverse(steps.begin(), steps.end());
    std::int64_t before =
        opening && !newestFirst ? *opening : Checked::sub(steps.front().balance, steps.front().amount);
    BalanceProof proof{before, 0, steps.back().balance};
    for (const Step& step : steps) {
        const std::int64_t expected = Checked::add(before, step.amount);
        if (expected != step.balance) parsed.balanceBreaks.push_back({parsed.rows[step.line], expected, step.balance});
        before = step.balance;
    }
    if (!sum || !Checked::tryAdd(proof.opening, *sum)) return;
    proof.sum = *sum;
    parsed.balanceProof = proof;
}

}  // namespace tamba::BankImport
