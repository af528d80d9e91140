#pragma once

#include "TambaCore/Model/Day.h"

#include <cstddef>
#include <functional>
#include <string>

namespace tamba {

/// A span of days, both ends included. Nothing checks that it begins before it ends; one that does not holds no day.
///
///     Period::quarter({2027, 2, 15}, 4)    // 1 Jan 2027 – 31 Mar 2027
struct Period {
    Day from, to;

    [[nodiscard]] static Period fy(const FinancialYear& year);
    [[nodiscard]] static Period month(const Day& day);
    /// The block of three months of the financial year, starting in month 1–12, that holds the day.
    [[nodiscard]] static Period quarter(const Day& day, int fyStart);

    [[nodiscard]] bool contains(const Day& day) const { return from <= day && day <= to; }
    /// "April 2025" for a whole month, else "1 Apr 2025 – 31 Mar 2026".
    [[nodiscard]] std::string label() const;

    bool operator==(const Period&) const = default;
};

}  // namespace tamba

template <>
struct std::hash<tamba::Period> {
    std::size_t operator()(const tamba::Period& period) const noexcept {
        const std::hash<tamba::Day> hash;
        return hash(period.from) * 31 + hash(period.to);
    }
};
