#include "updates/feed/signature.hpp"

#include <sodium.h>

#include <array>

namespace updates {
namespace {

/// Exactly that many bytes from base64 with padding; nothing for anything else.
template<std::size_t Size>
std::optional<std::array<unsigned char, Size>> decoded(std::string_view base64) {
    std::array<unsigned char, Size> bytes{};
    std::size_t size = 0;
    if (base64.size() != (Size + 2) / 3 * 4 ||
        sodium_base642bin(bytes.data(), bytes.size(), base64.data(), base64.size(), nullptr, &size,
                          nullptr, sodium_base64_VARIANT_ORIGINAL) != 0 ||
        size != Size) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace

bool isSignature(std::string_view base64Signature) {
    return decoded<crypto_sign_BYTES>(base64Signature).has_value();
}

bool isPublicKey(std::string_view base64PublicKey) {
    const auto key = decoded<crypto_sign_PUBLICKEYBYTES>(base64PublicKey);
    return key && crypto_core_ed25519_is_valid_point(key->data()) == 1;
}

std::optional<SignatureFault> verifySignature(std::span<const std::byte> bytes,
                                              std::string_view base64Signature,
                                              std::string_view base64PublicKey) {
    if (base64Signature.empty()) {
        return SignatureFault::missing;
    }
    const auto signature = decoded<crypto_sign_BYTES>(base64Signature);
    if (!signature) {
        return SignatureFault::malformed;
    }
    if (!isPublicKey(base64PublicKey)) {
        return SignatureFault::badKey;
    }
    const auto key = decoded<crypto_sign_PUBLICKEYBYTES>(base64PublicKey);
    // Without the library's start nothing can be vouched for.
    if (sodium_init() < 0 ||
        crypto_sign_verify_detached(signature->data(),
                                    reinterpret_cast<const unsigned char*>(bytes.data()),
                                    bytes.size(), key->data()) != 0) {
        return SignatureFault::wrong;
    }
    return std::nullopt;
}

} // namespace updates
