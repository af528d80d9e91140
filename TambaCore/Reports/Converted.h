#pragma once

#include "TambaCore/Base/Check.h"
#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tamba {

/// Parts of one figure, each turned by `convert` (an amount to an optional amount) so that they add up to the whole
/// turned at once: each is the difference between two rounded sums. Nothing where `convert` gives nothing.
template <class Convert>
[[nodiscard]] std::optional<std::vector<std::int64_t>> convertedParts(const std::vector<std::int64_t>& parts,
                                                                      Convert&& convert) {
    std::vector<std::int64_t> result;
    std::int64_t sum = 0, before = 0;
    for (const std::int64_t part : parts) {
        sum = Checked::add(sum, part);
        const std::optional<std::int64_t> upTo = convert(sum);
        if (!upTo) return {};
        result.push_back(Checked::sub(*upTo, before));
        before = *upTo;
    }
    return result;
}

}  // namespace tamba
