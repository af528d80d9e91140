#include "Tamba/Rows/ExpenseRows.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"

#include <algorithm>
#include <unordered_map>

namespace tamba {

namespace {

using CategoriesByID = std::unordered_map<UUID, const Category*>;

/// The few words that fit the table for what wants a look; the sentence goes to the tooltip.
std::string shortStatus(const Library& library, const Expense& expense, bool attention, bool hasCategory) {
    if (expense.check) return "Check";
    if (expense.currency != library.business.homeCurrency && expense.rateMicros == 0) return "No rate";
    if (attention) return "Look";
    if (!hasCategory && expense.kind == ExpenseKind::regular) return "No category";
    if (expense.rebilledInvoiceID) return "Billed";
    if (expense.billable) return "Billable";
    return "";
}

bool wantsLook(const Expense& expense, const std::optional<std::string>& attention, bool hasCategory) {
    return attention || expense.check || (!hasCategory && expense.kind == ExpenseKind::regular);
}

/// What a search looks through, once for each row.
bool contains(const Library& library, const Expense& expense, const Category* category, const std::string& searched) {
    const auto in = [&](std::string_view text) { return Text::contains(Text::lower(text), searched); };
    if (in(expense.vendor) || in(expense.notes) || in(expense.vendorTaxID)) return true;
    if (category && in(category->name)) return true;
    if (in(MoneyFormat::string(expense.amount, Currency::of(expense.currency)))) return true;
    if (in(MoneyFormat::plain(expense.amount, Currency::of(expense.currency)))) return true;
    if (const Project* project = expense.projectID ? library.project(*expense.projectID) : nullptr;
        project && in(project->name))
        return true;
    if (const Client* client = expense.clientID ? library.client(*expense.clientID) : nullptr;
        client && in(client->name))
        return true;
    for (const Attachment& attachment : expense.attachments)
        if (in(attachment.originalName)) return true;
    return expense.ocrText && in(*expense.ocrText);
}

struct Entry {
    const Expense* expense;
    const Category* category;
    std::optional<std::int64_t> homeAmount;
};

/// Negative, zero or positive, as columns are sorted.
int compare(const Entry& a, const Entry& b, ExpenseColumn column) {
    const auto order = [](const auto& x, const auto& y) { return x < y ? -1 : y < x ? 1 : 0; };
    switch (column) {
        case ExpenseColumn::vendor:
            return Text::compareForPeople(a.expense->vendor, b.expense->vendor);
        case ExpenseColumn::category:
            return Text::compareForPeople(a.category ? a.category->name : "", b.category ? b.category->name : "");
        case ExpenseColumn::amount:
            return order(a.homeAmount.value_or(0), b.homeAmount.value_or(0));
        case ExpenseColumn::tax:
            return order(a.expense->tax, b.expense->tax);
        case ExpenseColumn::method:
            return order(a.expense->method, b.expense->method);
        case ExpenseColumn::receipt:
            return order(a.expense->attachments.size(), b.expense->attachments.size());
        case ExpenseColumn::date:
        case ExpenseColumn::status:
            break;
    }
    return order(a.expense->date, b.expense->date);
}

}  // namespace

const std::vector<std::string>& paymentMethodTitles() {
    static const std::vector<std::string> titles{"UPI",        "Card",   "Bank transfer", "Cash",
                                                 "Petty cash", "Cheque", "Wallet",        "Other"};
    return titles;
}

ExpenseTable expenseTable(const Library& library, const ExpenseFilter& filter) {
    CategoriesByID categories;
    for (const Category& category : library.categories) categories.emplace(category.id, &category);
    const std::string searched = Text::lower(Text::trim(filter.search));
    const Currency home = library.home();

    std::vector<Entry> entries;
    ExpenseTable table;
    std::int64_t total = 0;
    for (const Expense& expense : library.expenses) {
        if ((filter.from && expense.date < *filter.from) || (filter.to && *filter.to < expense.date)) continue;
        const auto place = expense.categoryID ? categories.find(*expense.categoryID) : categories.end();
        const Category* category = place == categories.end() ? nullptr : place->second;
        if (!searched.empty() && !contains(library, expense, category, searched)) continue;
        if (filter.onlyAttention && !wantsLook(expense, Expenses::attention(library, expense), category)) continue;
        const auto amount = Expenses::inHomeCurrency(library, expense, expense.amount);
        // A sum of believable figures only overflows past nine thousand of the largest; then it is no sum worth
        // showing.
        if (amount && isBelievable(total))
            total = Checked::add(total, *amount);
        else
            ++table.leftOut;
        entries.push_back({&expense, category, amount});
    }
    std::stable_sort(entries.begin(), entries.end(), [&](const Entry& a, const Entry& b) {
        const int order = compare(a, b, filter.sortedBy);
        if (order != 0) return filter.ascending ? order < 0 : order > 0;
        if (a.expense->date != b.expense->date) return b.expense->date < a.expense->date;
        return b.expense->createdAt < a.expense->createdAt;
    });

    table.rows.reserve(entries.size());
    for (const auto& [expense, category, homeAmount] : entries) {
        const Currency currency = Currency::of(expense->currency);
        const auto attention = Expenses::attention(library, *expense);
        ExpenseRow row;
        row.id = expense->id;
        row.date = expense->date.formatted("d MMM yyyy");
        row.vendor = expense->vendor;
        row.category = category ? category->name : "";
        row.symbol = category ? category->symbol : "questionmark";
        row.colorHex = category ? category->colorHex : "8A8174";
        row.amount = MoneyFormat::string(expense->amount, currency);
        row.tax = expense->tax == 0 ? "" : MoneyFormat::string(expense->tax, currency);
        row.method = expense->kind == ExpenseKind::mileage
                         ? MoneyFormat::quantity(expense->distanceMilli) + " " + library.business.distanceUnit
                         : paymentMethodTitles()[static_cast<std::size_t>(expense->method)];
        row.receipts = expense->attachments.size();
        row.attention = wantsLook(*expense, attention, category);
        row.status = shortStatus(library, *expense, attention.has_value(), category);
        row.explanation = attention ? *attention : row.attention ? "Choose a category." : "";
        table.rows.push_back(std::move(row));
    }
    table.total = MoneyFormat::string(total, home);
    return table;
}

std::size_t attentionCount(const Library& library) {
    std::size_t count = 0;
    for (const Expense& expense : library.expenses)
        if (wantsLook(expense, Expenses::attention(library, expense),
                      expense.categoryID && library.category(*expense.categoryID)))
            ++count;
    return count;
}

std::vector<NamedPeriod> periods(Day today, int fyStart) {
    std::vector<NamedPeriod> result{{"All time", {}, {}}};
    const Day month = today.firstOfMonth();
    const auto add = [&](std::string name, Day first, int months) {
        result.push_back({std::move(name), first, first.addingMonths(months).addingDays(-1)});
    };
    add(month.formatted("MMMM yyyy"), month, 1);
    add(month.addingMonths(-1).formatted("MMMM yyyy"), month.addingMonths(-1), 1);
    const FinancialYear year = today.financialYear(fyStart);
    const auto into = (std::int64_t{today.y} * 12 + today.m) - (std::int64_t{year.startYear} * 12 + year.startMonth);
    const Day quarter = year.start().addingMonths(into / 3 * 3);
    for (const Day& first : {quarter, quarter.addingMonths(-3)})
        add(first.formatted("MMM") + " – " + first.addingMonths(2).formatted("MMM yyyy"), first, 3);
    for (int back = 0; back < 3; ++back)
        add("Year " + FinancialYear{year.startYear - back, year.startMonth}.label(),
            FinancialYear{year.startYear - back, year.startMonth}.start(), 12);
    return result;
}

}  // namespace tamba
