#include "driftwood/text/formatter.hpp"

#include "core/decimal_text.hpp"
#include "core/text_service.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace driftwood {
namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";
constexpr int mostFractionDigits = 15;

constexpr char32_t noCharacter = 0xFFFFFFFF;

/// Takes the first character off a text that is not empty; `noCharacter` for bytes that are none.
char32_t takeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(0);
    const std::size_t length = first < 0x80               ? 1
                               : (first & 0xE0U) == 0xC0U ? 2
                               : (first & 0xF0U) == 0xE0U ? 3
                               : (first & 0xF8U) == 0xF0U ? 4
                                                          : 0;
    if (length == 0 || length > text.size()) {
        text.remove_prefix(1);
        return noCharacter;
    }
    char32_t character = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) {
            text.remove_prefix(1);
            return noCharacter;
        }
        character = (character << 6U) | (byte(i) & 0x3FU);
    }
    text.remove_prefix(length);
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = character >= 0xD800 && character < 0xE000;
    return character < smallest[length] || isSurrogate || character > 0x10FFFF ? noCharacter
                                                                               : character;
}

bool hasOnlyNameCharacters(std::string_view text) {
    const core::TextService& service = core::TextService::current();
    while (!text.empty()) {
        const char32_t character = takeCharacter(text);
        const bool isExtra =
            character == U'$' || character == U'_' || character == U'-' || character == U'.';
        if (character == noCharacter || (!isExtra && !service.isAlphanumeric(character))) {
            return false;
        }
    }
    return true;
}

/// The text has no place for an argument, so that the prefix it is given shows nowhere.
std::string nameError() {
    //: Error message shown when user-entered constant name contains invalid characters
    return core::TextService::current().translate(
        "driftwood::ConstantNameFormatter",
        "Constant names must only contain A-Z, a-z, 0-9 and the characters _ and $");
}

const std::string* textOf(const FieldValue& value) {
    return std::get_if<std::string>(&value);
}

bool isExpression(const std::string* text) {
    return text != nullptr && !parseNumber(*text);
}

} // namespace

std::optional<double> parseNumber(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const bool isHexadecimal =
        text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    if (isHexadecimal) {
        text.remove_prefix(2);
    }
    if (text.empty() || text[0] == '-' || text[0] == '+') {
        return std::nullopt;
    }
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [read, error] =
        std::from_chars(text.data(), end, value,
                        isHexadecimal ? std::chars_format::hex : std::chars_format::general);
    if (read != end || error == std::errc::invalid_argument) {
        return std::nullopt;
    }
    // A hexadecimal number has no words.
    if (isHexadecimal && !std::isfinite(value)) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range) {
        // Too large or too small; which of the two is not said.
        const std::size_t exponent = text.find_first_of(isHexadecimal ? "pP" : "eE");
        const bool isSmall = (exponent != std::string_view::npos &&
                              text.substr(exponent).find('-') != std::string_view::npos) ||
                             (exponent == std::string_view::npos && text.find('.') < text.size() &&
                              text.find_first_not_of('0') >= text.find('.'));
        value = isSmall ? 0 : std::numeric_limits<double>::infinity();
    }
    return isNegative ? -value : value;
}

std::optional<std::string>
ConstantNameFormatter::stringForObjectValue(const FieldValue& value) const {
    const std::string* const text = textOf(value);
    if (text == nullptr) {
        return std::nullopt;
    }
    return text->starts_with(requiredPrefix_) ? *text : requiredPrefix_ + *text;
}

std::optional<std::string>
ConstantNameFormatter::editingStringForObjectValue(const FieldValue& value) const {
    const std::string* const text = textOf(value);
    if (text == nullptr) {
        return std::nullopt;
    }
    const auto prefix = core::TextService::current().localizedStandardFind(*text, requiredPrefix_);
    return prefix ? text->substr(prefix->end) : *text;
}

FormatterResult ConstantNameFormatter::objectValueForString(std::string_view text) const {
    return hasOnlyNameCharacters(text) ? FormatterResult{FieldValue(std::string(text)), {}}
                                       : FormatterResult{std::nullopt, nameError()};
}

PartialFormatterResult ConstantNameFormatter::isPartialStringValid(std::string_view text) const {
    return hasOnlyNameCharacters(text) ? PartialFormatterResult{true, std::string(text), {}}
                                       : PartialFormatterResult{false, {}, nameError()};
}

void NumberFormatter::setMaximumFractionDigits(int digits) {
    maximumFractionDigits_ = std::clamp(digits, 0, mostFractionDigits);
}

std::optional<std::string> NumberFormatter::stringForObjectValue(const FieldValue& value) const {
    const auto* const number = std::get_if<double>(&value);
    if (number == nullptr || !std::isfinite(*number)) {
        return std::nullopt;
    }
    std::string text = core::fixedText(*number, maximumFractionDigits_);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.ends_with('.')) {
            text.pop_back();
        }
    }
    return text == "-0" ? "0" : text;
}

FormatterResult NumberFormatter::objectValueForString(std::string_view text) const {
    if (isLenient_) {
        const std::size_t first = text.find_first_not_of(whiteSpace);
        text = first == std::string_view::npos
                   ? std::string_view()
                   : text.substr(first, text.find_last_not_of(whiteSpace) + 1 - first);
    }
    if (const auto number = parseNumber(text); number && std::isfinite(*number)) {
        return {FieldValue(*number), {}};
    }
    //: Error message shown when a number is wanted and the user has entered something else
    return {std::nullopt, core::TextService::current().translate("driftwood::NumberFormatter",
                                                                 "This is not a finite number")};
}

ExpressionFormatter::ExpressionFormatter() {
    setFormatterBehavior(FormatterBehavior::default_);
    setLenient(true);
}

std::optional<std::string>
ExpressionFormatter::stringForObjectValue(const FieldValue& value) const {
    const std::string* const text = textOf(value);
    if (isExpression(text)) {
        return *text;
    }
    std::optional<std::string> shown = text != nullptr
                                           ? std::optional(*text) // no number formats a text
                                           : NumberFormatter::stringForObjectValue(value);
    const std::string& suffix = positiveSuffix();
    if (formatterBehavior() != FormatterBehavior::behavior10_0 && shown && !shown->empty() &&
        !suffix.empty() && !shown->ends_with(suffix)) {
        *shown += suffix;
    }
    return shown;
}

std::optional<std::string>
ExpressionFormatter::editingStringForObjectValue(const FieldValue& value) const {
    const std::string* const text = textOf(value);
    if (isExpression(text)) {
        return *text;
    }
    std::optional<std::string> edited =
        text != nullptr ? std::optional(*text) : NumberFormatter::stringForObjectValue(value);
    if (formatterBehavior() != FormatterBehavior::behavior10_0 && edited) {
        if (const auto suffix =
                core::TextService::current().localizedStandardFind(*edited, positiveSuffix())) {
            edited->erase(suffix->begin);
        }
    }
    return edited;
}

FormatterResult ExpressionFormatter::objectValueForString(std::string_view text) const {
    return parseNumber(text) ? NumberFormatter::objectValueForString(text)
                             : FormatterResult{FieldValue(std::string(text)), {}};
}

} // namespace driftwood
