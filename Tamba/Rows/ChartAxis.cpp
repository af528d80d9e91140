#include "Tamba/Rows/ChartAxis.h"

#include "Tamba/Rows/RowText.h"
#include "TambaCore/Reports/Sum.h"

#include <algorithm>

namespace tamba {
namespace {

/// How many whole steps away from 0 hold the amount.
std::int64_t stepsFor(std::int64_t amount, std::int64_t step) { return amount / step + (amount % step == 0 ? 0 : 1); }

}  // namespace

ChartAxis ChartAxis::over(std::int64_t lowest, std::int64_t highest, const Currency& currency) {
    constexpr std::int64_t mostSteps = 5;
    const std::int64_t above = std::clamp<std::int64_t>(highest, 0, Sum::limit);
    const std::int64_t below = std::clamp<std::int64_t>(lowest, -Sum::limit, 0);
    std::int64_t step = currency.scale();
    // 1, 2, 5, 10 and on.
    for (int i = 0; stepsFor(above, step) + stepsFor(-below, step) > mostSteps; ++i)
        step = i % 3 == 1 ? step / 2 * 5 : step * 2;
    ChartAxis axis{step, {}};
    const std::int64_t up = stepsFor(above, step), down = stepsFor(-below, step);
    for (std::int64_t mark = -down; mark <= (up + down == 0 ? 1 : up); ++mark) axis.marks.push_back(mark * step);
    return axis;
}

std::string axisText(std::int64_t minor, const Currency& currency) {
    if (minor == 0) return "0";
    struct Unit {
        std::int64_t size;
        const char* name;
    };
    static constexpr Unit indian[] = {{10'000'000, RowText::marked("Rows", "%1 crore")},
                                      {100'000, RowText::marked("Rows", "%1 lakh")}};
    static constexpr Unit international[] = {{1'000'000'000, RowText::marked("Rows", "%1 billion")},
                                             {1'000'000, RowText::marked("Rows", "%1 million")}};
    // The sign as amounts have it, before the symbol.
    const Currency whole{currency.code, 0, currency.symbol, currency.name, currency.localeID};
    const std::int64_t major = minor / currency.scale();
    for (const Unit& unit : currency.code == "INR" ? indian : international) {
        if (major < unit.size && major > -unit.size) continue;
        std::string text = MoneyFormat::string(major / unit.size, whole);
        const std::int64_t hundredths = (major < 0 ? -(major % unit.size) : major % unit.size) / (unit.size / 100);
        if (hundredths > 0) text += MoneyFormat::quantity(hundredths * 10).substr(1);
        return RowText::filled(RowText::translate("Rows", unit.name), {text});
    }
    return MoneyFormat::string(major, whole);
}

}  // namespace tamba
