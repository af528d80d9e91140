#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Numbering.h"
#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/GSTRules.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace tamba::GSTReturns {
namespace {

using GSTFigures::Figures;

/// One document on its way into the tables.
struct Supply {
    const Document* document;
    Entry entry;
    Figures figures;
    bool isNote = false;
};

std::int64_t signedAmount(const Supply& supply, std::int64_t amount) {
    return supply.isNote ? Checked::neg(amount) : amount;
}
TaxSplit signedTax(const Supply& supply, const TaxSplit& tax) { return supply.isNote ? tax.negated() : tax; }

/// Rows in the order in which their keys are first seen.
template <class Row, class Key>
Row& rowOf(std::vector<Row>& rows, Key&& fits, Row fresh) {
    const auto found = std::find_if(rows.begin(), rows.end(), fits);
    if (found != rows.end()) return *found;
    rows.push_back(std::move(fresh));
    return rows.back();
}

void note(std::vector<UUID>& ids, const UUID& id) {
    if (ids.empty() || ids.back() != id) ids.push_back(id);
}

bool isLarge(std::int64_t value, const Day& date) {
    return value > GSTRules::value(GSTRules::Rule::largeConsumerLimit, date);
}

/// A credit note follows its invoice: it is reported on its own where the invoice was.
bool isLargeConsumer(const Library& library, const Supply& supply) {
    const Document& document = *supply.document;
    if (document.supply != SupplyType::interState) return false;
    const Document* invoice = supply.isNote && document.linkedID ? library.document(*document.linkedID) : nullptr;
    if (invoice)
        if (const auto figures = GSTFigures::of(library, *invoice)) return isLarge(figures->value, invoice->issueDate);
    return isLarge(supply.figures.value, document.issueDate);
}

void addToConsumers(GSTR1& result, const Supply& supply) {
    for (const RateGroup& rate : supply.entry.rates) {
        const auto fits = [&](const ConsumerRow& row) {
            return row.place == supply.entry.place && row.rateBP == rate.rateBP && row.supply == supply.entry.supply;
        };
        ConsumerRow& row = rowOf(result.b2cs, fits, {supply.entry.supply, supply.entry.place, rate.rateBP, 0, {}, {}});
        row.taxable = Checked::add(row.taxable, signedAmount(supply, rate.taxable));
        row.tax = row.tax + signedTax(supply, rate.tax);
        note(row.documentIDs, supply.entry.id);
    }
}

/// Domestic supplies at 0 % belong to table 8 and to no other.
void takeNilRated(GSTR1& result, Supply& supply) {
    auto& rates = supply.entry.rates;
    if (isZeroRated(supply.entry.supply) || rates.empty() || rates.front().rateBP != 0) return;
    const bool registered = !supply.entry.gstin.empty();
    const auto fits = [&](const NilRow& row) {
        return row.supply == supply.entry.supply && row.registered == registered;
    };
    NilRow& row = rowOf(result.nilRated, fits, {supply.entry.supply, registered, 0, {}});
    row.taxable = Checked::add(row.taxable, signedAmount(supply, rates.front().taxable));
    note(row.documentIDs, supply.entry.id);
    rates.erase(rates.begin());
}

void addToCodes(GSTR1& result, const Supply& supply) {
    const bool split = GSTRules::value(GSTRules::Rule::hsnSplit, result.period.to) != 0;
    auto& rows = split && supply.entry.gstin.empty() ? result.hsnB2C : result.hsnB2B;
    for (const GSTFigures::CodeRow& code : supply.figures.codes) {
        const auto fits = [&](const HSNRow& row) {
            return row.code == code.code && row.unit == code.unit && row.rateBP == code.rateBP;
        };
        HSNRow& row = rowOf(rows, fits, {code.code, code.description, code.unit, 0, code.rateBP, 0, {}, {}});
        row.qtyMilli = Checked::add(row.qtyMilli, signedAmount(supply, code.qtyMilli));
        row.taxable = Checked::add(row.taxable, signedAmount(supply, code.taxable));
        row.tax = row.tax + signedTax(supply, code.tax);
        note(row.documentIDs, supply.entry.id);
    }
}

void addToTables(GSTR1& result, const Library& library, Supply supply) {
    addToCodes(result, supply);
    takeNilRated(result, supply);
    Entry& entry = supply.entry;
    if (entry.rates.empty()) return;
    if (GSTFigures::isExport(entry.supply))
        (supply.isNote ? result.cdnur : result.exports).push_back(std::move(entry));
    else if (!entry.gstin.empty())
        (supply.isNote ? result.cdnr : result.b2b).push_back(std::move(entry));
    else if (isLargeConsumer(library, supply))
        (supply.isNote ? result.cdnur : result.b2cl).push_back(std::move(entry));
    else
        addToConsumers(result, supply);
}

/// The part of a number before its counter, the counter and what follows.
struct Parts {
    std::string before;
    std::string counter;
    std::string after;
};

/// Where the counter stands is found by numbering twice; a number of another form counts by its last digits.
Parts partsOf(const Library& library, const Document& document) {
    const std::string& number = *document.number;
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (const NumberSeries* series = document.seriesID ? find(library.series, *document.seriesID) : nullptr) {
        const auto format = [&](std::int64_t counter) {
            return Numbering::format(series->pattern, counter, document.issueDate, library.fyStart());
        };
        const std::string ones = format(111'111'111), twos = format(222'222'222);
        const auto differ = std::mismatch(ones.begin(), ones.end(), twos.begin(), twos.end()).first;
        const auto begin = static_cast<std::size_t>(differ - ones.begin());
        const std::string before = ones.substr(0, begin), after = ones.substr(begin + 9);
        if (number.size() > before.size() + after.size() && number.starts_with(before) && number.ends_with(after)) {
            const std::string counter = number.substr(begin, number.size() - before.size() - after.size());
            if (std::all_of(counter.begin(), counter.end(), isDigit)) return {before, counter, after};
        }
    }
    const auto end = std::find_if(number.rbegin(), number.rend(), isDigit).base();
    const auto begin = std::find_if_not(std::make_reverse_iterator(end), number.rend(), isDigit).base();
    return {{number.begin(), begin}, {begin, end}, {end, number.end()}};
}

std::vector<NumberRun> numberRuns(const Library& library, const Period& period) {
    struct Used {
        std::string counter, number;
        const Document* document;
    };
    std::map<std::tuple<DocKind, std::string, std::string>, std::vector<Used>> runs;
    for (const Document& document : library.documents) {
        const bool isUsed = document.state == DocState::issued || document.state == DocState::void_;
        if (document.kind == DocKind::estimate || !isUsed || !document.number) continue;
        if (!period.contains(document.issueDate)) continue;
        const Parts parts = partsOf(library, document);
        std::string counter = parts.counter;
        counter.erase(0, std::min(counter.find_first_not_of('0'), counter.size()));
        runs[{document.kind, parts.before, parts.after}].push_back({counter, *document.number, &document});
    }
    std::vector<NumberRun> result;
    for (auto& [key, used] : runs) {
        // By counter, not by text: 9 comes before 10.
        std::stable_sort(used.begin(), used.end(), [](const Used& a, const Used& b) {
            return std::pair(a.counter.size(), a.counter) < std::pair(b.counter.size(), b.counter);
        });
        NumberRun run{std::get<0>(key), used.front().number, used.back().number, used.size(), 0, 0, {}};
        std::size_t distinct = 0;
        const std::string* last = nullptr;
        for (const Used& one : used) {
            if (one.document->state == DocState::void_) ++run.cancelled;
            if (!last || *last != one.counter) ++distinct;
            last = &one.counter;
            run.documentIDs.push_back(one.document->id);
        }
        const std::string &lowest = used.front().counter, &highest = used.back().counter;
        if (highest.size() <= 15) {
            const auto numberOf = [](const std::string& digits) {
                return digits.empty() ? std::size_t{0} : static_cast<std::size_t>(std::stoull(digits));
            };
            run.missing = numberOf(highest) - numberOf(lowest) + 1 - distinct;
        }
        result.push_back(std::move(run));
    }
    return result;
}

/// Sums of a return stay below this, so that thousands of documents at the edge of belief overflow nothing.
constexpr std::int64_t mostPerReturn = 1'000'000'000'000'000'000;
std::int64_t sizeOf(const Figures& figures) {
    std::int64_t size = 0;
    for (const auto& code : figures.codes)
        for (const std::int64_t figure : {code.taxable, code.qtyMilli, code.tax.total()})
            size = Checked::add(size, figure);
    return size;
}

}  // namespace

