#include "CorvexKit/Version.h"

#include <charconv>

namespace tamba {

std::optional<Version> Version::read(std::string_view text) {
    Version version;
    int* const parts[] = {&version.major, &version.minor, &version.patch};
    const char* at = text.data();
    const char* const end = at + text.size();
    for (int* part : parts) {
        if (part != parts[0] && (at == end || *at++ != '.')) return {};
        const char* const start = at;
        const auto [stop, error] = std::from_chars(at, end, *part);
        const bool padded = stop - start > 1 && *start == '0';
        if (error != std::errc() || *start == '-' || padded || stop - start > 4) return {};
        at = stop;
    }
    return at == end ? std::optional(version) : std::nullopt;
}

std::string Version::text() const {
    return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(patch);
}

}  // namespace tamba
