#pragma once

#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The GST returns of a month or quarter: GSTR-1 (what was supplied), the GSTR-3B check sheet (the summary whose
/// outward rows the portal fills from GSTR-1) and, for the composition scheme, the turnover of CMP-08. Prepared from
/// the books; nobody but the portal can say that it accepts them. Issued invoices and credit notes count in the period
/// of their own date. Amounts in paise, foreign documents at their own rate; every row keeps the ids it came from.
///
///     const GSTReturns::GSTR1 outward = GSTReturns::gstr1(library, Period::month({2026, 10, 1}));
///     for (const auto& problem : GSTReturns::problems(library, outward)) show(problem.sentence);
///     Files::writeAtomically(file, GSTReturns::uploadText(outward));
namespace tamba::GSTReturns {

/// An invoice or credit note that is reported on its own, with what its table holds of it. Amounts are positive, of
/// credit notes too.
struct Entry {
    UUID id;
    DocKind kind = DocKind::invoice;
    std::string number;
    Day date;
    std::string party;  ///< name, for people; never sent
    std::string gstin;  ///< of the recipient; empty when not registered
    std::string place;  ///< place of supply, two digits
    SupplyType supply = SupplyType::intraState;
    std::int64_t value = 0;        ///< total with tax and round-off
    std::vector<RateGroup> rates;  ///< by ascending rate, one row each

    bool operator==(const Entry&) const = default;
};

/// Supplies to consumers of one place and rate (table 7), net of their credit notes.
struct ConsumerRow {
    SupplyType supply = SupplyType::intraState;  ///< intraState or interState
    std::string place;
    int rateBP = 0;
    std::int64_t taxable = 0;
    TaxSplit tax;
    std::vector<UUID> documentIDs;

    bool operator==(const ConsumerRow&) const = default;
};

/// Supplies at 0 % (table 8): nil-rated and exempt ones, which the books can't tell apart. Net of credit notes.
struct NilRow {
    SupplyType supply = SupplyType::intraState;
    bool registered = false;
    std::int64_t taxable = 0;
    std::vector<UUID> documentIDs;

    bool operator==(const NilRow&) const = default;
};

/// Supplies of one code, unit and rate (table 12), net of credit notes.
struct HSNRow {
    std::string code;
    std::string description;  ///< name of the first line, 30 characters that the portal takes
    std::string unit;         ///< unit quantity code: NOS, KGS; NA for services
    std::int64_t qtyMilli = 0;
    int rateBP = 0;
    std::int64_t taxable = 0;
    TaxSplit tax;
    std::vector<UUID> documentIDs;

    bool operator==(const HSNRow&) const = default;
};

/// A run of numbers (table 13): what differs by the counter alone.
struct NumberRun {
    DocKind kind = DocKind::invoice;
    std::string from, to;  ///< lowest and highest by counter
    std::size_t used = 0;  ///< void ones included
    std::size_t cancelled = 0;
    std::size_t missing = 0;  ///< counters between them that no document has
    std::vector<UUID> documentIDs;

    bool operator==(const NumberRun&) const = default;
};

struct GSTR1 {
    std::string gstin;  ///< the seller's, cleaned
    Period period;
    std::vector<Entry> b2b;      ///< 4A and 6B: to registered buyers, SEZ included
    std::vector<Entry> b2cl;     ///< 5: large inter-state invoices to consumers
    std::vector<Entry> exports;  ///< 6A
    std::vector<ConsumerRow> b2cs;
    std::vector<NilRow> nilRated;
    std::vector<Entry> cdnr;   ///< 9B: credit notes to registered buyers
    std::vector<Entry> cdnur;  ///< 9B: on exports and large consumer invoices
    std::vector<HSNRow> hsnB2B;
    std::vector<HSNRow> hsnB2C;  ///< exports too; empty for periods before the summary was split
    std::vector<NumberRun> numbers;
    std::vector<UUID> outside;  ///< documents whose supply is none of GST
    std::vector<UUID> leftOut;  ///< without a rate, with figures beyond belief, or to an SEZ without its GSTIN
};
[[nodiscard]] GSTR1 gstr1(const Library& library, const Period& period);

struct TaxedAmount {
    std::int64_t taxable = 0;
    TaxSplit tax;

