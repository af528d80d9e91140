#pragma once

#include "CorvexKit/UpdateFeed.h"

#include <sodium.h>

#include <string>
#include <string_view>

namespace tamba::testing {

/// A key made for one run of the tests.
class SigningKey {
public:
    SigningKey() {
        if (sodium_init() < 0) std::abort();
        crypto_sign_keypair(open_.data(), secret_.data());
    }
    [[nodiscard]] const UpdateKey& open() const { return open_; }
    /// The text of a signature file.
    [[nodiscard]] std::string sign(std::string_view bytes) const {
        std::array<unsigned char, crypto_sign_BYTES> mark;
        crypto_sign_detached(mark.data(), nullptr, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                             secret_.data());
        std::array<char, sodium_base64_ENCODED_LEN(crypto_sign_BYTES, sodium_base64_VARIANT_ORIGINAL)> text;
        sodium_bin2base64(text.data(), text.size(), mark.data(), mark.size(), sodium_base64_VARIANT_ORIGINAL);
        return std::string(text.data()) + '\n';
    }

private:
    UpdateKey open_;
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret_;
};

inline SHA256 sha256(std::string_view bytes) {
    SHA256 sum;
    crypto_hash_sha256(sum.data(), reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    return sum;
}

inline std::string hex(const SHA256& sum) {
    std::array<char, 2 * std::tuple_size_v<SHA256> + 1> text;
    return sodium_bin2hex(text.data(), text.size(), sum.data(), sum.size());
}

}  // namespace tamba::testing
