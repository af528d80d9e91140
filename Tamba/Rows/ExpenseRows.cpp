#include "Tamba/Rows/ExpenseRows.h"

#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/Sentences.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"

#include <algorithm>
#include <compare>
#include <tuple>
#include <unordered_map>
#include <unordered_set>

namespace tamba {
namespace {

struct Status {
    std::string text, hint;
    Tone tone = Tone::none;
};

bool lacksRate(const Library& library, const Expense& expense) {
    return expense.rateMicros == 0 && expense.currency != library.business.homeCurrency;
}

bool lacksCategory(const Library& library, const Expense& expense) {
    return !expense.categoryID || !library.category(*expense.categoryID);
}

Status statusOf(const Library& library, const Expense& expense) {
    const auto attention = Expenses::attention(library, expense);
    if (!attention) {
        if (expense.rebilledInvoiceID)
            return {RowText::translate("Rows", "Billed"), RowText::translate("Rows", "Billed on to the client."),
                    Tone::neutral};
        if (expense.billable)
            return {RowText::translate("Rows", "Billable"),
                    RowText::translate("Rows", "To be billed on to the client."), Tone::neutral};
        return {};
    }
    if (lacksRate(library, expense))
        return {RowText::translate("Rows", "No rate"),
                RowText::translate("Rows", "Add the exchange rate to include this in reports."), Tone::danger};
    if (expense.check) return {RowText::translate("Rows", "Check"), Sentences::shown(*attention), Tone::warning};
    if (lacksCategory(library, expense) && expense.amount != 0)
        return {RowText::translate("Rows", "No category"), Sentences::shown(*attention), Tone::neutral};
    return {RowText::translate("Rows", "Check"), Sentences::shown(*attention), Tone::warning};
}

/// One expense with what it is compared and searched by.
struct Entry {
    const Expense* expense;
    const Category* category;
    Status status;
    std::int64_t home;  ///< amount in the home currency, for ordering by size
    Day date;           ///< of the expense, beside what is sorted: thousands are compared by it
};

bool fits(const Library& library, const Entry& entry, const std::vector<std::string>& words) {
    if (words.empty()) return true;
    const Expense& e = *entry.expense;
    const Currency currency = Currency::of(e.currency);
    std::string all = e.vendor + '\n' + e.notes + '\n' + e.vendorTaxID + '\n' + e.date.formatted("d MMM yyyy") + '\n' +
                      MoneyFormat::string(e.amount, currency) + '\n' + MoneyFormat::plain(e.amount, currency) + '\n' +
                      RowText::translate("Rows", title(e.method)) + '\n' + entry.status.text;
    if (entry.category) all += '\n' + entry.category->name;
    if (e.clientID)
        if (const Client* client = library.client(*e.clientID)) all += '\n' + client->name;
    if (e.projectID)
        if (const Project* project = library.project(*e.projectID)) all += '\n' + project->name;
    if (e.ocrText) all += '\n' + *e.ocrText;
    all = Text::lower(all);
    return std::all_of(words.begin(), words.end(),
                       [&all](const std::string& word) { return Text::contains(all, word); });
}

int compare(const Entry& a, const Entry& b, ExpenseOrder order) {
    const auto sign = [](auto x, auto y) { return x < y ? -1 : y < x ? 1 : 0; };
    switch (order) {
        case ExpenseOrder::vendor:
            return Text::compareForPeople(a.expense->vendor, b.expense->vendor);
        case ExpenseOrder::category:
            return Text::compareForPeople(a.category ? a.category->name : "", b.category ? b.category->name : "");
        case ExpenseOrder::amount:
            return sign(a.home, b.home);
        case ExpenseOrder::tax:
            return sign(a.expense->tax, b.expense->tax);
        case ExpenseOrder::method:
            return sign(a.expense->method, b.expense->method);
        case ExpenseOrder::status:
            return sign(a.status.text, b.status.text);
        case ExpenseOrder::date:
            break;
    }
    return 0;
}

/// What thousands of rows have in common, worked out once.
class Common {
public:
    const Currency& currency(const std::string& code) {
        const auto found = currencies_.find(code);
        return found == currencies_.end() ? currencies_.emplace(code, Currency::of(code)).first->second : found->second;
    }
    const std::string& text(Day day) {
        std::string& text = days_[day.number()];
        if (text.empty()) text = day.formatted("d MMM yyyy");
        return text;
    }

private:
    std::unordered_map<std::string, Currency> currencies_;
    std::unordered_map<std::int64_t, std::string> days_;
};

ExpenseRow rowOf(const Entry& entry, Common& common) {
    const Expense& e = *entry.expense;
    const Currency& currency = common.currency(e.currency);
    ExpenseRow row;
    row.id = e.id;
    row.date = common.text(e.date);
    row.vendor = e.vendor;
    row.amount = MoneyFormat::string(e.amount, currency);
    if (e.tax != 0) row.tax = MoneyFormat::string(e.tax, currency);
    row.method = RowText::translate("Rows", title(e.method));
    row.status = entry.status.text;
    row.hint = entry.status.hint;
    row.tone = entry.status.tone;
    row.receipt = !e.attachments.empty();
    if (entry.category) {
        row.category = entry.category->name;
        row.symbol = entry.category->symbol;
        row.colorHex = entry.category->colorHex;
    }
    return row;
}

}  // namespace

ExpenseTable expenseTable(const Library& library, const ExpenseFilter& filter) {
    std::unordered_map<UUID, const Category*> categories;
    for (const Category& category : library.categories) categories.emplace(category.id, &category);
    std::vector<std::string> words;
    for (const std::string& word : Text::split(Text::lower(Text::trim(filter.search)), ' '))
        if (!word.empty()) words.push_back(word);

    std::vector<Entry> entries;
    for (const Expense& expense : library.expenses) {
        if (filter.days && !filter.days->contains(expense.date)) continue;
        if (!belongsTo(library, expense, filter.list)) continue;
        const auto found = expense.categoryID ? categories.find(*expense.categoryID) : categories.end();
        Entry entry{&expense, found == categories.end() ? nullptr : found->second, statusOf(library, expense),
                    Expenses::inHomeCurrency(library, expense, expense.amount).value_or(0), expense.date};
        if (fits(library, entry, words)) entries.push_back(std::move(entry));
    }
    std::vector<const Entry*> sorted;
    sorted.reserve(entries.size());
    for (const Entry& entry : entries) sorted.push_back(&entry);
    std::sort(sorted.begin(), sorted.end(), [&filter](const Entry* a, const Entry* b) {
        if (const int order = compare(*a, *b, filter.order); order != 0)
            return filter.ascending ? order < 0 : order > 0;
        // Within equals the latest comes first; by date, as chosen.
        if (filter.order != ExpenseOrder::date || !filter.ascending) std::swap(a, b);
        if (a->date != b->date) return a->date < b->date;
        const auto key = [](const Expense& e) { return std::tie(e.createdAt, e.id); };
        return key(*a->expense) < key(*b->expense);
    });

    ExpenseTable table;
    std::int64_t total = 0, tax = 0;
    std::size_t leftOut = 0;
    table.rows.reserve(sorted.size());
    Common common;
    for (const Entry* entry : sorted) {
        const Expense& expense = *entry->expense;
        table.rows.push_back(rowOf(*entry, common));
        const auto home = Expenses::inHomeCurrency(library, expense, expense.amount);
        const auto claimed = Expenses::inHomeCurrency(library, expense, expense.tax);
        std::int64_t sum = 0;
        // Each is believable, yet thousands at the limit would not fit.
        if (!home || __builtin_add_overflow(total, *home, &sum)) {
            ++leftOut;
            continue;
        }
        total = sum;
        if (expense.claimTax && claimed && !__builtin_add_overflow(tax, *claimed, &sum)) tax = sum;
    }
    table.count =
        RowText::counted(entries.size(), RowText::marked("Rows", "1 expense"), RowText::marked("Rows", "%1 expenses"));
    table.total = MoneyFormat::string(total, library.home());
    table.tax = MoneyFormat::string(tax, library.home());
    if (leftOut > 0)
        table.leftOut = RowText::filled(RowText::translate("Rows", "%1 left out: no rate"), {std::to_string(leftOut)});
    return table;
}

bool belongsTo(const Library& library, const Expense& expense, ExpenseList list) {
    switch (list) {
        case ExpenseList::all:
            return true;
        case ExpenseList::toCheck:
            return expense.check.has_value();
        case ExpenseList::withoutCategory:
            return lacksCategory(library, expense);
        case ExpenseList::withoutRate:
            return lacksRate(library, expense);
        case ExpenseList::billable:
            return expense.billable && !expense.rebilledInvoiceID;
        case ExpenseList::mileage:
            return expense.kind == ExpenseKind::mileage;
        case ExpenseList::withoutReceipt:
            return expense.kind == ExpenseKind::regular && expense.attachments.empty() && expense.amount != 0;
    }
    return false;
}

ExpenseCounts countExpenses(const Library& library) {
    using enum ExpenseList;
    ExpenseCounts counts;
    const auto count = [&counts](ExpenseList list) { ++counts.lists[static_cast<std::size_t>(list)]; };
    std::unordered_set<UUID> categories;
    for (const Category& category : library.categories) categories.insert(category.id);
    for (const Expense& expense : library.expenses) {
        const bool noCategory = !expense.categoryID || !categories.contains(*expense.categoryID);
        const bool noRate = lacksRate(library, expense);
        if (noCategory) count(withoutCategory);
        if (noRate) count(withoutRate);
        if (noCategory || noRate) ++counts.incomplete;
        for (const ExpenseList list : {all, toCheck, billable, mileage, withoutReceipt})
            if (belongsTo(library, expense, list)) count(list);
    }
    return counts;
}

std::string_view title(ExpenseList list) {
    switch (list) {
        case ExpenseList::all:
            return RowText::marked("Rows", "Expenses");
        case ExpenseList::toCheck:
            return RowText::marked("Rows", "To check");
        case ExpenseList::withoutCategory:
            return RowText::marked("Rows", "No category");
        case ExpenseList::withoutRate:
            return RowText::marked("Rows", "No rate");
        case ExpenseList::billable:
            return RowText::marked("Rows", "Billable");
        case ExpenseList::mileage:
            return RowText::marked("Rows", "Mileage");
        case ExpenseList::withoutReceipt:
            return RowText::marked("Rows", "No receipt");
    }
    return {};
}

std::string_view title(PaymentMethod method) {
    switch (method) {
        case PaymentMethod::upi:
            return RowText::marked("Rows", "UPI");
        case PaymentMethod::card:
            return RowText::marked("Rows", "Card");
        case PaymentMethod::bank:
            return RowText::marked("Rows", "Bank transfer");
        case PaymentMethod::cash:
            return RowText::marked("Rows", "Cash");
        case PaymentMethod::pettyCash:
            return RowText::marked("Rows", "Petty cash");
        case PaymentMethod::cheque:
            return RowText::marked("Rows", "Cheque");
        case PaymentMethod::wallet:
            return RowText::marked("Rows", "Wallet");
        case PaymentMethod::other:
            return RowText::marked("Rows", "Other");
    }
    return {};
}

const std::vector<PaymentMethod>& allMethods() {
    static const std::vector<PaymentMethod> methods{
        PaymentMethod::upi,       PaymentMethod::card,   PaymentMethod::bank,   PaymentMethod::cash,
        PaymentMethod::pettyCash, PaymentMethod::cheque, PaymentMethod::wallet, PaymentMethod::other};
    return methods;
}

std::string splitText(const TaxSplit& split, const Currency& currency, const Business& business) {
    std::string result;
    const auto add = [&](std::string_view name, std::int64_t amount) {
        if (amount == 0) return;
        if (!result.empty()) result += " · ";
        result += std::string(name) + ' ' + MoneyFormat::string(amount, currency);
    };
    const auto state = IndianState::of(business.supplierState());
    add("CGST", split.cgst);
    add(state && state->utgst ? "UTGST" : "SGST", split.sgst);
    add("IGST", split.igst);
    add(RowText::translate("Rows", "Other tax"), split.other);
    return result;
}

std::optional<Period> daysOf(Span span, Day day, int fyStartMonth) {
    switch (span) {
        case Span::month:
            return Period::month(day);
        case Span::quarter:
            return Period::quarter(day, fyStartMonth);
        case Span::year:
            return Period::fy(day.financialYear(fyStartMonth));
        case Span::all:
            break;
    }
    return {};
}

std::string titleOf(Span span, Day day, int fyStartMonth) {
    const auto days = daysOf(span, day, fyStartMonth);
    switch (span) {
        case Span::month:
            return Sentences::months(day.formatted("MMMM yyyy"));
        case Span::quarter:
            return Sentences::months(days->from.formatted("MMM") + "–" + days->to.formatted("MMM yyyy"));
        case Span::year:
            return RowText::filled(RowText::translate("Rows", "FY %1"), {day.financialYear(fyStartMonth).label()});
        case Span::all:
            break;
    }
    return RowText::translate("Rows", "All time");
}

Day stepped(Span span, Day day, int steps) {
    switch (span) {
        case Span::month:
            return day.firstOfMonth().addingMonths(steps);
        case Span::quarter:
            return day.firstOfMonth().addingMonths(3 * steps);
        case Span::year:
            return day.firstOfMonth().addingMonths(12 * steps);
        case Span::all:
            break;
    }
    return day;
}

}  // namespace tamba
