#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tamba {

/// Identity of a record (RFC 4122). Records refer to each other by these, never by pointer.
struct UUID {
    std::array<std::uint8_t, 16> bytes{};

    /// A fresh version-4 identifier from the system's random source.
    [[nodiscard]] static UUID random();
    /// The same identifier for the same record and text, on every machine (RFC 9562, version 8). The hash behind it is
    /// FNV-1a of 128 bits: it keeps accidents apart, not forgers.
    [[nodiscard]] static UUID derived(const UUID& from, std::string_view text);
    /// Reads the 36-character form with hyphens, in either case; anything else gives nothing.
    [[nodiscard]] static std::optional<UUID> parse(std::string_view text);
    /// The 36-character form in upper case, as written in the books.
    [[nodiscard]] std::string text() const;
    /// Writes that form, 36 characters, to `out`.
    void write(char* out) const;

    auto operator<=>(const UUID&) const = default;
};

}  // namespace tamba

template <>
struct std::hash<tamba::UUID> {
    std::size_t operator()(const tamba::UUID& id) const noexcept {
        std::uint64_t halves[2];
        std::memcpy(halves, id.bytes.data(), sizeof halves);
        return static_cast<std::size_t>(halves[0] ^ (halves[1] * 0x9E3779B97F4A7C15ULL));
    }
};
