#include "TambaCore/Base/UUID.h"

#include "TambaCore/Base/Check.h"

#include <sys/random.h>

namespace tamba {

namespace {

constexpr bool hyphenBefore(std::size_t byte) { return byte == 4 || byte == 6 || byte == 8 || byte == 10; }

/// What each byte is worth as a hexadecimal digit; 0xFF where it is none. Opening the books reads millions of them.
constexpr auto hexDigits = [] {
    std::array<std::uint8_t, 256> worth{};
    worth.fill(0xFF);
    for (std::uint8_t i = 0; i < 10; ++i) worth[static_cast<std::size_t>('0' + i)] = i;
    for (std::uint8_t i = 0; i < 6; ++i)
        worth[static_cast<std::size_t>('A' + i)] = worth[static_cast<std::size_t>('a' + i)] =
            static_cast<std::uint8_t>(10 + i);
    return worth;
}();

void mark(UUID& id, std::uint8_t version) {
    id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0F) | (version << 4));
    id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3F) | 0x80);
}

}  // namespace

UUID UUID::random() {
    UUID id;
    if (getrandom(id.bytes.data(), id.bytes.size(), 0) != static_cast<ssize_t>(id.bytes.size()))
        fatal("the system gives no random numbers");
    mark(id, 4);
    return id;
}

UUID UUID::derived(const UUID& from, std::string_view text) {
    using Wide = unsigned __int128;
    constexpr Wide prime = (Wide{1} << 88) + 0x13B;
    Wide hash = (Wide{0x6C62272E07BB0142} << 64) + 0x62B821756295C58D;
    const auto mix = [&](std::uint8_t byte) { hash = (hash ^ byte) * prime; };
    for (const std::uint8_t byte : from.bytes) mix(byte);
    for (const char c : text) mix(static_cast<std::uint8_t>(c));
    // The last bytes barely reach the first digits, which is what lists show of an id; folded, they do.
    for (int round = 0; round < 2; ++round) hash = (hash ^ (hash >> 61)) * prime;
    hash ^= hash >> 67;
    UUID id;
    for (std::size_t byte = 16; byte-- > 0; hash >>= 8) id.bytes[byte] = static_cast<std::uint8_t>(hash);
    mark(id, 8);
    return id;
}

std::optional<UUID> UUID::parse(std::string_view text) {
    if (text.size() != 36) return std::nullopt;
    if (text[8] != '-' || text[13] != '-' || text[18] != '-' || text[23] != '-') return std::nullopt;
    constexpr std::array<std::uint8_t, 16> digitsAt{0, 2, 4, 6, 9, 11, 14, 16, 19, 21, 24, 26, 28, 30, 32, 34};
    UUID id;
    std::uint8_t wrong = 0;  // gathers the upper halves of all digits
    for (std::size_t byte = 0; byte < 16; ++byte) {
        const std::uint8_t high = hexDigits[static_cast<unsigned char>(text[digitsAt[byte]])];
        const std::uint8_t low = hexDigits[static_cast<unsigned char>(text[digitsAt[byte] + std::size_t{1}])];
        wrong = static_cast<std::uint8_t>(wrong | high | low);
        id.bytes[byte] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return wrong > 0x0F ? std::nullopt : std::optional(id);
}

std::string UUID::text() const {
    std::string text(36, '-');
    write(text.data());
    return text;
}

void UUID::write(char* out) const {
    constexpr char digits[] = "0123456789ABCDEF";
    for (std::size_t byte = 0; byte < 16; ++byte) {
        if (hyphenBefore(byte)) *out++ = '-';
        *out++ = digits[bytes[byte] >> 4];
        *out++ = digits[bytes[byte] & 15];
    }
}

}  // namespace tamba
