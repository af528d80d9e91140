#pragma once

#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A document's figures as GST returns need them: in paise, by rate and by code. Parts of the returns; screens ask
/// `GSTReturns`.
namespace tamba::GSTFigures {

/// Lines of one code, unit and rate.
struct CodeRow {
    std::string code, description;
    std::string unit;  ///< unit quantity code, NA for services
    std::int64_t qtyMilli = 0;
    int rateBP = 0;
    std::int64_t taxable = 0;
    TaxSplit tax;
};
struct Figures {
    std::int64_t value = 0;        ///< total
    std::vector<RateGroup> rates;  ///< by rate, without those that come to nothing
    std::vector<CodeRow> codes;    ///< by rate, code and unit; they add up to `rates`
};
/// Nothing for a document without a rate or with figures beyond belief.
[[nodiscard]] std::optional<Figures> of(const Library& library, const Document& document);

/// Who it is for, as frozen on it or else as the books have the client now.
[[nodiscard]] PartySnapshot party(const Library& library, const Document& document);
/// The recipient's GSTIN, cleaned; empty when there is no valid one or the supply goes abroad.
[[nodiscard]] std::string recipient(const Library& library, const Document& document);
/// Two digits: the document's place of supply, else the seller's own state.
[[nodiscard]] std::string place(const Library& library, const Document& document);
[[nodiscard]] bool isExport(SupplyType supply);
[[nodiscard]] bool isSEZ(SupplyType supply);
/// A tax document that the returns count: an issued invoice or credit note.
[[nodiscard]] bool counts(const Document& document);

/// The code of a unit people typed: "Nos." is NOS, "kg" KGS, what is not known OTH.
[[nodiscard]] std::string unitCode(std::string_view unit);
/// The first 30 characters that the portal takes in a description: letters, digits, blanks and _ @ . / & -.
[[nodiscard]] std::string description(std::string_view text);

}  // namespace tamba::GSTFigures
