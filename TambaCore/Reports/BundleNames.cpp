#include "TambaCore/Reports/BundleNames.h"

#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>

namespace tamba {
namespace {

/// Room for "-2", the extension and the folders above, on systems that hold 255 bytes a name.
constexpr std::size_t longestStem = 150;

bool isReserved(char32_t c) {
    if (c < 0x20 || (c >= 0x7F && c < 0xA0)) return true;
    // Line separators, and marks that turn the direction of what follows: a name must read as it is.
    if ((c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069)) return true;
    return c < 0x80 && std::string_view("/\\:*?\"<>|").find(static_cast<char>(c)) != std::string_view::npos;
}

/// Devices of Windows, whatever follows a dot.
bool isDevice(std::string_view name) {
    const std::string first = Text::upper(Text::trim(name.substr(0, name.find('.'))));
    static constexpr std::array<std::string_view, 6> words{"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    if (std::find(words.begin(), words.end(), first) != words.end()) return true;
    return first.size() == 4 && (first.starts_with("COM") || first.starts_with("LPT")) && first[3] >= '0' &&
           first[3] <= '9';
}

std::string_view trimmed(std::string_view text) {
    while (true) {
        const std::string_view shorter = Text::trim(Text::trim(text), ".");
        if (shorter.size() == text.size()) return text;
        text = shorter;
    }
}

std::string safeExtension(std::string_view extension) {
    const bool isOne = extension.size() >= 2 && extension.size() <= 10 && extension[0] == '.' &&
                       std::all_of(extension.begin() + 1, extension.end(), [](char c) {
                           return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
                       });
    return isOne ? std::string(extension) : "";
}

}  // namespace

std::string BundleNames::safe(std::string_view text, std::size_t bytes) {
    const std::string whole = Text::repairedUTF8(text);
    std::string kept;
    for (std::size_t at = 0; at < whole.size();) {
        const std::size_t begin = at;
        if (isReserved(Text::codePoint(whole, at)))
            kept += '-';
        else
            kept.append(whole, begin, at - begin);
    }
    std::string name(trimmed(Text::prefixBytes(trimmed(kept), bytes)));
    if (name.empty()) return "file";
    return isDevice(name) ? "_" + name : name;
}

std::string BundleNames::take(const std::string& folder, std::string_view stem, std::string_view extension) {
    const std::string name = folder + safe(stem, longestStem), ending = safeExtension(extension);
    for (int n = 1;; ++n) {
        std::string whole = name + (n == 1 ? "" : "-" + std::to_string(n)) + ending;
        if (taken_.insert(Text::lower(whole)).second) return whole;
    }
}

}  // namespace tamba
