#pragma once

#include "TambaCore/Base/List.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <unordered_set>
#include <vector>

namespace tamba {

/// Places of records that only one of two versions of a list has; one that was altered is in both.
struct Difference {
    std::vector<std::size_t> gone, come;  ///< before, after; ascending
};

/// Nothing where more than `limit` records differ, or where they stand in another order.
template <class T>
[[nodiscard]] std::optional<Difference> difference(const List<T>& before, const List<T>& after, std::size_t limit) {
    Difference found;
    if (before.sharesAllWith(after)) return found;
    const std::size_t old = before.size(), now = after.size(), shorter = std::min(old, now);
    std::size_t head = 0, tail = 0;
    while (head < shorter && before.at(head) == after.at(head)) ++head;
    while (tail < shorter - head && before.at(old - 1 - tail) == after.at(now - 1 - tail)) ++tail;
    if (old == now) {
        for (std::size_t at = head; at < now - tail; ++at) {
            if (before.at(at) == after.at(at)) continue;
            if (found.come.size() == limit) return {};
            found.gone.push_back(at);
            found.come.push_back(at);
        }
        return found;
    }
    std::unordered_set<const T*> stay;
    for (std::size_t at = head; at < now - tail; ++at) stay.insert(after.at(at).get());
    std::vector<const T*> kept;
    for (std::size_t at = head; at < old - tail; ++at) {
        if (stay.contains(before.at(at).get()))
            kept.push_back(before.at(at).get());
        else
            found.gone.push_back(at);
    }
    std::size_t next = 0;
    for (std::size_t at = head; at < now - tail; ++at) {
        if (next < kept.size() && kept[next] == after.at(at).get())
            ++next;
        else
            found.come.push_back(at);
    }
    if (next < kept.size() || found.gone.size() > limit || found.come.size() > limit) return {};
    return found;
}

}  // namespace tamba
