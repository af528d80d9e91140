#include "TambaCore/Reports/GSTRules.h"

#include <algorithm>

namespace tamba::GSTRules {

const std::vector<Row>& table() {
    using enum Rule;
    static const std::vector<Row> rows{
        {largeConsumerLimit, firstDay, Day{2024, 7, 31}, 25'000'000, "CGST Rules 2017, rule 59(4)"},
        {largeConsumerLimit, {2024, 8, 1}, {}, 10'000'000, "Notification 12/2024-Central Tax"},
        {hsnSplit, firstDay, Day{2025, 4, 30}, 0, "GSTR-1, table 12, before phase III"},
        {hsnSplit, {2025, 5, 1}, {}, 1, "GSTN advisories on tables 12 and 13, phase III"},
        {interStateTable, firstDay, Day{2025, 10, 31}, 1, "GSTR-3B, table 3.2"},
        {interStateTable, {2025, 11, 1}, {}, 0, "GSTN advisory on auto-populated table 3.2"},
        {minimumHSNDigits, firstDay, Day{2021, 3, 31}, 2, "Notification 12/2017-Central Tax"},
        {minimumHSNDigits, {2021, 4, 1}, {}, 4, "Notification 78/2020-Central Tax"},
        {creditNoteMonth, firstDay, Day{2022, 9, 30}, 9, "CGST Act 2017, section 34(2)"},
        {creditNoteMonth, {2022, 10, 1}, {}, 11, "Finance Act 2022, section 104"},
    };
    return rows;
}

std::int64_t value(Rule rule, Day date) {
    const Row* found = nullptr;
    for (const Row& row : table())
        if (row.rule == rule && (!found || row.from <= date)) found = &row;
    return found->value;
}

const std::vector<RateList>& slabs() {
    static const std::vector<RateList> lists{
        {firstDay, Day{2025, 9, 21}, {0, 25, 300, 500, 1200, 1800, 2800}, "Notification 1/2017-Central Tax (Rate)"},
        {{2025, 9, 22}, {}, {0, 25, 300, 500, 1800, 4000}, "Notification 9/2025-Central Tax (Rate)"},
    };
    return lists;
}

const RateList& portalRates() {
    static const RateList rates{firstDay,
                                {},
                                {0, 10, 25, 100, 150, 300, 500, 600, 750, 1200, 1800, 2800, 4000},
                                "GSTR-1, list of rates of the returns' file format"};
    return rates;
}

bool isPortalRate(int rateBP) {
    const auto& rates = portalRates().ratesBP;
    return std::binary_search(rates.begin(), rates.end(), rateBP);
}

}  // namespace tamba::GSTRules
