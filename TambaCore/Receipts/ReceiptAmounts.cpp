#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/ReceiptParser.h"
#include "TambaCore/Receipts/ReceiptParts.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tamba::ReceiptParser {
namespace {

struct Keyword {
    std::string_view text;
    int weight;
};
// The first that occurs on a line decides, so the order is part of the table.
constexpr std::array totalKeywords{
    Keyword{"grand total", 10},  Keyword{"total amount", 9}, Keyword{"amount payable", 9}, Keyword{"net payable", 9},
    Keyword{"total payable", 9}, Keyword{"amount due", 8},   Keyword{"balance due", 8},    Keyword{"total due", 8},
    Keyword{"net amount", 7},    Keyword{"amount paid", 7},  Keyword{"total paid", 7},     Keyword{"you paid", 7},
    Keyword{"bill amount", 7},   Keyword{"total inr", 7},    Keyword{"total (inr)", 7},    Keyword{"total", 5},
    Keyword{"amount", 2},
};
constexpr std::array<std::string_view, 13> notTotals{
    "subtotal",    "sub total",  "sub-total", "total tax",     "tax total",      "total qty", "total quantity",
    "total items", "total item", "total gst", "total savings", "total discount", "taxable",
};

bool contains(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

template <class Words>
bool containsAny(std::string_view text, const Words& words) {
    return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return contains(text, word); });
}

/// Hundredths of a figure the amount pattern matched ("-1,23,456.5"), or nothing when it is beyond belief.
std::optional<std::int64_t> hundredths(std::string_view figure) {
    std::string digits;
    std::size_t decimals = 0;
    bool fraction = false;
    for (const char c : figure) {
        if (c == '.') {
            fraction = true;
        } else if (c >= '0' && c <= '9') {
            digits += c;
            if (fraction) ++decimals;
        } else if (c != ',' && c != '-') {
            return std::nullopt;  // a digit of another script
        }
    }
    digits.append(2 - std::min<std::size_t>(decimals, 2), '0');
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc{} || !isBelievable(value)) return std::nullopt;
    return figure.front() == '-' ? -value : value;
}

/// Weight of the line as the total, 0 when it is none.
int weight(std::string_view lower) {
    if (containsAny(lower, notTotals)) return 0;
    for (const Keyword& keyword : totalKeywords)
        if (contains(lower, keyword.text)) return keyword.weight;
    return 0;
}

bool holdsTotalKeyword(std::string_view lower) {
    return std::any_of(totalKeywords.begin(), totalKeywords.end(),
                       [&](const Keyword& keyword) { return contains(lower, keyword.text); });
}

}  // namespace

std::vector<std::int64_t> amounts(std::string_view line) {
    struct Step {
        Text::Pattern pattern;
        std::string_view replacement;
    };
    // Each step relies on the one before: "@ 9%" is gone before figures are looked for, "Rs.118" has lost its dot.
    static const std::array<Step, 5> cleaning{{
        {Text::Pattern(R"((^|[\s:(])(₹|Rs\.?|INR|USD|EUR|GBP|AED|R|Z|\$|€|£)\s?(?=\d))"), "$1 "},
        {Text::Pattern(R"(\d+(\.\d+)?\s*%)"), ""},
        {Text::Pattern(R"([0-9A-Z]{15})"), ""},                     // a GSTIN
        {Text::Pattern(R"((?<![\d,.])\d{7,}(?![\d,.]))"), ""},      // phone, bill, card: 9876543210, not 1234567.00
        {Text::Pattern(R"(\d{1,4}[/\-]\d{1,2}[/\-]\d{2,4})"), ""},  // 14/10/2026
    }};
    // 1,23,456.00 and 123,456.00; else 450 or 450.5. Not the 5 of "A5", not the 10 of "10,5678".
    static const Text::Pattern figure(R"((?<![\w.])-?\d{1,3}(?:,\d{2,3})+(?:\.\d{1,2})?(?![\d]))"
                                      R"(|(?<![\w.,])-?\d+(?:\.\d{1,2})?(?![\d,]))");
    line = lookedAt(line);
    std::vector<std::int64_t> found;
    if (line.find_first_of("0123456789") == std::string_view::npos) return found;
    std::string text(line);
    for (const Step& step : cleaning) text = step.pattern.replaceAll(text, step.replacement);
    for (const Text::Pattern::Match& match : figure.all(text))
        if (const auto value = hundredths(match[0])) found.push_back(*value);
    return found;
}

Amounts amounts(const std::vector<std::string>& lines) {
    static const Text::Pattern taxWord(R"(\b(vat|gst|sales tax|tax)\b)");
    Amounts result;
    std::optional<std::int64_t> explicitTax, largest;
    int best = 0;
    const std::size_t count = lookedAt(lines);
    std::vector<std::vector<std::int64_t>> figures(count);
    // ":-" ends a label on Indian bills ("Total:-500.00"); its dash is no minus.
    for (std::size_t i = 0; i < count; ++i)
        figures[i] = amounts(Text::replaceAll(std::string(lookedAt(lines[i])), ":-", ": "));
    for (std::size_t i = 0; i < count; ++i) {
        for (const std::int64_t value : figures[i])
            if (value >= 0 && (!largest || value > *largest)) largest = value;
        const std::string lower = Text::lower(lookedAt(lines[i]));
        // Labels and figures may stand on separate lines; the borrowed line is still walked itself.
        const bool borrows = figures[i].empty() && i + 1 < count && holdsTotalKeyword(lower);
        const auto& own = figures[borrows ? i + 1 : i];
        if (own.empty()) continue;
        const std::int64_t value = own.back();

        // A receipt's total is what was paid: negative figures are discounts and refunds.
        const int strength = value >= 0 ? weight(lower) : 0;
        if (strength > best || (strength > 0 && strength == best && value > *result.total)) {
            result.total = value;
            best = strength;
        }

        if (contains(lower, "total tax") || contains(lower, "tax total") || contains(lower, "total gst")) {
            explicitTax = value;
        } else if (contains(lower, "cgst")) {
            result.split.cgst = Checked::add(result.split.cgst, value);
        } else if (contains(lower, "sgst") || contains(lower, "utgst")) {
            result.split.sgst = Checked::add(result.split.sgst, value);
        } else if (contains(lower, "igst")) {
            result.split.igst = Checked::add(result.split.igst, value);
        } else if (taxWord.matches(lower) && !contains(lower, "incl") && !contains(lower, "gstin") &&
                   !contains(lower, "taxable") && !contains(lower, "invoice")) {
            result.split.other = Checked::add(result.split.other, value);
        }
    }
    result.keyword = best > 0;
    if (!result.keyword) result.total = largest;

    TaxSplit& split = result.split;
    if (Checked::add(Checked::add(split.cgst, split.sgst), split.igst) != 0) split.other = 0;
    if (!isBelievable(split.total())) split = {};
    if (explicitTax)
        result.tax = explicitTax;
    else if (split.total() > 0)
        result.tax = split.total();
    return result;
}

}  // namespace tamba::ReceiptParser
