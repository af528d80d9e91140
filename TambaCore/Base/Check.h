#pragma once

#include <cstdint>
#include <optional>

namespace tamba {

/// Prints `why` to standard error and aborts. Only for mistakes in the program; bad input gets an error the user can
/// read.
[[noreturn]] void fatal(const char* why);

/// Integer arithmetic for money and everything that multiplies into it. Each stops the program where the result does
/// not fit: a wrapped amount would be a wrong figure that nobody notices.
namespace Checked {

[[nodiscard]] inline std::int64_t add(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(a, b, &result)) fatal("overflow in addition");
    return result;
}

[[nodiscard]] inline std::int64_t sub(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_sub_overflow(a, b, &result)) fatal("overflow in subtraction");
    return result;
}

[[nodiscard]] inline std::int64_t mul(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_mul_overflow(a, b, &result)) fatal("overflow in multiplication");
    return result;
}

/// The sum, or nothing where it does not fit: for figures that come from outside and may be left out.
[[nodiscard]] inline std::optional<std::int64_t> tryAdd(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(a, b, &result)) return std::nullopt;
    return result;
}

[[nodiscard]] inline std::int64_t neg(std::int64_t a) { return sub(0, a); }

}  // namespace Checked
}  // namespace tamba
