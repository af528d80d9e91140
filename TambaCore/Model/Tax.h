#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The Indian GST rules that everything else asks: state codes, GSTINs, regimes, supply types, and how one tax amount
/// divides into CGST, SGST (or UTGST), IGST and other tax. Pure; no clock, no state.
namespace tamba {

/// A state or union territory under its GST code (CBIC's list of state codes).
struct IndianState {
    std::string_view code;  ///< two digits, "01" … "97"
    std::string_view name;
    bool utgst = false;  ///< the state half of intra-state tax is UTGST (UTGST Act 2017, section 1)

    [[nodiscard]] std::string_view id() const { return code; }
    [[nodiscard]] std::string label() const;  ///< "27 · Maharashtra"

    /// All 37, in the order of every picker.
    [[nodiscard]] static const std::vector<IndianState>& all();
    /// The state with this code; a one-digit code is padded ("7" is Delhi).
    [[nodiscard]] static std::optional<IndianState> of(const std::optional<std::string>& code);

    bool operator==(const IndianState&) const = default;
};

/// The 15-character GST identification number: state code, PAN, entity, "Z", check character (CGST Rules 2017, rule
/// 10). Every function cleans its input first.
namespace GSTIN {

enum class Problem { length, format, stateCode, checksum };

/// Upper case, letters and digits only.
[[nodiscard]] std::string clean(std::string_view text);
/// The first problem found, in the order of the enumeration; nothing when valid.
[[nodiscard]] std::optional<Problem> validate(std::string_view text);
[[nodiscard]] bool isValid(std::string_view text);
/// The sentence shown beside the field.
[[nodiscard]] std::string_view problemText(Problem problem);
/// Check character of the first 14 characters (Luhn over base 36); nothing unless there are exactly 14 of 0–9, A–Z.
[[nodiscard]] std::optional<char> checkCharacter(std::string_view first14);
/// The state code in the first two characters, however little follows them.
[[nodiscard]] std::optional<std::string> stateCode(std::string_view text);
/// The ten characters after the state code, when there are 15.
[[nodiscard]] std::optional<std::string> pan(std::string_view text);
/// Parts joined, "Z" and the check character appended ("0" where none can be computed). Nothing is validated.
[[nodiscard]] std::string make(std::string_view state, std::string_view pan, std::string_view entity);

}  // namespace GSTIN

enum class TaxRegime { gstIndia, gstComposition, simple, none };
[[nodiscard]] std::string_view title(TaxRegime regime);
[[nodiscard]] bool isIndia(TaxRegime regime);
[[nodiscard]] bool chargesTax(TaxRegime regime);

enum class SupplyType { intraState, interState, exportLUT, exportWithIGST, sezLUT, sezWithIGST, simple, noTax };
[[nodiscard]] std::string_view title(SupplyType supply);
[[nodiscard]] bool usesIGST(SupplyType supply);
[[nodiscard]] bool isZeroRated(SupplyType supply);
[[nodiscard]] bool chargesNoTax(SupplyType supply);

/// Rates the menus offer, in basis points.
namespace TaxRates {
[[nodiscard]] const std::vector<int>& gst();
[[nodiscard]] const std::vector<int>& gstLegacy();
[[nodiscard]] const std::vector<int>& common();
}  // namespace TaxRates

/// The one representation of a tax amount: minor units of the document's or expense's currency. Overflow stops the
/// program.
struct TaxSplit {
    std::int64_t cgst = 0;
    std::int64_t sgst = 0;
    std::int64_t igst = 0;
    std::int64_t other = 0;

    [[nodiscard]] std::int64_t total() const;
    [[nodiscard]] TaxSplit negated() const;
    [[nodiscard]] TaxSplit operator+(const TaxSplit& o) const;
    [[nodiscard]] TaxSplit operator-(const TaxSplit& o) const;

    /// Tax on `taxable` (minor units) at `rateBP`. CGST and SGST are each rounded on their own at half the rate, so
    /// they are always equal and their sum may differ from the IGST on the same amount by one minor unit.
    [[nodiscard]] static TaxSplit compute(std::int64_t taxable, int rateBP, SupplyType supply);
    /// Divides a tax total that was paid. Outside India all is `other`; same state (or one unknown): half each, the odd
    /// paisa to SGST; else IGST.
    [[nodiscard]] static TaxSplit fromPaid(std::int64_t total, const std::optional<std::string>& vendorState,
                                           const std::optional<std::string>& buyerState, bool india);

    bool operator==(const TaxSplit&) const = default;
};

/// Where a supply takes place (IGST Act 2017, sections 10 and 12) and which tax that means.
namespace PlaceOfSupply {

/// State of the client's GSTIN, else the client's own state exactly as stored, else the supplier's.
[[nodiscard]] std::string defaultPOS(std::string_view clientGSTIN, const std::optional<std::string>& clientState,
                                     std::string_view supplierState);
/// States are compared as text: "7" differs from "07". An empty country is India.
[[nodiscard]] SupplyType supplyType(TaxRegime regime, const std::optional<std::string>& supplierState,
                                    const std::optional<std::string>& pos, std::string_view clientCountry, bool sez,
                                    bool lut);

}  // namespace PlaceOfSupply
}  // namespace tamba
