#include "TambaCore/Reports/GSTFigures.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Converted.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>
#include <utility>

namespace tamba::GSTFigures {
namespace {

/// Unit quantity codes of the portal's list.
constexpr std::string_view codes =
    "BAG BAL BDL BKL BOU BOX BTL BUN CAN CBM CCM CMS CTN DOZ DRM GGK GMS GRS GYD KGS KLR KME LTR MLT MTR MTS NOS OTH "
    "PAC PCS PRS QTL ROL SET SQF SQM SQY TBS TGM THD TON TUB UGS UNT YDS";

constexpr std::pair<std::string_view, std::string_view> words[] = {
    {"NO", "NOS"},    {"NUMBER", "NOS"}, {"NUMBERS", "NOS"}, {"ITEM", "NOS"},   {"ITEMS", "NOS"}, {"UNIT", "NOS"},
    {"UNITS", "NOS"}, {"PC", "PCS"},     {"PIECE", "PCS"},   {"PIECES", "PCS"}, {"KG", "KGS"},    {"BOXES", "BOX"},
    {"SETS", "SET"},  {"M", "MTR"},      {"METRE", "MTR"},   {"METRES", "MTR"}, {"METER", "MTR"}, {"METERS", "MTR"},
    {"L", "LTR"},     {"LITRE", "LTR"},  {"LITRES", "LTR"},  {"DOZEN", "DOZ"},  {"PACK", "PAC"},  {"PACKS", "PAC"},
    {"G", "GMS"},     {"GRAM", "GMS"},   {"GRAMS", "GMS"},   {"ROLL", "ROL"},   {"ROLLS", "ROL"}};

bool isService(std::string_view code) { return code.starts_with("99"); }

constexpr std::array columns{&TaxSplit::cgst, &TaxSplit::sgst, &TaxSplit::igst, &TaxSplit::other};

}  // namespace

std::optional<Figures> of(const Library& library, const Document& document) {
    if (!DocMath::isBelievable(document)) return {};
    const auto home = [&](std::int64_t amount) { return Books::inHomeCurrency(library, document, amount); };
    const auto value = home(DocMath::sums(document).total);
    if (!value) return {};

    std::map<std::tuple<int, std::string, std::string>, CodeRow> rows;
    for (const Line& line : document.lines) {
        const LineTotals figures = DocMath::line(line, document.supply);
        const std::string code(Text::trim(line.hsn));
        const std::string unit = isService(code) ? "NA" : unitCode(line.unit);
        const auto [found, isNew] = rows.try_emplace({line.taxBP, code, unit});
        CodeRow& row = found->second;
        if (isNew) row.code = code, row.description = description(line.name), row.unit = unit, row.rateBP = line.taxBP;
        if (!isService(code)) row.qtyMilli = Checked::add(row.qtyMilli, line.qtyMilli);
        row.taxable = Checked::add(row.taxable, figures.taxable);
        row.tax = row.tax + figures.tax;
    }
    std::vector<CodeRow> list;
    for (auto& [key, row] : rows) list.push_back(std::move(row));
    // Each column is converted as a whole and divided, so that the parts of a return add up whichever way they are cut.
    const auto convert = [&](auto&& figure) {
        std::vector<std::int64_t> parts;
        for (CodeRow& row : list) parts.push_back(figure(row));
        const auto converted = convertedParts(parts, home);
        for (std::size_t i = 0; converted && i < list.size(); ++i) figure(list[i]) = (*converted)[i];
        return converted.has_value();
    };
    bool isWhole = convert([](CodeRow& row) -> std::int64_t& { return row.taxable; });
    for (const auto column : columns)
        isWhole = isWhole && convert([column](CodeRow& row) -> std::int64_t& { return row.tax.*column; });
    if (!isWhole) return {};

    Figures result{*value, {}, {}};
    for (CodeRow& row : list) {
        if (row.taxable == 0) continue;
        if (result.rates.empty() || result.rates.back().rateBP != row.rateBP)
            result.rates.push_back({row.rateBP, 0, {}});
        RateGroup& rate = result.rates.back();
        rate.taxable = Checked::add(rate.taxable, row.taxable);
        rate.tax = rate.tax + row.tax;
        result.codes.push_back(std::move(row));
    }
    return result;
}

PartySnapshot party(const Library& library, const Document& document) {
    if (document.billTo) return *document.billTo;
    const Client* client = document.clientID ? library.client(*document.clientID) : nullptr;
    return client ? PartySnapshot::of(*client) : PartySnapshot();
}

std::string recipient(const Library& library, const Document& document) {
    const std::string number = GSTIN::clean(party(library, document).taxID);
    return !isExport(document.supply) && GSTIN::isValid(number) ? number : "";
}

std::string place(const Library& library, const Document& document) {
    const auto state = IndianState::of(document.placeOfSupply);
    if (state) return std::string(state->code);
    return library.business.supplierState().value_or("");
}

bool isExport(SupplyType supply) { return supply == SupplyType::exportLUT || supply == SupplyType::exportWithIGST; }

bool isSEZ(SupplyType supply) { return supply == SupplyType::sezLUT || supply == SupplyType::sezWithIGST; }

bool counts(const Document& document) {
    return document.kind != DocKind::estimate && document.state == DocState::issued;
}

std::string unitCode(std::string_view unit) {
    const std::string word = GSTIN::clean(unit);
    if (word.size() == 3 && codes.find(word) != codes.npos) return word;
    const auto* const found =
        std::find_if(std::begin(words), std::end(words), [&word](const auto& pair) { return pair.first == word; });
    return found == std::end(words) ? "OTH" : std::string(found->second);
}

std::string description(std::string_view text) {
    std::string kept;
    for (const char c : text) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (isLetter || std::string_view(" _@./&-").find(c) != std::string_view::npos) kept += c;
    }
    return std::string(Text::trim(Text::trim(kept).substr(0, 30)));
}

}  // namespace tamba::GSTFigures
