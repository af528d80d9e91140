#include "TambaCore/Documents/Recurring.h"

#include "TambaCore/Documents/Expenses.h"

#include <algorithm>
#include <unordered_set>

namespace tamba::Recurring {
namespace {

constexpr std::size_t mostAtOnce = 1000;

struct Occurrence {
    Day date;
    std::size_t recurring;  ///< its place in the list
};

Day after(const RecurringExpense& recurring, Day day) {
    return nextDate(recurring.frequency, day, recurring.anchorDay);
}

/// Every occurrence up to `today`, by date; no more than are added at once.
std::vector<Occurrence> due(const Library& library, Day today) {
    std::vector<Occurrence> all;
    for (std::size_t i = 0; i < library.recurring.size(); ++i) {
        const RecurringExpense& recurring = library.recurring[i];
        if (recurring.paused) continue;
        const Day last = recurring.endDate ? std::min(*recurring.endDate, today) : today;
        Day date = recurring.nextDate;
        for (std::size_t n = 0; n < mostAtOnce && date <= last; ++n, date = after(recurring, date))
            all.push_back({date, i});
    }
    std::stable_sort(all.begin(), all.end(), [](const Occurrence& a, const Occurrence& b) { return a.date < b.date; });
    if (all.size() > mostAtOnce) all.resize(mostAtOnce);
    return all;
}

/// A copy of an expense without what belongs to that one purchase.
Expense copyOf(Expense expense, const UUID& id) {
    expense.id = id;
    expense.attachments.clear();
    expense.ocrText.reset();
    expense.check.reset();
    expense.bankTxnID.reset();
    expense.rebilledInvoiceID.reset();
    expense.recurringID.reset();
    return expense;
}

Expense expenseOn(const Library& library, const RecurringExpense& recurring, Day date, Instant now) {
    Expense expense = copyOf(recurring.template_, UUID::derived(recurring.id, date.iso()));
    expense.date = date;
    expense.recurringID = recurring.id;
    expense.createdAt = now;
    expense.rateMicros = library.rate(expense.currency).value_or(expense.rateMicros);
    return expense;
}

template <class Change>
Library changed(Library library, const UUID& id, Change&& change) {
    const std::size_t index = indexOf(library.recurring, id);
    if (index < library.recurring.size()) library.recurring.update(index, std::forward<Change>(change));
    return library;
}

}  // namespace

Day nextDate(Frequency frequency, Day day, int anchorDay) {
    if (frequency == Frequency::weekly) return day.addingDays(7);
    const int months = frequency == Frequency::monthly ? 1 : frequency == Frequency::quarterly ? 3 : 12;
    Day next = day.firstOfMonth().addingMonths(months);
    next.d = std::clamp(anchorDay, 1, Day::daysIn(next.y, next.m));
    return next;
}

Added addDue(Library library, Day today, Instant now) {
    Added result{std::move(library), 0};
    const std::vector<Occurrence> occurrences = due(result.library, today);
    if (occurrences.empty()) return result;
    // An expense made by repeating has its own id, so an occurrence is also known by its date.
    std::unordered_set<UUID> present;
    for (const Expense& expense : result.library.expenses) {
        present.insert(expense.id);
        if (expense.recurringID) present.insert(UUID::derived(*expense.recurringID, expense.date.iso()));
    }
    for (const auto& [date, index] : occurrences) {
        Library& books = result.library;
        Expense expense = expenseOn(books, books.recurring[index], date, now);
        books.recurring.update(index, [day = date](RecurringExpense& of) { of.nextDate = after(of, day); });
        if (!present.insert(expense.id).second) continue;
        books = Expenses::add(std::move(books), std::move(expense));
        ++result.count;
    }
    return result;
}

Library repeat(Library library, const UUID& expense, Frequency frequency) {
    const std::size_t index = indexOf(library.expenses, expense);
    if (index == library.expenses.size()) return library;
    const Expense& first = library.expenses[index];
    if (first.recurringID && find(library.recurring, *first.recurringID)) return library;
    RecurringExpense recurring;
    recurring.id = UUID::derived(expense, "recurring " + first.date.iso());
    recurring.template_ = copyOf(first, UUID::derived(expense, "template"));
    recurring.frequency = frequency;
    recurring.anchorDay = first.date.d;
    recurring.nextDate = after(recurring, first.date);
    library.expenses.update(index, [&](Expense& repeated) { repeated.recurringID = recurring.id; });
    return put(std::move(library), std::move(recurring));
}

Library setPaused(Library library, const UUID& recurring, bool paused, Day today) {
    return changed(std::move(library), recurring, [&](RecurringExpense& of) {
        if (of.paused && !paused)
            while (of.nextDate < today) of.nextDate = after(of, of.nextDate);
        of.paused = paused;
    });
}

Library remove(Library library, const UUID& recurring) {
    const std::size_t index = indexOf(library.recurring, recurring);
    if (index < library.recurring.size()) library.recurring.erase(index);
    return library;
}

Library put(Library library, RecurringExpense recurring) {
    recurring.anchorDay = std::clamp(recurring.anchorDay, 1, 31);
    const std::size_t index = indexOf(library.recurring, recurring.id);
    if (index == library.recurring.size())
        library.recurring.append(std::move(recurring));
    else
        library.recurring.update(index, [&](RecurringExpense& old) { old = std::move(recurring); });
    return library;
}

}  // namespace tamba::Recurring
