#include "TambaCore/Base/SHA256.h"

#include "TambaCore/Base/Check.h"

#include <openssl/evp.h>

#include <array>

namespace tamba {

std::string sha256(std::string_view bytes) {
    std::array<unsigned char, 32> digest{};
    if (EVP_Digest(bytes.data(), bytes.size(), digest.data(), nullptr, EVP_sha256(), nullptr) != 1)
        fatal("SHA-256 is not to be had");
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : digest) text += {digits[byte >> 4U], digits[byte & 15U]};
    return text;
}

}  // namespace tamba
