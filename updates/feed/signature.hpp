#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace updates {

/// Why a signature does not vouch for bytes.
enum class SignatureFault {
    missing,   ///< there is none
    malformed, ///< not 64 bytes in base64
    wrong,     ///< of other bytes, or made with another key
    badKey,    ///< the public key is not one
};

/// Verifies an Ed25519 signature over all the bytes. Signature (64 bytes) and public key (32 bytes)
/// are in base64 with padding and nothing else. Any thread; takes time: some 200 MiB a second.
[[nodiscard]] std::optional<SignatureFault> verifySignature(std::span<const std::byte> bytes,
                                                            std::string_view base64Signature,
                                                            std::string_view base64PublicKey);

/// Whether a text has the form of a signature.
[[nodiscard]] bool isSignature(std::string_view base64Signature);

/// Whether a text is a public key.
[[nodiscard]] bool isPublicKey(std::string_view base64PublicKey);

} // namespace updates
