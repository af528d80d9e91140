#include "TambaCore/Reports/Deadlines.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/Reports.h"
#include "TambaCore/Reports/Sum.h"
#include "TambaCore/Reports/TDS.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace tamba::Deadlines {
namespace {

/// GST and income tax count the year from April.
constexpr int taxYearStart = 4;

bool asksFor(const Library& library, Kind kind) {
    const Business& business = library.business;
    switch (kind) {
        case Kind::gstr1:
        case Kind::gstr3b:
        case Kind::lut:
            return business.regime == TaxRegime::gstIndia;
        case Kind::cmp08:
        case Kind::gstr4:
            return business.regime == TaxRegime::gstComposition;
        case Kind::advanceTax:
            return business.isIndia() || business.country.empty() || business.country == "IN";
    }
    return false;
}

std::string amount(const Library& library, std::int64_t minor) { return MoneyFormat::string(minor, library.home()); }

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
    return std::to_string(count) + ' ' + std::string(count == 1 ? one : many);
}

/// "July–September 2026".
std::string monthsOf(const Period& period) {
    return period.from.formatted("MMMM") + "–" + period.to.formatted("MMMM yyyy");
}

std::string yearOf(const Period& period) { return period.from.financialYear(taxYearStart).label(); }

bool isReturned(const Document& document, const Period& period) {
    return GSTFigures::counts(document) && period.contains(document.issueDate);
}

std::size_t documentsIn(const Library& library, const Period& period) {
    return static_cast<std::size_t>(std::count_if(library.documents.begin(), library.documents.end(),
                                                  [&](const Document& d) { return isReturned(d, period); }));
}

/// The figures of a period that is not over will still grow.
std::string soFar(std::string text, const Deadline& deadline, Day today) {
    return today <= deadline.period.to ? text + " so far" : text;
}

void fillRegular(Deadline& deadline, const Library& library, Day today) {
    const GSTReturns::GSTR1 outward = GSTReturns::gstr1(library, deadline.period);
    const GSTReturns::GSTR3B summary = GSTReturns::gstr3b(library, outward);
    deadline.documents = documentsIn(library, deadline.period) - outward.outside.size() - outward.leftOut.size();
    Sum taxable;
    for (const std::int64_t part : {summary.taxed.taxable, summary.zeroRated.taxable, summary.nilRated})
        taxable.add(part);
    deadline.taxable = taxable.value();
    const std::string month = deadline.period.label();
    const std::string value = amount(library, deadline.taxable) + " taxable";
    if (deadline.kind == Kind::gstr1) {
        deadline.title = "GSTR-1 for " + month;
        deadline.note = "Where quarterly returns were chosen (QRMP), due on the 13th after the quarter.";
        const auto problems = GSTReturns::problems(library, outward);
        deadline.problems = static_cast<std::size_t>(std::count_if(problems.begin(), problems.end(), [](const auto& p) {
            return p.severity == GSTReturns::Problem::Severity::refused;
        }));
        const std::string held = counted(deadline.documents, "document", "documents") + " · " + value;
        deadline.holds = soFar(deadline.documents == 0 ? "Nil return" : held, deadline, today);
        return;
    }
    deadline.title = "GSTR-3B for " + month;
    deadline.note = "With this month’s input tax by the books; compare it with GSTR-2B.";
    deadline.payable = summary.setOff.cash.total();
    const bool nil = deadline.documents == 0 && summary.credit.total() == 0;
    const std::string pay = deadline.payable == 0 ? "nothing to pay" : amount(library, deadline.payable) + " to pay";
    deadline.holds = soFar(nil ? "Nil return" : value + " · " + pay, deadline, today);
}

void fillComposition(Deadline& deadline, const Library& library, Day today) {
    const GSTReturns::Composition figures = GSTReturns::composition(library, deadline.period);
    deadline.documents = figures.documentIDs.size();
    deadline.taxable = figures.turnover;
    deadline.problems = figures.outOfState.size() + figures.leftOut.size();
    const std::string value = amount(library, figures.turnover) + " turnover";
    if (deadline.kind == Kind::cmp08) {
        deadline.title = "CMP-08 for " + monthsOf(deadline.period);
        deadline.note = "At the 6 % of services; restaurants pay 5 %, traders and makers of goods 1 %.";
        Sum tax;
        tax.add(figures.cgst), tax.add(figures.sgst);
        deadline.payable = std::max<std::int64_t>(0, tax.value());
        deadline.holds = value + " · " + amount(library, deadline.payable) + " to pay";
    } else {
        deadline.title = "GSTR-4 for " + yearOf(deadline.period);
        deadline.note = "The year’s tax was paid with CMP-08.";
        deadline.holds = value;
    }
    deadline.holds = soFar(deadline.documents == 0 ? "Nil return" : deadline.holds, deadline, today);
}

void fillAdvanceTax(Deadline& deadline, const Rule& rule, const Library& library, Day today) {
    const Reports reports{library, today};
    Sum profit;
    profit.add(reports.income(IncomeBasis::accrual, deadline.period));
    profit.subtract(reports.spending(deadline.period));
    deadline.taxable = profit.value();
    deadline.title = "Advance tax for " + yearOf(deadline.period) + ", up to " + std::to_string(rule.percent) + " %";
    deadline.holds = amount(library, deadline.taxable) + " profit so far";
    if (const std::int64_t tds = TDS::year(library, deadline.period.from.y).total; tds != 0)
        deadline.holds += " · " + amount(library, tds) + " TDS";
    deadline.note =
        rule.percent == 100 ? "Presumptive income: the whole tax at once. " : "Presumptive income: only on 15 March. ";
    deadline.note += "None below ₹10,000 after TDS.";
}

