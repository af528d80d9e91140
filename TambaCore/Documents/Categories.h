#pragma once

#include "TambaCore/Model/Models.h"

#include <cstddef>
#include <optional>
#include <string>

/// Keeping the categories of expenses in order.
namespace tamba::Categories {

struct Use {
    std::size_t expenses = 0, recurring = 0, rules = 0;
    bool operator==(const Use&) const = default;
};
[[nodiscard]] Use use(const Library& library, const UUID& category);

/// The books without the category. What was filed under it is filed under `instead`, or under none; its rules then go,
/// since a rule must name a category. Unchanged where there is no such category.
[[nodiscard]] Library remove(Library library, const UUID& category, const std::optional<UUID>& instead);

}  // namespace tamba::Categories
