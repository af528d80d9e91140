#pragma once

#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <string>
#include <vector>

/// The figures of an invoice, estimate or credit note. Always computed afresh, never stored: every screen, page, return
/// and report asks here, and nobody adds up a document's money a second time. Tax is worked out and rounded line by
/// line; the document's figures are sums of rounded line figures, which is what is printed and filed. Amounts are minor
/// units of the document's currency, rates basis points, quantities thousandths.
///
///     const DocTotals totals = DocMath::totals(invoice);
///     totals.total == totals.taxable + totals.tax.total() + totals.roundOff;
namespace tamba {

struct LineTotals {
    std::int64_t gross = 0;     ///< quantity × unit price
    std::int64_t discount = 0;  ///< of `gross`
    std::int64_t taxable = 0;   ///< gross − discount
    TaxSplit tax;

    [[nodiscard]] std::int64_t total() const;
    bool operator==(const LineTotals&) const = default;
};

/// The lines of one tax rate. `rateBP` is its identity.
struct RateGroup {
    int rateBP = 0;
    std::int64_t taxable = 0;
    TaxSplit tax;

    bool operator==(const RateGroup&) const = default;
};

/// The lines of one HSN or SAC code and rate.
struct HSNGroup {
    std::string hsn;  ///< as typed, may be empty
    int rateBP = 0;
    std::int64_t qtyMilli = 0;
    std::string unit;  ///< of the group's first line
    std::int64_t taxable = 0;
    TaxSplit tax;

    [[nodiscard]] std::string id() const;  ///< "998391|1800"
    bool operator==(const HSNGroup&) const = default;
};

struct DocTotals {
    std::vector<LineTotals> lines;  ///< one for each line, in their order
    std::int64_t subtotal = 0;      ///< sum of gross
    std::int64_t discount = 0;
    std::int64_t taxable = 0;
    TaxSplit tax;
    std::int64_t roundOff = 0;  ///< what was added to reach `total`; negative when rounded down
    std::int64_t total = 0;
    std::vector<RateGroup> byRate;  ///< by ascending rate, 0 % included
    std::vector<HSNGroup> byHSN;    ///< by code, then rate

    bool operator==(const DocTotals&) const = default;
};

namespace DocMath {

/// gross, discount, taxable and tax of one line, each rounded on its own, halves away from zero.
[[nodiscard]] LineTotals line(const Line& line, SupplyType supply);
/// Overflow stops the program: ask `isBelievable` first about a document that was not made here.
[[nodiscard]] DocTotals totals(const Document& document);
/// The same figures without the lists `lines`, `byRate` and `byHSN`, for sums over many documents.
[[nodiscard]] DocTotals sums(const Document& document);

/// Whether every figure of the document, its sums and its payments are at most `maximumAmount` (10^15), with
/// quantities, prices, rates and payments not negative and discounts of 0 to 100 %. What fails is a typing or reading
/// error: it is left out of every sum, so that no figure can stop the program.
[[nodiscard]] bool isBelievable(const Document& document);

}  // namespace DocMath

/// `DocMath::totals` for callers that hold the books.
[[nodiscard]] DocTotals totals(const Library& library, const Document& document);

}  // namespace tamba
