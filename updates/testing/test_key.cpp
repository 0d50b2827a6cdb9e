#include "updates/testing/test_key.hpp"

#include "updates/feed/signed_feed.hpp"

#include <sodium.h>

#include <array>
#include <cstdlib>
#include <string_view>

namespace updates::testing {
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

std::string testStatement(std::string_view feed, std::uint64_t serial, std::chrono::days valid) {
    FeedStatement statement{
        serial,
        std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()) + valid,
        {}};
    const std::string bytes = signedBytes(statement, std::as_bytes(std::span(feed)));
    statement.signature = testSignature(std::as_bytes(std::span(bytes)));
    return feedStatementText(statement);
}

} // namespace updates::testing
