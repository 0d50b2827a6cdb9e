#include "platform/updates/testing/test_key.hpp"

#include <sodium.h>

#include <array>
#include <cstdlib>
#include <string_view>

namespace platform::testing {
namespace {

using SecretKey = std::array<unsigned char, crypto_sign_SECRETKEYBYTES>;

SecretKey makeSecretKey() {
    constexpr std::string_view seed = "seed of the updater tests, no. 1";
    static_assert(seed.size() == crypto_sign_SEEDBYTES);
    std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> publicKey{};
    SecretKey secretKey{};
    if (sodium_init() < 0 ||
        crypto_sign_seed_keypair(publicKey.data(), secretKey.data(),
                                 reinterpret_cast<const unsigned char*>(seed.data())) != 0) {
        std::abort();
    }
    return secretKey;
}

} // namespace

std::string testSignature(std::span<const std::byte> bytes) {
    static const SecretKey secretKey = makeSecretKey();
    std::array<unsigned char, crypto_sign_BYTES> signature{};
    crypto_sign_detached(signature.data(), nullptr,
                         reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                         secretKey.data());
    std::string text(sodium_base64_ENCODED_LEN(signature.size(), sodium_base64_VARIANT_ORIGINAL),
                     '\0');
    sodium_bin2base64(text.data(), text.size(), signature.data(), signature.size(),
                      sodium_base64_VARIANT_ORIGINAL);
    text.pop_back(); // the terminating zero
    return text;
}

} // namespace platform::testing
