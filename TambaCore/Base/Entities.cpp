#include "TambaCore/Base/Entities.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

namespace tamba::Entities {
namespace {

constexpr std::array<std::pair<std::string_view, char32_t>, 40> names{{
    {"amp", '&'},       {"apos", '\''},    {"bull", 0x2022},   {"cent", 0xa2},    {"copy", 0xa9},    {"dash", 0x2010},
    {"deg", 0xb0},      {"eacute", 0xe9},  {"emsp", 0x2003},   {"ensp", 0x2002},  {"euro", 0x20ac},  {"gt", '>'},
    {"hellip", 0x2026}, {"laquo", 0xab},   {"ldquo", 0x201c},  {"lsquo", 0x2018}, {"lt", '<'},       {"mdash", 0x2014},
    {"middot", 0xb7},   {"minus", 0x2212}, {"nbsp", 0xa0},     {"ndash", 0x2013}, {"ouml", 0xf6},    {"plus", '+'},
    {"pound", 0xa3},    {"quot", '"'},     {"raquo", 0xbb},    {"rdquo", 0x201d}, {"reg", 0xae},     {"rsquo", 0x2019},
    {"sect", 0xa7},     {"shy", 0xad},     {"thinsp", 0x2009}, {"times", 0xd7},   {"trade", 0x2122}, {"uuml", 0xfc},
    {"yen", 0xa5},      {"zwj", 0x200d},   {"zwnj", 0x200c},   {"zwsp", 0x200b},
}};

std::optional<char32_t> numbered(std::string_view digits) {
    const bool hex = digits.starts_with('x') || digits.starts_with('X');
    if (hex) digits.remove_prefix(1);
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, hex ? 16 : 10);
    if (error != std::errc{} || end != digits.data() + digits.size()) return {};
    const bool isCharacter = value != 0 && value <= 0x10ffff && (value < 0xd800 || value >= 0xe000);
    return isCharacter ? char32_t{value} : U'\uFFFD';
}

}  // namespace

std::optional<Entity> at(std::string_view text) {
    constexpr std::size_t longest = 12;
    const std::size_t end = text.substr(0, longest).find(';');
    if (!text.starts_with('&') || end == text.npos || end < 2) return {};
    const std::string_view name = text.substr(1, end - 1);
    if (name.front() == '#') {
        const auto code = numbered(name.substr(1));
        return code ? std::optional(Entity{*code, end + 1}) : std::nullopt;
    }
    const auto found = std::find_if(names.begin(), names.end(), [&](const auto& each) { return each.first == name; });
    return found != names.end() ? std::optional(Entity{found->second, end + 1}) : std::nullopt;
}

void appendUTF8(std::string& text, char32_t code) {
    const auto byte = [&](char32_t value) { text += static_cast<char>(static_cast<unsigned char>(value)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xc0 | code >> 6);
        byte(0x80 | (code & 0x3f));
    } else if (code < 0x10000) {
        byte(0xe0 | code >> 12);
        byte(0x80 | (code >> 6 & 0x3f));
        byte(0x80 | (code & 0x3f));
    } else {
        byte(0xf0 | code >> 18);
        byte(0x80 | (code >> 12 & 0x3f));
        byte(0x80 | (code >> 6 & 0x3f));
        byte(0x80 | (code & 0x3f));
    }
}

}  // namespace tamba::Entities
