#pragma once

namespace updates {

/// The public key that a program trusts, Ed25519 in base64; empty: none. Its definition is written
/// by the build, see cmake/LarkvoxUpdates.cmake. Constant: any thread.
extern const char* const updatePublicKey;

} // namespace updates
