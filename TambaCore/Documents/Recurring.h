#pragma once

#include "TambaCore/Model/Models.h"

#include <cstddef>

/// Expenses that come again: rent, subscriptions. They are added on their day, at start and at midnight.
namespace tamba::Recurring {

struct Added {
    Library library;
    std::size_t count = 0;
};
/// Adds every occurrence up to `today`, each once, on its own date and in date order, never after the end date; paused
/// ones wait, and what fell due meanwhile is skipped when they go on. Months aim at `anchorDay` (31: the last day of a
/// shorter month, and 31 again after it). The id of an occurrence follows from the recurring expense and the date, so
/// that two machines that add the same one hold one record. At most 1,000 at once; the rest the next time.
[[nodiscard]] Added addDue(Library library, Day today, Instant now);
/// The date one step after `day` that aims at `anchorDay` (1–31) for months, quarters and years.
[[nodiscard]] Day nextDate(Frequency frequency, Day day, int anchorDay);

/// Makes an expense come again from its own date on; the expense itself is the first occurrence. One that comes again
/// already is left alone.
[[nodiscard]] Library repeat(Library library, const UUID& expense, Frequency frequency);
[[nodiscard]] Library setPaused(Library library, const UUID& recurring, bool paused, Day today);
/// Expenses already added stay.
[[nodiscard]] Library remove(Library library, const UUID& recurring);
[[nodiscard]] Library put(Library library, RecurringExpense recurring);

}  // namespace tamba::Recurring
