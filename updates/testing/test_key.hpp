#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace platform::testing {

/// The public key of the tests, base64. Its secret half is in these sources, so no program that
/// people get may trust it.
inline constexpr const char* publicTestKey = LARKVOX_TEST_PUBLIC_KEY;

/// The signature of the tests over the bytes, base64.
[[nodiscard]] std::string testSignature(std::span<const std::byte> bytes);

} // namespace platform::testing
