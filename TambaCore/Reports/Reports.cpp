#include "TambaCore/Reports/Reports.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Sum.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <unordered_map>
#include <utility>

namespace tamba {
namespace {

bool isIssued(const Document& document, DocKind kind) {
    return document.kind == kind && document.state == DocState::issued;
}

bool isBooked(const Document& document) {
    return isIssued(document, DocKind::invoice) || isIssued(document, DocKind::creditNote);
}

std::vector<const Document*> issued(const Library& library, DocKind kind) {
    std::vector<const Document*> result;
    for (const Document& document : library.documents)
        if (isIssued(document, kind)) result.push_back(&document);
    return result;
}

/// What an expense costs, in the home currency.
std::optional<std::int64_t> cost(const Library& library, const Expense& expense) {
    if (!isBelievable(expense.amount) || !isBelievable(expense.tax)) return {};
    return Expenses::inHomeCurrency(library, expense, expense.cost());
}

std::optional<std::int64_t> taxable(const Library& library, const Document& document) {
    if (!DocMath::isBelievable(document)) return {};
    return Books::inHomeCurrency(library, document, DocMath::sums(document).taxable);
}

/// What `use` is told of one piece of income: the day it counts on, the amount, and the document.
using UseIncome = std::function<void(const Day&, std::int64_t, const Document&)>;

void eachAccrual(const Library& library, const Period& period, const UseIncome& use) {
    for (const Document& document : library.documents) {
        if (!isBooked(document) || !period.contains(document.issueDate)) continue;
        const auto amount = taxable(library, document);
        if (!amount) continue;
        const bool adds = document.kind == DocKind::invoice;
        use(document.issueDate, adds ? *amount : Checked::neg(*amount), document);
    }
}

void eachReceived(const Library& library, const Period& period, const UseIncome& use) {
    for (const Document& invoice : library.documents) {
        const auto& payments = invoice.payments;
        const auto isInside = [&](const Payment& payment) { return period.contains(payment.date); };
        if (!isIssued(invoice, DocKind::invoice) || std::none_of(payments.begin(), payments.end(), isInside)) continue;
        if (!DocMath::isBelievable(invoice)) continue;
        const DocTotals sums = DocMath::sums(invoice);
        if (sums.total < 1) continue;
        for (const Payment& payment : payments) {
            if (!isInside(payment)) continue;
            const std::int64_t share = MoneyMath::mulDiv(payment.settles(), sums.taxable, sums.total);
            if (const auto amount = Books::inHomeCurrency(library, invoice, share)) use(payment.date, *amount, invoice);
        }
    }
}

void eachIncome(const Library& library, IncomeBasis basis, const Period& period, const UseIncome& use) {
    basis == IncomeBasis::accrual ? eachAccrual(library, period, use) : eachReceived(library, period, use);
}

template <class Use>
void eachCost(const Library& library, const Period& period, Use&& use) {
    for (const Expense& expense : library.expenses)
        if (period.contains(expense.date))
            if (const auto amount = cost(library, expense)) use(expense, *amount);
}

template <class Row>
void sortByAmount(std::vector<Row>& rows) {
    std::stable_sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.amount > b.amount; });
}

/// Groups in the order in which their keys are first seen.
template <class Key, class Group>
class Groups {
public:
    Group& operator[](const Key& key) {
        const auto [place, isNew] = index_.try_emplace(key, groups_.size());
        if (isNew) groups_.emplace_back();
        return groups_[place->second];
    }
    [[nodiscard]] std::vector<Group>& all() { return groups_; }

private:
    std::unordered_map<Key, std::size_t> index_;
    std::vector<Group> groups_;
};

}  // namespace

const std::vector<IncomeBasis>& allIncomeBases() {
    static const std::vector<IncomeBasis> bases{IncomeBasis::accrual, IncomeBasis::cash};
    return bases;
}

std::string_view word(IncomeBasis basis) { return basis == IncomeBasis::accrual ? "accrual" : "cash"; }

std::string_view title(IncomeBasis basis) {
    return basis == IncomeBasis::accrual ? "By invoice date" : "By payment received";
}

