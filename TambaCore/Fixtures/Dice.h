#pragma once

#include "TambaCore/Base/UUID.h"

#include <cstdint>
#include <string_view>

namespace tamba::Fixtures {

/// Numbers that look random and are the same on every run and machine (the SplitMix64 sequence).
class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed) {}
    /// Seeded by a text.
    explicit Dice(std::string_view seed) : state_(0xCBF29CE484222325U) {
        for (const char c : seed) state_ = (state_ ^ static_cast<std::uint8_t>(c)) * 0x100000001B3U;
    }

    std::uint64_t next() {
        std::uint64_t z = state_ += 0x9E3779B97F4A7C15U;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31);
    }
    /// 0 … sides − 1.
    std::int64_t below(std::int64_t sides) {
        return static_cast<std::int64_t>(next() % static_cast<std::uint64_t>(sides));
    }
    /// A version-4 identifier.
    UUID id() {
        UUID id;
        for (std::size_t half = 0; half < 2; ++half) {
            const std::uint64_t bits = next();
            for (std::size_t i = 0; i < 8; ++i) id.bytes[8 * half + i] = static_cast<std::uint8_t>(bits >> (8 * i));
        }
        id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0F) | 0x40);
        id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3F) | 0x80);
        return id;
    }

private:
    std::uint64_t state_;
};

}  // namespace tamba::Fixtures
