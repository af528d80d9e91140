#pragma once

#include <string>
#include <string_view>

namespace tamba {

/// A country or territory by its ISO code, in a language: ("US", "hi") is "संयुक्त राज्य". The code itself where it is
/// unknown.
[[nodiscard]] std::string countryName(std::string_view code, const char* language);

}  // namespace tamba
