#include "TambaCore/Model/Tax.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/Money.h"

#include <algorithm>

namespace tamba {

std::string IndianState::label() const { return std::string(code) + " · " + std::string(name); }

std::optional<IndianState> IndianState::of(const std::optional<std::string>& code) {
    if (!code) return {};
    const std::string padded = Text::length(*code) == 1 ? "0" + *code : *code;
    for (const IndianState& state : all())
        if (state.code == padded) return state;
    return {};
}

namespace GSTIN {
namespace {

constexpr std::string_view alphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

bool isStateCode(std::string_view code) {
    const auto& states = IndianState::all();
    return std::any_of(states.begin(), states.end(), [code](const IndianState& state) { return state.code == code; });
}

/// 27 AAPFU0939F 1 Z V: state, PAN, entity number (never 0), Z, check character.
bool hasShape(std::string_view text) {
    constexpr std::string_view shape = "99AAAAA9999AEZX";
    return std::equal(text.begin(), text.end(), shape.begin(), shape.end(), [](char c, char kind) {
        const bool digit = c >= '0' && c <= '9';
        const bool letter = c >= 'A' && c <= 'Z';
        switch (kind) {
            case '9':
                return digit;
            case 'A':
                return letter;
            case 'E':
                return letter || (digit && c != '0');
            case 'Z':
                return c == 'Z';
            default:
                return digit || letter;
        }
    });
}

}  // namespace

std::string clean(std::string_view text) { return Text::lettersAndDigits(Text::upper(text)); }

std::optional<Problem> validate(std::string_view text) {
    const std::string number = clean(text);
    if (Text::length(number) != 15) return Problem::length;
    if (!hasShape(number)) return Problem::format;
    if (!isStateCode(std::string_view(number).substr(0, 2))) return Problem::stateCode;
    if (checkCharacter(std::string_view(number).substr(0, 14)) != number.back()) return Problem::checksum;
    return {};
}

bool isValid(std::string_view text) { return !validate(text); }

std::optional<char> checkCharacter(std::string_view first14) {
    const std::string number = clean(first14);
    if (number.size() != 14) return {};
    std::size_t sum = 0;
    for (std::size_t i = 0; i < number.size(); ++i) {
        const std::size_t value = alphabet.find(number[i]);
        if (value == alphabet.npos) return {};
        const std::size_t product = value * (i % 2 == 0 ? 1 : 2);
        sum += product / 36 + product % 36;
    }
    return alphabet[(36 - sum % 36) % 36];
}

std::optional<std::string> stateCode(std::string_view text) {
    const std::string number = clean(text);
    const std::string_view code = Text::prefix(number, 2);
    return isStateCode(code) ? std::optional(std::string(code)) : std::nullopt;
}

std::optional<std::string> pan(std::string_view text) {
    const std::string number = clean(text);
    if (Text::length(number) != 15) return {};
    const std::string_view toPAN = Text::prefix(number, 12);
    return std::string(toPAN.substr(Text::prefix(number, 2).size()));
}

std::string make(std::string_view state, std::string_view pan, std::string_view entity) {
    const std::string number = clean(std::string(state) + std::string(pan) + std::string(entity)) + "Z";
    return number + checkCharacter(number).value_or('0');
}

}  // namespace GSTIN

bool isIndia(TaxRegime regime) { return regime == TaxRegime::gstIndia || regime == TaxRegime::gstComposition; }

bool chargesTax(TaxRegime regime) { return regime == TaxRegime::gstIndia || regime == TaxRegime::simple; }

bool usesIGST(SupplyType supply) {
    return supply == SupplyType::interState || supply == SupplyType::exportWithIGST ||
           supply == SupplyType::sezWithIGST;
}

bool isZeroRated(SupplyType supply) {
    return supply == SupplyType::exportLUT || supply == SupplyType::exportWithIGST || supply == SupplyType::sezLUT ||
           supply == SupplyType::sezWithIGST;
}

bool chargesNoTax(SupplyType supply) {
    return supply == SupplyType::exportLUT || supply == SupplyType::sezLUT || supply == SupplyType::noTax;
}

std::int64_t TaxSplit::total() const { return Checked::add(Checked::add(Checked::add(cgst, sgst), igst), other); }

TaxSplit TaxSplit::negated() const {
    return {Checked::neg(cgst), Checked::neg(sgst), Checked::neg(igst), Checked::neg(other)};
}

TaxSplit TaxSplit::operator+(const TaxSplit& o) const {
    return {Checked::add(cgst, o.cgst), Checked::add(sgst, o.sgst), Checked::add(igst, o.igst),
            Checked::add(other, o.other)};
}

TaxSplit TaxSplit::operator-(const TaxSplit& o) const {
    return {Checked::sub(cgst, o.cgst), Checked::sub(sgst, o.sgst), Checked::sub(igst, o.igst),
            Checked::sub(other, o.other)};
}

TaxSplit TaxSplit::compute(std::int64_t taxable, int rateBP, SupplyType supply) {
    if (rateBP < 1 || chargesNoTax(supply)) return {};
    if (supply == SupplyType::intraState) {
        const std::int64_t half = MoneyMath::mulDiv(taxable, rateBP, 20'000);
        return {.cgst = half, .sgst = half};
    }
    const std::int64_t whole = MoneyMath::percent(taxable, rateBP);
    return usesIGST(supply) ? TaxSplit{.igst = whole} : TaxSplit{.other = whole};
}

TaxSplit TaxSplit::fromPaid(std::int64_t total, const std::optional<std::string>& vendorState,
                            const std::optional<std::string>& buyerState, bool india) {
    if (!india) return {.other = total};
    if (vendorState && buyerState && vendorState != buyerState) return {.igst = total};
    const std::int64_t half = total / 2;
    return {.cgst = half, .sgst = total - half};
}

namespace PlaceOfSupply {

std::string defaultPOS(std::string_view clientGSTIN, const std::optional<std::string>& clientState,
                       std::string_view supplierState) {
    if (const auto code = GSTIN::stateCode(clientGSTIN)) return *code;
    if (IndianState::of(clientState)) return *clientState;
    return std::string(supplierState);
}

SupplyType supplyType(TaxRegime regime, const std::optional<std::string>& supplierState,
                      const std::optional<std::string>& pos, std::string_view clientCountry, bool sez, bool lut) {
    if (regime == TaxRegime::simple) return SupplyType::simple;
    if (regime != TaxRegime::gstIndia) return SupplyType::noTax;
    if (!clientCountry.empty() && Text::upper(clientCountry) != "IN" && Text::lower(clientCountry) != "india")
        return lut ? SupplyType::exportLUT : SupplyType::exportWithIGST;
    if (sez) return lut ? SupplyType::sezLUT : SupplyType::sezWithIGST;
    return supplierState && pos && supplierState != pos ? SupplyType::interState : SupplyType::intraState;
}

}  // namespace PlaceOfSupply
}  // namespace tamba
