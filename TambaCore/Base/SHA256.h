#pragma once

#include <string>
#include <string_view>

namespace tamba {

/// The SHA-256 of these bytes (FIPS 180-4) as 64 lower-case hex digits.
[[nodiscard]] std::string sha256(std::string_view bytes);

}  // namespace tamba
