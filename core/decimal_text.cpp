#include "core/decimal_text.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>

namespace core {
namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::size_t skipDigits(std::string_view text, std::size_t from) {
    while (from < text.size() && isDigit(text[from])) {
        ++from;
    }
    return from;
}

struct Exponent {
    std::size_t end; // position behind it
    int value;       // between -10^8 and 10^8
};

// The exponent at `from`, or nothing when what stands there is none.
std::optional<Exponent> readExponent(std::string_view text, std::size_t from) {
    const bool hasSign = from < text.size() && (text[from] == '+' || text[from] == '-');
    const bool isNegative = hasSign && text[from] == '-';
    const std::size_t start = from + (hasSign ? 1 : 0);
    const std::size_t end = skipDigits(text, start);
    if (end == start) {
        return std::nullopt;
    }
    int value = 0;
    for (std::size_t i = start; i < end; ++i) {
        // What comes behind eight digits cannot change on which side of the range it ends.
        value = value < 10'000'000 ? value * 10 + (text[i] - '0') : value;
    }
    return Exponent{end, isNegative ? -value : value};
}

// Whether the digits (with a point among them) times ten to the exponent are 1 or more, for
// numbers that are far away from 1.
bool isLarge(std::string_view mantissa, int exponent) {
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) {
        return false;
    }
    const auto places = static_cast<std::ptrdiff_t>(point) - static_cast<std::ptrdiff_t>(first);
    return places + exponent > 0;
}

} // namespace

std::string fixedText(double value, std::int64_t decimalPlaces) {
    const auto places =
        static_cast<int>(std::clamp(decimalPlaces, std::int64_t{0}, maximumDecimalPlaces));
    // A sign, the digits of the largest number, a point.
    std::array<char, std::numeric_limits<double>::max_exponent10 + maximumDecimalPlaces + 8> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value,
                                      std::chars_format::fixed, places);
    return {text.data(), result.ptr};
}

std::string shortestText(float value) {
    std::array<char, 32> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
    std::string written(text.data(), result.ptr);
    if (written.find_first_not_of("-0123456789") == std::string::npos) {
        written += ".0";
    }
    return written;
}

std::optional<float> parseDecimal(std::string_view text) {
    const bool hasSign = !text.empty() && (text[0] == '+' || text[0] == '-');
    const bool isNegative = hasSign && text[0] == '-';
    const std::string_view number = text.substr(hasSign ? 1 : 0);

    std::size_t end = skipDigits(number, 0);
    std::size_t digits = end;
    if (end < number.size() && number[end] == '.') {
        const std::size_t behindPoint = skipDigits(number, end + 1);
        digits += behindPoint - end - 1;
        end = behindPoint;
    }
    if (digits == 0) {
        return std::nullopt;
    }
    const std::string_view mantissa = number.substr(0, end);
    int exponent = 0;
    if (end < number.size() && (number[end] == 'e' || number[end] == 'E')) {
        const auto read = readExponent(number, end + 1);
        if (!read) {
            return std::nullopt;
        }
        end = read->end;
        exponent = read->value;
    }
    if (end != number.size()) {
        return std::nullopt;
    }

    float value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        value = isLarge(mantissa, exponent) ? std::numeric_limits<float>::infinity() : 0.0F;
    }
    return isNegative ? -value : value;
}

} // namespace core
