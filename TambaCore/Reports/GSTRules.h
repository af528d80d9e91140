#pragma once

#include "TambaCore/Model/Day.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

/// What GST law and the portal's file format changed over time, by date. A return asks for the rule of its own dates,
/// so that the figures of past periods stay what they were.
///
///     GSTRules::value(GSTRules::Rule::largeConsumerLimit, {2024, 7, 31})    // 25000000: ₹2,50,000.00
namespace tamba::GSTRules {

enum class Rule {
    largeConsumerLimit,  ///< paise; an inter-state invoice to a consumer above it is reported on its own
    hsnSplit,            ///< 1: the HSN summary has a half for registered buyers and one for others
    interStateTable,     ///< 1: the GSTR-3B file holds table 3.2; 0: the portal fills it alone
    minimumHSNDigits,    ///< for a turnover up to five crore
    creditNoteMonth      ///< credit notes reduce tax until the 30th of this month after the invoice's year
};

struct Row {
    Rule rule;
    Day from;
    std::optional<Day> to;  ///< absent: still the rule
    std::int64_t value;
    std::string_view source;
};
[[nodiscard]] const std::vector<Row>& table();
/// The value on that date; before the first row, the first.
[[nodiscard]] std::int64_t value(Rule rule, Day date);

struct RateList {
    Day from;
    std::optional<Day> to;
    std::vector<int> ratesBP;
    std::string_view source;
};
/// Rates in general use, latest last. Documents of older supplies keep their rate.
[[nodiscard]] const std::vector<RateList>& slabs();
/// Rates the portal accepts on a line, whatever the date.
[[nodiscard]] const RateList& portalRates();
[[nodiscard]] bool isPortalRate(int rateBP);

/// First day a document of the portal can bear: GST began.
inline constexpr Day firstDay{2017, 7, 1};

}  // namespace tamba::GSTRules
