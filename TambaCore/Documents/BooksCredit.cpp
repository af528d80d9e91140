#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/BooksParts.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tamba::Books {
namespace {

/// What issued notes took off an invoice, before tax. Sums that pass belief stay just beyond it.
struct Credited {
    std::map<int, std::int64_t> byRate;
    std::map<std::pair<std::string, int>, std::int64_t> byHSN;
};

Credited credited(const Library& library, const UUID& invoice, const UUID& except) {
    Credited result;
    const auto add = [](std::int64_t& sum, std::int64_t part) { sum = std::min(sum + part, maximumAmount + 1); };
    for (const Document& note : library.documents) {
        const bool counts = note.kind == DocKind::creditNote && note.linkedID == invoice && note.isIssued();
        if (!counts || note.id == except || !DocMath::isBelievable(note)) continue;
        const DocTotals totals = DocMath::totals(note);
        for (const RateGroup& group : totals.byRate) add(result.byRate[group.rateBP], group.taxable);
        for (const HSNGroup& group : totals.byHSN) add(result.byHSN[{group.hsn, group.rateBP}], group.taxable);
    }
    return result;
}

/// The name that people know a group by: that of its first line.
std::string nameOf(const HSNGroup& group, const Document& invoice) {
    for (const Line& line : invoice.lines)
        if (line.hsn == group.hsn && line.taxBP == group.rateBP) return line.name;
    return {};
}

/// One line for each rate and code with what remains of it. A note may have credited one code more than it had; the
/// rate's remainder then bounds the others.
std::vector<Line> remainingLines(const Document& invoice, const DocTotals& totals, Credited credited) {
    std::map<int, std::int64_t> left;
    for (const RateGroup& group : totals.byRate)
        left[group.rateBP] = Checked::sub(group.taxable, credited.byRate[group.rateBP]);
    std::vector<Line> lines;
    for (const HSNGroup& group : totals.byHSN) {
        std::int64_t& ofRate = left[group.rateBP];
        const std::int64_t own = Checked::sub(group.taxable, credited.byHSN[{group.hsn, group.rateBP}]);
        const std::int64_t remains = std::min(own, ofRate);
        if (remains < 1) continue;
        ofRate -= remains;
        Line line = Line::make(nameOf(group, invoice), 1000, remains, group.rateBP);
        line.hsn = group.hsn;
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace

bool covers(const Library& library, const Document& invoice, const Document& note) {
    if (!DocMath::isBelievable(invoice)) return false;
    Credited total = credited(library, invoice.id, note.id);
    for (const RateGroup& group : DocMath::totals(note).byRate) {
        std::int64_t& sum = total.byRate[group.rateBP];
        sum = Checked::add(sum, group.taxable);
    }
    for (const RateGroup& group : DocMath::totals(invoice).byRate) total.byRate[group.rateBP] -= group.taxable;
    return std::all_of(total.byRate.begin(), total.byRate.end(), [](const auto& rest) { return rest.second <= 0; });
}

Document creditNoteFor(const Library& library, const UUID& invoice, Day today) {
    using Code = BooksError::Code;
    const Document& credits = needDocument(library, invoice, DocKind::invoice, Code::notInvoice);
    needIssued(credits);
    refuseIf(!DocMath::isBelievable(credits), Code::creditExceeds);

    Document note = newDocument(library, DocKind::creditNote, credits.clientID, today);
    note.linkedID = invoice;
    note.reference = credits.reference;
    note.roundOff = credits.roundOff;
    note.terms.clear();
    const DocTotals totals = DocMath::totals(credits);
    Credited earlier = credited(library, invoice, note.id);
    note.lines = earlier.byRate.empty() ? copiesOf(credits.lines) : remainingLines(credits, totals, std::move(earlier));
    note = settled(library, std::move(note));
    refuseIf(DocMath::totals(note).taxable < 1, Code::creditExceeds);
    return note;
}

}  // namespace tamba::Books
