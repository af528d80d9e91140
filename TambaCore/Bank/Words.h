#pragma once

#include <string_view>
#include <vector>

/// How narrations and names come apart.
namespace tamba::Matcher {

/// Runs of letters and digits in any script, views into the text.
[[nodiscard]] std::vector<std::string_view> pieces(std::string_view text);
/// A word in small letters that tells nothing about who was paid.
[[nodiscard]] bool isNoise(std::string_view lowerWord);

}  // namespace tamba::Matcher
