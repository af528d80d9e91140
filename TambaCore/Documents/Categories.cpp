#include "TambaCore/Documents/Categories.h"

#include <algorithm>
#include <vector>

namespace tamba::Categories {
namespace {

std::size_t count(const auto& list, const auto& uses) {
    return static_cast<std::size_t>(std::count_if(list.begin(), list.end(), uses));
}

}  // namespace

Use use(const Library& library, const UUID& category) {
    return {count(library.expenses, [&](const Expense& e) { return e.categoryID == category; }),
            count(library.recurring, [&](const RecurringExpense& r) { return r.template_.categoryID == category; }),
            count(library.rules, [&](const CategoryRule& r) { return r.categoryID == category; })};
}

Library remove(Library library, const UUID& category, const std::optional<UUID>& instead) {
    const std::size_t index = indexOf(library.categories, category);
    const bool toItself = instead == category;
    if (index == library.categories.size() || toItself || (instead && !library.category(*instead))) return library;
    library.categories.erase(index);
    for (std::size_t i = 0; i < library.expenses.size(); ++i)
        if (library.expenses[i].categoryID == category)
            library.expenses.update(i, [&](Expense& expense) { expense.categoryID = instead; });
    for (std::size_t i = 0; i < library.recurring.size(); ++i)
        if (library.recurring[i].template_.categoryID == category)
            library.recurring.update(i, [&](RecurringExpense& each) { each.template_.categoryID = instead; });
    for (std::size_t i = library.rules.size(); i-- > 0;) {
        if (library.rules[i].categoryID != category) continue;
        if (instead)
            library.rules.update(i, [&](CategoryRule& rule) { rule.categoryID = *instead; });
        else
            library.rules.erase(i);
    }
    return library;
}

}  // namespace tamba::Categories
