#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace tamba {

/// A version of a program, "1.0.1". Its text is safe as the name of a folder.
struct Version {
    int major = 0;
    int minor = 0;
    int patch = 0;
    auto operator<=>(const Version&) const = default;

    /// Exactly three numbers from 0 to 9999 with dots between them and no leading zeros; nothing for any other text.
    [[nodiscard]] static std::optional<Version> read(std::string_view text);
    [[nodiscard]] std::string text() const;
};

}  // namespace tamba
