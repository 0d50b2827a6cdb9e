#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace updates::testing {

/// The public key of the tests, base64. Its secret half is in these sources, so no program that
/// people get may trust it.
inline constexpr const char* publicTestKey = LARKVOX_TEST_PUBLIC_KEY;

/// The signature of the tests over the bytes, base64.
[[nodiscard]] std::string testSignature(std::span<const std::byte> bytes);

/// The statement beside a feed, by the key of the tests.
[[nodiscard]] std::string testStatement(std::string_view feed, std::uint64_t serial = 1,
                                        std::chrono::days valid = std::chrono::days(7300));

} // namespace updates::testing
