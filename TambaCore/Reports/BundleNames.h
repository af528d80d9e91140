#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>

namespace tamba {

/// Names for the files of a bundle that travels: whatever a vendor or a number is called, every common system can hold
/// the file, none leaves its folder, and no two are the same where case is ignored.
class BundleNames {
public:
    /// A name in `folder` ("Receipts/", or empty) that is not yet taken: `stem` made safe, "-2" and on where it is
    /// taken, then `extension` (".jpg"; left out where it is none).
    [[nodiscard]] std::string take(const std::string& folder, std::string_view stem, std::string_view extension);
    /// Without the characters and words that file systems reserve, in at most `bytes` bytes; never empty.
    [[nodiscard]] static std::string safe(std::string_view text, std::size_t bytes);

private:
    std::unordered_set<std::string> taken_;  // lower case
};

}  // namespace tamba
