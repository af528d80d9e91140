#pragma once

#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// What a document says, apart from how it looks: titles, labels, the sentences that the law asks for. Pure.
namespace tamba::InvoiceTexts {

struct Labelled {
    std::string label, text;
};

/// The parties as frozen at issue, else those of today. A document without a client has an empty buyer.
[[nodiscard]] PartySnapshot seller(const Library& library, const Document& document);
[[nodiscard]] PartySnapshot buyer(const Library& library, const Document& document);
/// Address, tax number, state or country, and for the seller how to reach it: one line each.
[[nodiscard]] std::string sellerLines(const Library& library, const Document& document);
[[nodiscard]] std::string buyerLines(const Library& library, const Document& document);
/// "Bill to", "Prepared for", "Credit to".
[[nodiscard]] std::string_view buyerLabel(const Document& document);

/// "Tax Invoice" and so on; see `InvoicePDF::title`.
[[nodiscard]] std::string title(const Library& library, const Document& document);
/// Dates, references, place of supply: what stands beside the parties, in order.
[[nodiscard]] std::vector<Labelled> details(const Library& library, const Document& document);
/// "27 · Maharashtra", abroad in two lines; empty where the document needs none.
[[nodiscard]] std::string placeOfSupply(const Library& library, const Document& document);

/// The words at the top of a bill of supply under the composition scheme (CGST Rules 2017, rule 5(1)(f)); else empty.
[[nodiscard]] std::string compositionNotice(const Library& library, const Document& document);
/// What an invoice for export or to a special economic zone declares (CGST Rules 2017, rule 46, provisos), with the LUT
/// reference on a line of its own; else empty.
[[nodiscard]] std::string endorsement(const Library& library, const Document& document);

/// One tax that the document charges, and where its amount is found.
struct Tax {
    std::string name;  ///< "CGST", "UTGST", "VAT"
    std::int64_t TaxSplit::* part;
    bool half = false;  ///< at half the rate of the line
};
/// In the order they are printed; none where no tax is charged.
[[nodiscard]] std::vector<Tax> taxes(const Library& library, const Document& document);
/// The tax's own rate for lines at `rateBP`: "9%" of CGST where the line says 18 %.
[[nodiscard]] std::string rate(const Tax& tax, int rateBP);
/// Whether the summary by HSN or SAC code is to be printed.
[[nodiscard]] bool showsHSNSummary(const Library& library, const Document& document, const DocTotals& totals);

/// The amount in words, where the words are those of its currency: dirhams are not dollars and pence no cents; else
/// empty.
[[nodiscard]] std::string inWords(std::int64_t amount, const Currency& currency);

/// "1 USD = ₹86.40".
[[nodiscard]] std::string exchangeRate(const Library& library, const Document& document);
/// Where to pay, for the invoices where it is asked for.
[[nodiscard]] std::vector<Labelled> bank(const Library& library, const Document& document);

/// "DRAFT", "VOID", "PAID" or nothing.
[[nodiscard]] std::string_view stamp(const Library& library, const Document& document);

}  // namespace tamba::InvoiceTexts