std::string_view footnote(IncomeBasis basis) {
    return basis == IncomeBasis::accrual
               ? "Income is the taxable value of invoices issued in each month, less credit notes. Expenses count net "
                 "of tax you reclaim."
               : "Income is the taxable share of payments received (TDS included) in each month.";
}

std::int64_t MonthRow::profit() const { return Checked::sub(income, expenses); }

std::vector<const Document*> Reports::issuedInvoices() const { return issued(lib, DocKind::invoice); }

std::vector<const Document*> Reports::issuedCredits() const { return issued(lib, DocKind::creditNote); }

std::vector<const Expense*> Reports::expenses(const Period& period) const {
    std::vector<const Expense*> result;
    for (const Expense& expense : lib.expenses)
        if (period.contains(expense.date)) result.push_back(&expense);
    return result;
}

std::int64_t Reports::income(IncomeBasis basis, const Period& period) const {
    Sum sum;
    eachIncome(lib, basis, period, [&sum](const Day&, std::int64_t amount, const Document&) { sum.add(amount); });
    return sum.value();
}

std::int64_t Reports::spending(const Period& period) const {
    Sum sum;
    eachCost(lib, period, [&sum](const Expense&, std::int64_t amount) { sum.add(amount); });
    return sum.value();
}

std::vector<MonthRow> Reports::months(IncomeBasis basis, const FinancialYear& year) const {
    std::vector<MonthRow> rows;
    for (const Day& month : year.months()) rows.emplace_back().month = month;
    std::array<Sum, 12> income, spent;
    // One pass over the books, not twelve.
    const auto within = [&year](const Day& day, auto&& use) {
        const int index = (day.y - year.startYear) * 12 + day.m - year.startMonth;
        if (index >= 0 && index < 12) use(static_cast<std::size_t>(index));
    };
    eachIncome(lib, basis, Period::fy(year), [&](const Day& day, std::int64_t amount, const Document& document) {
        within(day, [&](std::size_t index) {
            income[index].add(amount);
            auto& ids = rows[index].documentIDs;
            if (ids.empty() || ids.back() != document.id) ids.push_back(document.id);
        });
    });
    eachCost(lib, Period::fy(year), [&](const Expense& expense, std::int64_t amount) {
        within(expense.date, [&](std::size_t index) {
            spent[index].add(amount);
            rows[index].expenseIDs.push_back(expense.id);
        });
    });
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].income = income[i].value();
        rows[i].expenses = spent[i].value();
    }
    return rows;
}

std::vector<CategoryRow> Reports::byCategory(const Period& period) const {
    struct Group {
        std::optional<UUID> categoryID;
        Sum sum;
        std::vector<UUID> expenseIDs;
    };
    Groups<std::optional<UUID>, Group> groups;
    eachCost(lib, period, [&groups](const Expense& expense, std::int64_t amount) {
        Group& group = groups[expense.categoryID];
        group.categoryID = expense.categoryID;
        group.sum.add(amount);
        group.expenseIDs.push_back(expense.id);
    });
    std::vector<CategoryRow> rows;
    for (Group& group : groups.all()) {
        CategoryRow row{group.categoryID, "Uncategorised", "questionmark", "8A8174", group.sum.value(), 0, {}};
        if (const Category* category = group.categoryID ? lib.category(*group.categoryID) : nullptr)
            row.name = category->name, row.symbol = category->symbol, row.colorHex = category->colorHex;
        row.count = static_cast<int>(group.expenseIDs.size());
        row.expenseIDs = std::move(group.expenseIDs);
        rows.push_back(std::move(row));
    }
    sortByAmount(rows);
    return rows;
}

std::vector<ClientRow> Reports::byClient(const Period& period) const {
    struct Group {
        std::string name;
        Sum sum;
        std::vector<UUID> documentIDs;
    };
    Groups<std::string, Group> groups;
    for (const Document& invoice : lib.documents) {
        if (!isIssued(invoice, DocKind::invoice) || !period.contains(invoice.issueDate)) continue;
        const auto amount = taxable(lib, invoice);
        if (!amount) continue;
        const std::string name = clientNameOf(lib, invoice);
        Group& group = groups[name];
        group.name = name;
        group.sum.add(*amount);
        group.documentIDs.push_back(invoice.id);
    }
    std::vector<ClientRow> rows;
    for (Group& group : groups.all())
        rows.push_back({std::move(group.name), group.sum.value(), std::move(group.documentIDs)});
    sortByAmount(rows);
    return rows;
}

