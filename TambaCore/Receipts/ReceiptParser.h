#pragma once

#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamba {

/// Why a guess deserves a look before it is trusted.
enum class Doubt { noDate, otherDateOrder, unlikelyDate, noTotal, totalWithoutKeyword, sumsDoNotClose };
/// A finished sentence: "No date was found."
[[nodiscard]] std::string_view sentence(Doubt doubt);

/// What the parser read from a receipt. Every field may be wrong or missing; a person confirms the expense.
struct ReceiptGuess {
    std::string vendor;  ///< empty when nothing usable was found
    std::optional<Day> date;
    std::optional<std::int64_t> total;  ///< minor units
    std::optional<std::int64_t> tax;    ///< minor units
    TaxSplit taxSplit;
    std::string gstin;                    ///< empty when none
    std::optional<std::string> currency;  ///< ISO 4217
    std::string text;                     ///< all that was read
    std::vector<Doubt> doubts;

    [[nodiscard]] bool foundAnything() const { return !vendor.empty() || date || total; }
    bool operator==(const ReceiptGuess&) const = default;
};

/// Guesses vendor, date, total, tax and GSTIN from the lines of one receipt. Pure text logic.
///
///     ReceiptParser::parse({"Chai Point", "Date: 14/10/2026", "Grand Total ₹ 118.00"}, DateOrder::dmy, today)
namespace ReceiptParser {

/// `recognised`: the lines come from a picture, so that a GSTIN whose check character fails may be a misreading.
/// `message`: an e-mail's subject and body, which speak in sentences and seldom begin with the vendor's name.
enum class Source { text, recognised, message };
[[nodiscard]] ReceiptGuess parse(const std::vector<std::string>& lines, DateOrder order, Day today,
                                 Source source = Source::text);

/// The money amounts on one line, left to right, in hundredths. Rates, GSTINs, phone and bill numbers and dates are
/// none.
[[nodiscard]] std::vector<std::int64_t> amounts(std::string_view line);

struct Amounts {
    std::optional<std::int64_t> total, tax;
    TaxSplit split;
    bool keyword = false;  ///< the total stood beside a total keyword
};
[[nodiscard]] Amounts amounts(const std::vector<std::string>& lines);
/// False for a tax that no rate explains: it was misread.
[[nodiscard]] bool isLikelyTax(std::int64_t tax, std::int64_t total);

/// Every calendar day written in the text, in text order. Two-digit years are 2000 + yy.
[[nodiscard]] std::vector<Day> dates(std::string_view text, DateOrder order);
/// The receipt's own date: labelled lines first, invoice dates before due dates, not after `today` and not older than
/// ten years while another is found.
[[nodiscard]] std::optional<Day> date(const std::vector<std::string>& lines, DateOrder order, Day today);
/// The name at the top of the receipt, without registration numbers; empty when no line can be one. The first lines of
/// a `recognised` picture may be a misread logo, which is passed over; of a `message` only a line that reads as a name
/// counts, near the top.
[[nodiscard]] std::string vendor(const std::vector<std::string>& lines, Source source = Source::text);
[[nodiscard]] std::string gstin(const std::vector<std::string>& lines, Source source = Source::text);
[[nodiscard]] std::optional<std::string> currency(std::string_view text);

}  // namespace ReceiptParser
}  // namespace tamba
