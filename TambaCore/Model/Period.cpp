#include "TambaCore/Model/Period.h"

namespace tamba {

Period Period::fy(const FinancialYear& year) { return {year.start(), year.end()}; }

Period Period::month(const Day& day) { return {day.firstOfMonth(), day.lastOfMonth()}; }

Period Period::quarter(const Day& day, int fyStart) {
    const int start = day.financialYear(fyStart).startMonth;
    const Day first = day.firstOfMonth().addingMonths(-((day.m - start + 12) % 3));
    return {first, first.addingMonths(2).lastOfMonth()};
}

std::string Period::label() const {
    if (*this == month(from)) return from.formatted("MMMM yyyy");
    return from.formatted("d MMM yyyy") + " – " + to.formatted("d MMM yyyy");
}

}  // namespace tamba
