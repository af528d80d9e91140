#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Reports/Breakdowns.h"
#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/Sum.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tamba::GSTReturns {
namespace {

enum class Sign { plus, minus };

void add(TaxedAmount& sum, std::int64_t taxable, const TaxSplit& tax, Sign sign) {
    sum.taxable = Checked::add(sum.taxable, sign == Sign::plus ? taxable : Checked::neg(taxable));
    sum.tax = sign == Sign::plus ? sum.tax + tax : sum.tax - tax;
}

using Places = std::map<std::string, TaxedAmount>;

void addEntries(GSTR3B& result, Places& places, const std::vector<Entry>& entries, Sign sign) {
    for (const Entry& entry : entries)
        for (const RateGroup& rate : entry.rates) {
            add(isZeroRated(entry.supply) ? result.zeroRated : result.taxed, rate.taxable, rate.tax, sign);
            if (entry.supply == SupplyType::interState && entry.gstin.empty())
                add(places[entry.place], rate.taxable, rate.tax, sign);
        }
}

void addCredit(GSTR3B& result, const Library& library) {
    const Period& period = result.period;
    Sum cgst, sgst, igst, notClaimed;
    // A summary of a business's own year may reach over the end of March.
    for (FinancialYear year = period.from.financialYear(4); year.start() <= period.to; year = year.next())
        for (const auto& row : Breakdowns::inputTax(library, year)) {
            if (!period.contains(row.month)) continue;
            cgst.add(row.claimed.cgst);
            sgst.add(row.claimed.sgst);
            igst.add(row.claimed.igst);
            notClaimed.add(row.notClaimed);
            result.creditIDs.insert(result.creditIDs.end(), row.expenseIDs.begin(), row.expenseIDs.end());
        }
    result.credit = {cgst.value(), sgst.value(), igst.value(), 0};
    result.notClaimed = notClaimed.value();
    const auto own = library.business.supplierState();
    for (const Expense& expense : library.expenses) {
        if (!period.contains(expense.date)) continue;
        if (Currency::of(expense.currency).code != library.home().code) result.foreign.push_back(expense.id);
        const TaxSplit& split = expense.taxSplit;
        if (!expense.claimTax || split == TaxSplit()) continue;
        if (!GSTIN::isValid(expense.vendorTaxID))
            result.withoutGSTIN.push_back(expense.id);
        else if ((split.cgst != 0 || split.sgst != 0) && own && GSTIN::stateCode(expense.vendorTaxID) != own)
            result.wrongState.push_back(expense.id);
    }
}

std::int64_t payable(std::int64_t tax) { return std::max<std::int64_t>(0, MoneyMath::roundToWhole(tax, 100)); }

}  // namespace

GSTR3B gstr3b(const Library& library, const GSTR1& outward) {
    GSTR3B result;
    result.gstin = outward.gstin;
    result.period = outward.period;
    Places places;
    for (const auto* table : {&outward.b2b, &outward.b2cl, &outward.exports})
        addEntries(result, places, *table, Sign::plus);
    for (const auto* table : {&outward.cdnr, &outward.cdnur}) addEntries(result, places, *table, Sign::minus);
    for (const ConsumerRow& row : outward.b2cs) {
        add(result.taxed, row.taxable, row.tax, Sign::plus);
        if (row.supply == SupplyType::interState) add(places[row.place], row.taxable, row.tax, Sign::plus);
    }
    for (const NilRow& row : outward.nilRated) result.nilRated = Checked::add(result.nilRated, row.taxable);
    for (const auto& [place, amount] : places)
        if (amount != TaxedAmount()) result.interState.push_back({place, amount.taxable, amount.tax.igst});
    if (library.business.regime == TaxRegime::gstIndia) addCredit(result, library);
    result.setOff = setOff(result.taxed.tax + result.zeroRated.tax, result.credit);
    return result;
}

SetOff setOff(const TaxSplit& liability, const TaxSplit& credit) {
    SetOff result;
    result.payable = {payable(liability.cgst), payable(liability.sgst), payable(liability.igst), 0};
    result.cash = result.payable;
    result.creditLeft = {std::max<std::int64_t>(0, credit.cgst), std::max<std::int64_t>(0, credit.sgst),
                         std::max<std::int64_t>(0, credit.igst), 0};
    TaxSplit &cash = result.cash, &left = result.creditLeft;
    const auto use = [&](std::int64_t TaxSplit::* from, std::int64_t TaxSplit::* on, std::int64_t most) {
        const std::int64_t amount = std::min({left.*from, cash.*on, most});
        left.*from = Checked::sub(left.*from, amount);
        cash.*on = Checked::sub(cash.*on, amount);
    };
    const auto useAll = [&](std::int64_t TaxSplit::* from, std::int64_t TaxSplit::* on) { use(from, on, cash.*on); };
    useAll(&TaxSplit::igst, &TaxSplit::igst);
    // Where the rest of it goes is free: first to what the own credit does not reach, so that none lies idle.
    for (const auto part : {&TaxSplit::cgst, &TaxSplit::sgst})
        use(&TaxSplit::igst, part, std::max<std::int64_t>(0, Checked::sub(cash.*part, left.*part)));
    for (const auto part : {&TaxSplit::cgst, &TaxSplit::sgst}) useAll(&TaxSplit::igst, part);
    for (const auto part : {&TaxSplit::cgst, &TaxSplit::sgst}) useAll(part, part);
    for (const auto part : {&TaxSplit::cgst, &TaxSplit::sgst}) useAll(part, &TaxSplit::igst);
    return result;
}

Composition composition(const Library& library, const Period& period, int rateBP) {
    Composition result;
    result.period = period;
    result.rateBP = rateBP;
    const auto own = library.business.supplierState();
    for (const Document& document : library.documents) {
        if (!GSTFigures::counts(document) || !period.contains(document.issueDate)) continue;
        const auto figures = GSTFigures::of(library, document);
        std::optional<std::int64_t> turnover;
        if (figures) {
            std::int64_t taxable = 0;
            for (const RateGroup& rate : figures->rates) taxable = Checked::add(taxable, rate.taxable);
            turnover =
                Checked::add(result.turnover, document.kind == DocKind::invoice ? taxable : Checked::neg(taxable));
        }
        if (!turnover || !isBelievable(*turnover)) {
            result.leftOut.push_back(document.id);
            continue;
        }
        result.turnover = *turnover;
        result.documentIDs.push_back(document.id);
        Client buyer;
        buyer.country = GSTFigures::party(library, document).country;
        if (buyer.isForeign() || (own && GSTFigures::place(library, document) != *own))
            result.outOfState.push_back(document.id);
    }
    result.cgst = result.sgst = MoneyMath::mulDiv(result.turnover, rateBP, 20'000);
    return result;
}

std::string_view title(const Composition& turnover) {
    return turnover.period == Period::quarter(turnover.period.from, 4) ? "CMP-08" : "Composition turnover";
}

}  // namespace tamba::GSTReturns