GSTR1 gstr1(const Library& library, const Period& period) {
    GSTR1 result;
    result.gstin = GSTIN::clean(library.business.taxID);
    result.period = period;
    if (library.business.regime != TaxRegime::gstIndia) return result;

    std::vector<const Document*> documents;
    for (const Document& document : library.documents)
        if (GSTFigures::counts(document) && period.contains(document.issueDate)) documents.push_back(&document);
    std::stable_sort(documents.begin(), documents.end(), [](const Document* a, const Document* b) {
        return std::tie(a->issueDate, a->number) < std::tie(b->issueDate, b->number);
    });
    std::int64_t sum = 0;
    for (const Document* document : documents) {
        if (document->supply == SupplyType::simple || document->supply == SupplyType::noTax) {
            result.outside.push_back(document->id);
            continue;
        }
        auto figures = GSTFigures::of(library, *document);
        std::string gstin = GSTFigures::recipient(library, *document);
        const bool isPlaced = figures && !(GSTFigures::isSEZ(document->supply) && gstin.empty());
        const std::int64_t size = isPlaced ? sizeOf(*figures) : 0;
        if (!isPlaced || sum + size > mostPerReturn) {
            result.leftOut.push_back(document->id);
            continue;
        }
        sum += size;
        Entry entry{document->id,
                    document->kind,
                    document->number.value_or(""),
                    document->issueDate,
                    GSTFigures::party(library, *document).name,
                    std::move(gstin),
                    GSTFigures::place(library, *document),
                    document->supply,
                    figures->value,
                    figures->rates};
        const bool isNote = document->kind == DocKind::creditNote;
        addToTables(result, library, {document, std::move(entry), std::move(*figures), isNote});
    }
    const auto byPlace = [](const ConsumerRow& a, const ConsumerRow& b) {
        return std::tie(a.supply, a.place, a.rateBP) < std::tie(b.supply, b.place, b.rateBP);
    };
    std::sort(result.b2cs.begin(), result.b2cs.end(), byPlace);
    const auto byCode = [](const HSNRow& a, const HSNRow& b) {
        return std::tie(a.code, a.rateBP, a.unit) < std::tie(b.code, b.rateBP, b.unit);
    };
    std::sort(result.hsnB2B.begin(), result.hsnB2B.end(), byCode);
    std::sort(result.hsnB2C.begin(), result.hsnB2C.end(), byCode);
    result.numbers = numberRuns(library, period);
    return result;
}

}  // namespace tamba::GSTReturns
