#pragma once

// The characters and addresses of release notes, which come from outside. No state: any thread.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace updates::notes {

/// Bytes that a reference to a character, such as "&#x0041;", has at most after its "&".
inline constexpr std::size_t longestReference = 12;

/// What HTML takes for space, whatever the locale.
[[nodiscard]] bool isSpace(char c);
/// A to Z in either case.
[[nodiscard]] bool isLetter(char c);
/// A letter or a digit, in ASCII.
[[nodiscard]] bool isAlphanumeric(char c);
/// With A to Z in lower case; every other byte as it is.
[[nodiscard]] std::string lowered(std::string_view text);

/// Appends a byte so that it means itself in text and in a quoted attribute.
void appendEscaped(std::string& to, char c);

/// The character that "#65" or "#x41" stands for; nothing for any other name.
[[nodiscard]] std::optional<std::uint32_t> numberOf(std::string_view name);

/// A character, and of how many bytes it is; 0 where a text begins with none.
struct Character {
    std::uint32_t code = 0;
    std::size_t length = 0;
};

/// The first character of a text that should be UTF-8 and is not empty.
[[nodiscard]] Character characterOf(std::string_view text);
/// A character, at most 0x10ffff, in UTF-8.
[[nodiscard]] std::string utf8Of(std::uint32_t code);

/// Whether a character is one, and does not hide or turn what is around it.
[[nodiscard]] bool isShown(std::uint32_t code);
/// Which typeface a character takes, roughly; 0 for what every one has.
[[nodiscard]] std::uint32_t scriptOf(std::uint32_t code);

/// An address that may be opened, escaped; nothing when it may not.
[[nodiscard]] std::optional<std::string> safeAddress(std::string_view text);

} // namespace updates::notes