/// False where nobody needs the letter.
bool fillUndertaking(Deadline& deadline, const Library& library) {
    const Period before{deadline.period.from.addingMonths(-12), deadline.period.from.addingDays(-1)};
    deadline.documents = static_cast<std::size_t>(
        std::count_if(library.documents.begin(), library.documents.end(), [&](const Document& document) {
            const bool under = document.supply == SupplyType::exportLUT || document.supply == SupplyType::sezLUT;
            return under && document.kind == DocKind::invoice && isReturned(document, before);
        }));
    if (deadline.documents == 0) return false;
    deadline.title = "Letter of undertaking for " + yearOf(deadline.period);
    deadline.holds = counted(deadline.documents, "invoice", "invoices") + " this year under ";
    const std::string reference(Text::trim(library.business.lutReference));
    deadline.holds += reference.empty() ? "a letter without its number in Settings" : reference;
    deadline.problems = reference.empty() ? 1 : 0;
    deadline.note = "Form RFD-11, before the year’s first export or supply to an SEZ without tax.";
    return true;
}

/// False where there is nothing to keep.
bool fill(Deadline& deadline, const Rule& rule, const Library& library, Day today) {
    switch (rule.kind) {
        case Kind::gstr1:
        case Kind::gstr3b:
            fillRegular(deadline, library, today);
            return true;
        case Kind::cmp08:
        case Kind::gstr4:
            fillComposition(deadline, library, today);
            return true;
        case Kind::advanceTax:
            fillAdvanceTax(deadline, rule, library, today);
            return true;
        case Kind::lut:
            return fillUndertaking(deadline, library);
    }
    return false;
}

}  // namespace

std::string_view word(Kind kind) {
    static constexpr std::array<std::string_view, 6> words{"gstr1", "gstr3b", "cmp08", "gstr4", "advanceTax", "lut"};
    return words[static_cast<std::size_t>(kind)];
}

const std::vector<Rule>& table() {
    using enum Kind;
    static constexpr std::string_view section211 = "Income-tax Act 1961, section 211";
    static constexpr std::string_view section408 = "Income-tax Act 2025, section 408";
    static const std::vector<Rule> rules{
        {gstr1, {2021, 1, 1}, {}, 1, 1, 11, 0, "Notification 83/2020-Central Tax"},
        {gstr3b, {2021, 1, 1}, {}, 1, 1, 20, 0, "CGST Rules 2017, rule 61(1)(i)"},
        {cmp08, {2019, 4, 1}, {}, 3, 3, 18, 0, "CGST Rules 2017, rule 62(1)(i)"},
        {gstr4, {2019, 4, 1}, Day{2024, 3, 31}, 12, 12, 30, 0, "CGST Rules 2017, rule 62(1)(ii)"},
        {gstr4, {2024, 4, 1}, {}, 12, 14, 30, 0, "Notification 12/2024-Central Tax"},
        {advanceTax, {2016, 4, 1}, Day{2026, 3, 31}, 12, 2, 15, 15, section211},
        {advanceTax, {2016, 4, 1}, Day{2026, 3, 31}, 12, 5, 15, 45, section211},
        {advanceTax, {2016, 4, 1}, Day{2026, 3, 31}, 12, 8, 15, 75, section211},
        {advanceTax, {2016, 4, 1}, Day{2026, 3, 31}, 12, 11, 15, 100, section211},
        {advanceTax, {2026, 4, 1}, {}, 12, 2, 15, 15, section408},
        {advanceTax, {2026, 4, 1}, {}, 12, 5, 15, 45, section408},
        {advanceTax, {2026, 4, 1}, {}, 12, 8, 15, 75, section408},
        {advanceTax, {2026, 4, 1}, {}, 12, 11, 15, 100, section408},
        {lut, {2018, 4, 1}, {}, 12, -1, 31, 0, "CGST Rules 2017, rule 96A; Circular 8/8/2017-GST"},
    };
    return rules;
}

std::vector<Deadline> upcoming(const Library& library, Day today, int days) {
    const Day last = today.addingDays(days);
    std::vector<Deadline> result;
    for (const Rule& rule : table()) {
        if (!asksFor(library, rule.kind)) continue;
        // No rule lies further than 14 months after the first day of its period.
        Day from = today.addingMonths(-15).financialYear(taxYearStart).start();
        for (; from.addingMonths(-1) <= last; from = from.addingMonths(rule.length)) {
            if (from < rule.from || (rule.to && *rule.to < from)) continue;
            Day due = from.addingMonths(rule.after);
            due.d = rule.day;
            if (due < today || last < due) continue;
            Deadline deadline;
            deadline.kind = rule.kind;
            deadline.due = due;
            deadline.period = {from, from.addingMonths(rule.length).addingDays(-1)};
            if (fill(deadline, rule, library, today)) result.push_back(std::move(deadline));
        }
    }
    std::stable_sort(result.begin(), result.end(), [](const Deadline& a, const Deadline& b) {
        return std::tie(a.due, a.kind) < std::tie(b.due, b.kind);
    });
    return result;
}

}  // namespace tamba::Deadlines
