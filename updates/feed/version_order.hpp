#pragma once

#include <compare>
#include <string_view>

// For any thread.
namespace updates {

/// The order of versions. The numbers between points are compared one by one, whatever their
/// length, and absent ones count 0: 1.9 < 1.10, 1.2 = 1.2.0. What begins with a letter or a hyphen
/// makes a pre-release, which comes before its release: 1.2b3 < 1.2b10 < 1.2-rc.1 < 1.2. Within
/// pre-releases digits are compared as numbers, letters in the alphabet's order without case, and
/// numbers come before letters. A "+" and what follows (the name of a build) does not count, nor
/// does a "v" before the first digit. An order for all texts, also for nonsense; linear time.
[[nodiscard]] std::strong_ordering compareVersions(std::string_view left, std::string_view right);

/// Whether a text can stand for a version, also as the name of a folder: it begins with a digit and
/// has up to 64 letters, digits and the signs . - _ +, with no two points in a row.
[[nodiscard]] bool isVersion(std::string_view text);

} // namespace updates
