#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Numbering.h"
#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/GSTRules.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace tamba::GSTReturns {
namespace {

using enum Problem::Severity;

class Finder {
public:
    Finder(const Library& library, const GSTR1& outward) : library_(library), outward_(outward) {}

    std::vector<Problem> find() {
        ofBusiness();
        std::map<std::string, const Document*> numbers;
        for (const Document& document : library_.documents) {
            if (document.kind == DocKind::estimate || !outward_.period.contains(document.issueDate)) continue;
            if (document.state == DocState::draft) add(look, document, "is still a draft. Only what is issued counts.");
            if (document.state == DocState::issued || document.state == DocState::void_) ofNumber(document, numbers);
            if (GSTFigures::counts(document)) ofDocument(document);
        }
        ofRuns();
        std::stable_sort(problems_.begin(), problems_.end(),
                         [](const Problem& a, const Problem& b) { return a.severity < b.severity; });
        return std::move(problems_);
    }

private:
    void add(Problem::Severity severity, std::string sentence) {
        problems_.push_back({severity, std::nullopt, std::move(sentence)});
    }
    void add(Problem::Severity severity, const Document& document, const std::string& end) {
        const std::string name = document.number
                                     ? *document.number
                                     : std::string(document.kind == DocKind::invoice ? "An invoice" : "A credit note") +
                                           " of " + document.issueDate.formatted("d MMM yyyy");
        problems_.push_back({severity, document.id, name + " " + end});
    }

    void ofBusiness() {
        const Business& business = library_.business;
        if (business.regime != TaxRegime::gstIndia)
            add(refused, "This return is for businesses under the regular GST regime.");
        if (Text::trim(business.taxID).empty())
            add(refused, "Your business details have no GSTIN.");
        else if (const auto problem = GSTIN::validate(business.taxID))
            add(refused, "Your own GSTIN is wrong. " + std::string(GSTIN::problemText(*problem)));
        if (library_.home().code != "INR")
            add(refused,
                "The return is in rupees, and the home currency of these books is " + library_.home().code + ".");
    }

    void ofNumber(const Document& document, std::map<std::string, const Document*>& numbers) {
        const std::string number = document.number.value_or("");
        if (number.empty()) return add(refused, document, "has no number.");
        if (!Numbering::isAllowed(number) || number.find_first_not_of("0-/") == std::string::npos)
            add(refused, document,
                "has a number the portal refuses: at most 16 letters, digits, “-” and “/”, and not only zeros.");
        const std::string key = std::string(document.kind == DocKind::invoice ? "I" : "C") + Text::upper(number);
        const auto [place, isFirst] = numbers.try_emplace(key, &document);
        if (!isFirst) add(refused, document, "has the number of another document; capitals make no difference.");
    }

    void ofDocument(const Document& document) {
        if (document.issueDate < GSTRules::firstDay) add(refused, document, "is dated before GST began.");
        if (document.supply == SupplyType::simple || document.supply == SupplyType::noTax)
            return add(look, document, "is no supply under GST, so it is not in this return.");
        const std::string gstin = GSTFigures::recipient(library_, document);
        if (GSTFigures::isSEZ(document.supply) && gstin.empty())
            return add(refused, document, "is to an SEZ without a valid GSTIN of the buyer, so it is left out.");
        const auto figures = GSTFigures::of(library_, document);
        if (!figures) return add(refused, document, leftOutReason(document));
        ofParty(document, gstin);
        ofPlace(document, figures->value, gstin);
        for (const RateGroup& rate : figures->rates) ofRate(document, rate);
        if (figures->rates.empty()) add(look, document, "comes to nothing, so no table holds it.");
        ofCodes(document, *figures, !gstin.empty());
        ofCredit(document);
    }

    std::string leftOutReason(const Document& document) const {
        if (DocMath::isBelievable(document) && document.rateMicros < 1)
            return "has no exchange rate, so it is left out.";
        return "has a figure that is too large to be right, so it is left out.";
    }

