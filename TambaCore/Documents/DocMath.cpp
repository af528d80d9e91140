#include "TambaCore/Documents/DocMath.h"

#include "TambaCore/Base/Check.h"

#include <map>
#include <optional>
#include <utility>

namespace tamba {
namespace {

__extension__ using Wide = __int128;

/// A sum of figures that are not negative. Stays put once it has passed belief, so that it cannot overflow.
class BelievableSum {
public:
    void add(std::int64_t figure) {
        if (figure < 0 || figure > maximumAmount) believable_ = false;
        if (believable_) value_ += figure;
        if (value_ > maximumAmount) believable_ = false;
    }
    [[nodiscard]] bool believable() const { return believable_; }

private:
    std::int64_t value_ = 0;
    bool believable_ = true;
};

LineTotals untaxed(const Line& line) {
    LineTotals result;
    result.gross = MoneyMath::mulDiv(line.qtyMilli, line.priceMinor, 1000);
    result.discount = MoneyMath::percent(result.gross, line.discountBP);
    result.taxable = Checked::sub(result.gross, result.discount);
    return result;
}

/// The figures of a line that can be worked out and can be right. The products fit 128 bits when the factors are
/// believable, which is asked first.
std::optional<LineTotals> believable(const Line& line, SupplyType supply) {
    const auto inRange = [](std::int64_t value, std::int64_t most) { return value >= 0 && value <= most; };
    if (!inRange(line.qtyMilli, maximumAmount) || !inRange(line.priceMinor, maximumAmount)) return {};
    if (!inRange(line.discountBP, 10'000) || line.taxBP < 0) return {};
    if (static_cast<Wide>(line.qtyMilli) * line.priceMinor / 1000 > maximumAmount) return {};
    LineTotals figures = untaxed(line);
    if (static_cast<Wide>(figures.taxable) * line.taxBP / 10'000 > maximumAmount) return {};
    figures.tax = TaxSplit::compute(figures.taxable, line.taxBP, supply);
    return figures;
}

void add(std::int64_t& sum, std::int64_t figure) { sum = Checked::add(sum, figure); }

void addLine(DocTotals& sums, const LineTotals& figures) {
    add(sums.subtotal, figures.gross);
    add(sums.discount, figures.discount);
    add(sums.taxable, figures.taxable);
    sums.tax = sums.tax + figures.tax;
}

void finish(DocTotals& sums, const Document& document) {
    const std::int64_t unrounded = Checked::add(sums.taxable, sums.tax.total());
    sums.total =
        document.roundOff ? MoneyMath::roundToWhole(unrounded, Currency::of(document.currency).scale()) : unrounded;
    sums.roundOff = Checked::sub(sums.total, unrounded);
}

}  // namespace

std::int64_t LineTotals::total() const { return Checked::add(taxable, tax.total()); }

std::string HSNGroup::id() const { return hsn + "|" + std::to_string(rateBP); }

namespace DocMath {

LineTotals line(const Line& line, SupplyType supply) {
    LineTotals result = untaxed(line);
    result.tax = TaxSplit::compute(result.taxable, line.taxBP, supply);
    return result;
}

DocTotals sums(const Document& document) {
    DocTotals result;
    for (const Line& line : document.lines) addLine(result, DocMath::line(line, document.supply));
    finish(result, document);
    return result;
}

DocTotals totals(const Document& document) {
    DocTotals result;
    std::map<int, RateGroup> byRate;
    std::map<std::pair<std::string, int>, HSNGroup> byHSN;
    for (const Line& line : document.lines) {
        const LineTotals figures = DocMath::line(line, document.supply);
        addLine(result, figures);

        RateGroup& rate = byRate[line.taxBP];
        rate.rateBP = line.taxBP;
        add(rate.taxable, figures.taxable);
        rate.tax = rate.tax + figures.tax;

        const auto [place, opened] = byHSN.try_emplace({line.hsn, line.taxBP});
        HSNGroup& hsn = place->second;
        if (opened) hsn.hsn = line.hsn, hsn.rateBP = line.taxBP, hsn.unit = line.unit;
        add(hsn.qtyMilli, line.qtyMilli);
        add(hsn.taxable, figures.taxable);
        hsn.tax = hsn.tax + figures.tax;

        result.lines.push_back(figures);
    }
    for (auto& [key, group] : byRate) result.byRate.push_back(group);
    for (auto& [key, group] : byHSN) result.byHSN.push_back(std::move(group));
    finish(result, document);
    return result;
}

bool isBelievable(const Document& document) {
    if (document.rateMicros < 0 || document.rateMicros > maximumAmount) return false;
    BelievableSum quantities, gross, total, settled;
    for (const Line& line : document.lines) {
        const auto figures = believable(line, document.supply);
        if (!figures) return false;
        quantities.add(line.qtyMilli);
        gross.add(figures->gross);
        total.add(figures->total());
    }
    for (const Payment& payment : document.payments) {
        settled.add(payment.amount);
        settled.add(payment.tds);
    }
    return quantities.believable() && gross.believable() && total.believable() && settled.believable();
}

}  // namespace DocMath

DocTotals totals(const Library&, const Document& document) { return DocMath::totals(document); }

}  // namespace tamba