std::int64_t Reports::outstanding() const {
    const Books::Standings standings(lib, today);
    Sum sum;
    for (const Document* invoice : issuedInvoices())
        if (const auto balance = standings.balance(*invoice))
            sum.add(Books::inHomeCurrency(lib, *invoice, *balance).value_or(0));
    return sum.value();
}

std::vector<AgingRow> Reports::aging() const {
    struct Bucket {
        const char* label;
        std::int64_t to;  ///< most days past due
        Sum sum;
        std::vector<UUID> documentIDs;
    };
    std::array<Bucket, 5> buckets{{{"Not yet due", 0, {}, {}},
                                   {"1–30 days", 30, {}, {}},
                                   {"31–60 days", 60, {}, {}},
                                   {"61–90 days", 90, {}, {}},
                                   {"Over 90 days", std::numeric_limits<std::int64_t>::max(), {}, {}}}};
    const Books::Standings standings(lib, today);
    for (const Document* invoice : issuedInvoices()) {
        const auto balance = standings.balance(*invoice);
        if (!balance || *balance < 1) continue;
        const auto amount = Books::inHomeCurrency(lib, *invoice, *balance);
        if (!amount) continue;
        const std::int64_t days = invoice->dueDate.daysUntil(today);
        const auto bucket =
            std::find_if(buckets.begin(), buckets.end(), [days](const Bucket& b) { return days <= b.to; });
        bucket->sum.add(*amount);
        bucket->documentIDs.push_back(invoice->id);
    }
    std::vector<AgingRow> rows;
    for (Bucket& bucket : buckets) {
        const int count = static_cast<int>(bucket.documentIDs.size());
        rows.push_back({bucket.label, bucket.sum.value(), count, std::move(bucket.documentIDs)});
    }
    return rows;
}

std::vector<const Document*> Reports::overdue() const {
    const Books::Standings standings(lib, today);
    std::vector<const Document*> result;
    for (const Document* invoice : issuedInvoices())
        if (invoice->dueDate < today && standings.balance(*invoice).value_or(0) >= 1) result.push_back(invoice);
    std::stable_sort(result.begin(), result.end(),
                     [](const Document* a, const Document* b) { return a->dueDate < b->dueDate; });
    return result;
}

std::vector<const Expense*> Reports::unbilled() const {
    std::vector<const Expense*> result;
    for (const Expense& expense : lib.expenses)
        if (expense.billable && !expense.rebilledInvoiceID) result.push_back(&expense);
    return result;
}

std::int64_t Reports::unbilledTotal() const {
    Sum sum;
    for (const Expense* expense : unbilled())
        sum.add(Expenses::inHomeCurrency(lib, *expense, expense->amount).value_or(0));
    return sum.value();
}

LeftOut Reports::leftOut(const std::optional<Period>& period) const {
    const Books::Standings standings(lib, today);
    const auto concerns = [&period](const Day& day) { return !period || period->contains(day); };
    LeftOut result;
    for (const Document& document : lib.documents) {
        if (!isBooked(document)) continue;
        const auto& payments = document.payments;
        if (!concerns(document.issueDate) &&
            std::none_of(payments.begin(), payments.end(), [&](const Payment& p) { return concerns(p.date); }))
            continue;
        if (!taxable(lib, document) || (!period && !standings.balance(document)))
            result.documents.push_back(document.id);
    }
    for (const Expense& expense : lib.expenses)
        if (concerns(expense.date) && !cost(lib, expense)) result.expenses.push_back(expense.id);
    return result;
}

std::string clientNameOf(const Library& library, const Document& document) {
    const Client* client = document.clientID ? library.client(*document.clientID) : nullptr;
    if (client) return client->name;
    return document.billTo && !document.billTo->name.empty() ? document.billTo->name : "No client";
}

}  // namespace tamba