    void ofParty(const Document& document, const std::string& gstin) {
        const std::string typed(Text::trim(GSTFigures::party(library_, document).taxID));
        if (gstin.empty() && !typed.empty() && !GSTFigures::isExport(document.supply))
            add(look, document,
                "has “" + typed +
                    "” as the client’s GSTIN, which is not valid. It is reported as a sale to a consumer, and the "
                    "client gets no credit.");
    }

    void ofPlace(const Document& document, std::int64_t value, const std::string& gstin) {
        const auto own = library_.business.supplierState();
        const std::string place = GSTFigures::place(library_, document);
        if (document.supply != SupplyType::intraState && document.supply != SupplyType::interState) return;
        if (place.empty()) return add(refused, document, "has no place of supply.");
        if (!own) return;
        if (document.supply == SupplyType::intraState && place != *own)
            add(look, document, "charges CGST and SGST, but its place of supply is another state.");
        if (document.supply == SupplyType::interState && place == *own) {
            const bool large = value > GSTRules::value(GSTRules::Rule::largeConsumerLimit, document.issueDate);
            add(gstin.empty() && large ? refused : look, document,
                "charges IGST, but its place of supply is your own state.");
        }
    }

    void ofRate(const Document& document, const RateGroup& rate) {
        const std::string percent = MoneyFormat::rate(rate.rateBP);
        if (!GSTRules::isPortalRate(rate.rateBP))
            return add(refused, document, "has lines at " + percent + ", a rate the portal doesn’t know.");
        const TaxSplit whole = TaxSplit::compute(rate.taxable, rate.rateBP, document.supply);
        if (whole != rate.tax)
            add(look, document,
                "adds up its tax at " + percent + " line by line, which differs by " +
                    MoneyFormat::string(std::abs(whole.total() - rate.tax.total()), library_.home()) +
                    " from the tax on their sum. The portal has refused such differences.");
    }

    void ofCodes(const Document& document, const GSTFigures::Figures& figures, bool registered) {
        std::set<std::string> told;
        const auto least =
            static_cast<std::size_t>(GSTRules::value(GSTRules::Rule::minimumHSNDigits, outward_.period.to));
        for (const auto& row : figures.codes) {
            if (!told.insert(row.code).second) continue;
            if (row.code.empty()) {
                // Up to a turnover of five crore the part for consumers may be left out.
                add(registered ? refused : look, document, "has lines without an HSN or SAC code.");
                continue;
            }
            const bool isNumber = row.code.find_first_not_of("0123456789") == std::string::npos;
            const bool isOddService = row.code.starts_with("99") && row.code.size() != 4 && row.code.size() != 6;
            if (!isNumber || row.code.size() < least || row.code.size() > 8 || isOddService)
                add(refused, document,
                    "has the HSN or SAC code “" + row.code + "”, which the portal refuses: " + std::to_string(least) +
                        " to 8 digits, and 4 or 6 for services.");
        }
    }

    void ofCredit(const Document& document) {
        const Document* invoice =
            document.kind == DocKind::creditNote && document.linkedID ? library_.document(*document.linkedID) : nullptr;
        if (!invoice) return;
        // The law's year begins in April whatever the business's does.
        const int month = static_cast<int>(GSTRules::value(GSTRules::Rule::creditNoteMonth, document.issueDate));
        const Day last{invoice->issueDate.financialYear(4).startYear + 1, month, 30};
        if (last < document.issueDate)
            add(look, document,
                "came after " + last.formatted("d MMMM yyyy") + ", when the tax of " + invoice->displayNumber() +
                    " could last be reduced.");
    }

    void ofRuns() {
        for (const NumberRun& run : outward_.numbers) {
            if (run.missing == 0) continue;
            add(look, std::to_string(run.missing) + (run.missing == 1 ? " number" : " numbers") + " between " +
                          run.from + " and " + run.to + (run.missing == 1 ? " belongs" : " belong") +
                          " to no document of this period.");
        }
    }

    const Library& library_;
    const GSTR1& outward_;
    std::vector<Problem> problems_;
};

}  // namespace

std::vector<Problem> problems(const Library& library, const GSTR1& outward) { return Finder(library, outward).find(); }

}  // namespace tamba::GSTReturns