    bool operator==(const TaxedAmount&) const = default;
};
/// Inter-state supplies to consumers in one place (table 3.2).
struct PlaceRow {
    std::string place;
    std::int64_t taxable = 0;
    std::int64_t igst = 0;

    bool operator==(const PlaceRow&) const = default;
};
/// How the period's tax is paid (table 6.1), with the credit of this period only.
struct SetOff {
    TaxSplit payable;     ///< each tax in whole rupees, 50 paise up (CGST Act 2017, section 170); none below 0
    TaxSplit cash;        ///< what is left after the credit
    TaxSplit creditLeft;  ///< carried forward

    bool operator==(const SetOff&) const = default;
};
struct GSTR3B {
    std::string gstin;
    Period period;
    TaxedAmount taxed;          ///< 3.1(a)
    TaxedAmount zeroRated;      ///< 3.1(b): exports and SEZ
    std::int64_t nilRated = 0;  ///< 3.1(c)
    std::vector<PlaceRow> interState;
    TaxSplit credit;                 ///< 4(A)(5), per books: to be compared with GSTR-2B
    std::int64_t notClaimed = 0;     ///< tax on expenses that is not claimed
    std::vector<UUID> creditIDs;     ///< expenses with tax, claimed or not
    std::vector<UUID> withoutGSTIN;  ///< tax claimed, but no valid GSTIN of the vendor: no credit
    std::vector<UUID> wrongState;    ///< CGST and SGST claimed from a vendor of another state: credit is lost
    std::vector<UUID> foreign;       ///< bought in foreign currency: perhaps import of services under reverse charge
    SetOff setOff;
};
[[nodiscard]] GSTR3B gstr3b(const Library& library, const GSTR1& outward);
/// Credit is used in the order of CGST Act 2017, sections 49 to 49B: of IGST first, for IGST, then where the own credit
/// of CGST and SGST falls short; CGST credit never pays SGST nor the reverse.
[[nodiscard]] SetOff setOff(const TaxSplit& liability, const TaxSplit& credit);

/// Turnover and tax of a composition dealer. `rateBP`: 600 for services, 500 for restaurants, 100 for goods.
struct Composition {
    Period period;
    std::int64_t turnover = 0;  ///< bills of supply less credit notes, before round-off
    int rateBP = 600;
    std::int64_t cgst = 0, sgst = 0;  ///< half the rate each
    std::vector<UUID> documentIDs;
    std::vector<UUID> outOfState;  ///< to another state or abroad, which the scheme does not allow
    std::vector<UUID> leftOut;
};
[[nodiscard]] Composition composition(const Library& library, const Period& period, int rateBP = 600);
/// "CMP-08" for a quarter of the tax year, which alone it is the statement of; else "Composition turnover".
[[nodiscard]] std::string_view title(const Composition& turnover);

struct Problem {
    enum class Severity { refused, look };  ///< the portal will refuse it; worth a look
    Severity severity;
    std::optional<UUID> recordID;  ///< a document; absent where it concerns the business
    std::string sentence;

    bool operator==(const Problem&) const = default;
};
/// What to mend before the return is sent, what will be refused first.
[[nodiscard]] std::vector<Problem> problems(const Library& library, const GSTR1& outward);

/// The JSON file the portal's upload takes, in its own order of keys; empty tables are left out, as it asks.
[[nodiscard]] std::string uploadText(const GSTR1& outward);
[[nodiscard]] std::string uploadText(const GSTR3B& summary);
/// "102026": month and year of the period's last month.
[[nodiscard]] std::string periodCode(const Period& period);

}  // namespace tamba::GSTReturns
