#pragma once

#include <algorithm>
#include <cstdint>

namespace tamba {

/// A sum of amounts that cannot overflow: thousands of believable records may together pass 64 bits. What is beyond
/// ±4 × 10^18 reads as that limit, so that the difference of two sums fits too.
class Sum {
public:
    static constexpr std::int64_t limit = 4'000'000'000'000'000'000;

    void add(std::int64_t amount) { value_ += amount; }
    void subtract(std::int64_t amount) { value_ -= amount; }
    [[nodiscard]] std::int64_t value() const {
        return static_cast<std::int64_t>(std::clamp<Wide>(value_, -limit, limit));
    }

private:
    __extension__ using Wide = __int128;
    Wide value_ = 0;
};

}  // namespace tamba
