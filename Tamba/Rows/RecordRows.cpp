#include "Tamba/Rows/RecordRows.h"

#include "Tamba/Rows/DocumentRows.h"
#include "Tamba/Rows/RowText.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Sum.h"
#include "TambaCore/Reports/TDS.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace tamba {
namespace {

using Measure = ReportRecords::Measure;

/// What one record gives to a figure is what the report says of books that hold nothing else.
Reports reportsOf(const Library& library, const Day& today) {
    Library one;
    one.business = library.business;
    return {std::move(one), today};
}

class Worth {
public:
    Worth(const Library& library, const ReportRecords& records)
        : library_(library), records_(records), standings_(library, records.period.to) {
        if (records_.measure != Measure::deducted) return;
        for (const TDS::Deduction& one : TDS::year(library, records.period.from.financialYear(4).startYear).deductions)
            deducted_[one.invoiceID] += one.tds;
    }

    [[nodiscard]] std::optional<std::int64_t> of(const Document& document) const {
        if (records_.measure == Measure::balance) {
            const auto balance = standings_.balance(document);
            return balance ? Books::inHomeCurrency(library_, document, *balance) : std::nullopt;
        }
        if (records_.measure == Measure::deducted) {
            const auto found = deducted_.find(document.id);
            return found == deducted_.end() ? std::nullopt : std::optional(found->second);
        }
        Reports reports = reportsOf(library_, document.issueDate);
        reports.lib.documents.append(document);
        const bool cash = records_.basis == IncomeBasis::cash;
        return reports.income(records_.basis, cash ? records_.period : Period{document.issueDate, document.issueDate});
    }
    [[nodiscard]] std::optional<std::int64_t> of(const Expense& expense) const {
        const std::int64_t amount = records_.measure == Measure::tax ? expense.tax : expense.cost();
        return MoneyMath::tryConvert(amount, Currency::of(expense.currency), library_.home(), expense.rateMicros);
    }
    /// In the document's own currency.
    [[nodiscard]] std::string own(const Document& document) const {
        if (records_.measure != Measure::own) return {};
        const auto standing = standings_.of(document);
        return standing ? MoneyFormat::string(standing->totals.total, Currency::of(document.currency)) : "";
    }

private:
    const Library& library_;
    const ReportRecords& records_;
    Books::Standings standings_;
    std::unordered_map<UUID, std::int64_t> deducted_;
};

/// "INV/26-27/007", on the cash basis with the day the money came.
std::string whatOf(const Document& document, const ReportRecords& records) {
    std::string text = document.displayNumber();
    if (document.kind == DocKind::creditNote) text += " · " + RowText::translate("Rows", "Credit note");
    if (document.state == DocState::void_) text += " · " + RowText::translate("Rows", "Void");
    if (records.basis != IncomeBasis::cash) return text;
    std::vector<Day> days;
    for (const Payment& payment : document.payments)
        if (records.period.contains(payment.date)) days.push_back(payment.date);
    if (days.size() == 1)
        text += " · " + RowText::filled(RowText::translate("Rows", "paid %1"), {days[0].formatted("d MMM yyyy")});
    if (days.size() > 1)
        text += " · " + RowText::filled(RowText::translate("Rows", "%1 payments"), {std::to_string(days.size())});
    return text;
}

}  // namespace

RecordTable recordTable(const Library& library, const ReportRecords& records) {
    RecordTable table;
    const Worth worth(library, records);
    Sum sum;
    std::size_t documents = 0;
    const auto add = [&](RecordRow row, std::optional<std::int64_t> amount, std::string own) {
        row.date = row.day.formatted("d MMM yyyy");
        if (amount) sum.add(*amount);
        row.amount = records.measure == Measure::own ? std::move(own)
                     : amount                        ? MoneyFormat::string(*amount, library.home())
                                                     : std::string();
        if (row.isDocument) ++documents;
        table.rows.push_back(std::move(row));
    };
    // A thousand records of a list of twenty thousand are not to be looked for one by one.
    std::unordered_map<UUID, const Document*> byID;
    for (const Document& document : library.documents) byID.emplace(document.id, &document);
    for (const UUID& id : records.documentIDs) {
        const auto found = byID.find(id);
        if (found == byID.end()) continue;
        const Document& document = *found->second;
        add({id, true, document.issueDate, {}, clientTitle(library, document), whatOf(document, records), {}},
            worth.of(document), worth.own(document));
    }
    std::unordered_map<UUID, const Expense*> expenses;
    for (const Expense& expense : library.expenses) expenses.emplace(expense.id, &expense);
    for (const UUID& id : records.expenseIDs) {
        const auto found = expenses.find(id);
        if (found == expenses.end()) continue;
        const Expense& expense = *found->second;
        const Category* category = expense.categoryID ? library.category(*expense.categoryID) : nullptr;
        add({id,
             false,
             expense.date,
             {},
             expense.vendor,
             category ? category->name : RowText::translate("Rows", "Uncategorised"),
             {}},
            worth.of(expense), MoneyFormat::string(expense.amount, Currency::of(expense.currency)));
    }
    std::stable_sort(table.rows.begin(), table.rows.end(),
                     [](const RecordRow& a, const RecordRow& b) { return b.day < a.day; });
    const std::size_t spent = table.rows.size() - documents;
    if (documents > 0)
        table.count =
            RowText::counted(documents, RowText::marked("Rows", "1 document"), RowText::marked("Rows", "%1 documents"));
    if (spent > 0)
        table.count +=
            (table.count.empty() ? "" : " · ") +
            RowText::counted(spent, RowText::marked("Rows", "1 expense"), RowText::marked("Rows", "%1 expenses"));
    // Income and spending beside each other make a profit, not a sum.
    if (records.addsUp && !table.rows.empty() && (documents == 0 || spent == 0))
        table.sum = MoneyFormat::string(sum.value(), library.home());
    return table;
}

}  // namespace tamba
