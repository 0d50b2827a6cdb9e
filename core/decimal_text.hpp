#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace core {

/// Numbers as text in the C locale, whatever the process's locale is: the separator is always a
/// point and nothing is grouped. Any thread.

/// The most decimal places `fixedText` writes. A 32-bit float has at most 149 of them that are
/// not zero, a 64-bit one 1,074.
inline constexpr std::int64_t maximumDecimalPlaces = 1100;

/// The number with exactly that many decimal places, as C's "%.*f" writes it: rounded from the
/// exact binary value, exact halves to even. "inf", "-inf", "nan" and "-nan" for what is no
/// number. Places are brought into 0…`maximumDecimalPlaces`.
[[nodiscard]] std::string fixedText(double value, std::int64_t decimalPlaces);

/// The shortest text that reads back as the same number, with at least one decimal place unless
/// it has an exponent: "7.0", "0.1", "1e+16".
[[nodiscard]] std::string shortestText(float value);

/// The nearest 32-bit float to a text that is wholly a decimal number: an optional sign, digits
/// with or without a point before, between or behind them, an optional exponent. Nothing for any
/// other text, which includes hexadecimal numbers, the words for infinity and NaN, white space
/// and NUL anywhere. As in C, a number too large for the type becomes an infinity and one too
/// small a zero, both with its sign.
[[nodiscard]] std::optional<float> parseDecimal(std::string_view text);

} // namespace core
