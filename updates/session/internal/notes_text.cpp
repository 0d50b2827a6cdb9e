#include "updates/session/internal/notes_text.hpp"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace updates::notes {
namespace {

constexpr std::size_t longestAddress = 2048; // bytes

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

struct Reference {
    std::string_view name;
    char character;
};
constexpr Reference references[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}};

/// The characters that an address may hide behind references to them; others make it invalid.
std::optional<std::string> decoded(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] != '&') {
            result += text[i++];
            continue;
        }
        const std::string_view ahead = text.substr(i + 1, longestReference);
        const std::size_t length = ahead.find(';');
        if (length == std::string_view::npos) {
            result += text[i++];
            continue;
        }
        const std::string_view name = ahead.substr(0, length);
        const auto named = std::ranges::find(references, name, &Reference::name);
        if (named != std::end(references)) {
            result += named->character;
        } else if (name.starts_with('#')) {
            const auto code = numberOf(name);
            if (!code || *code < 0x21 || *code > 0x7e) {
                return std::nullopt;
            }
            result += static_cast<char>(*code);
        } else {
            // "&name;" as the parameters of an address have it without being escaped.
            result += '&';
            ++i;
            continue;
        }
        i += name.size() + 2;
    }
    return result;
}

} // namespace

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isAlphanumeric(char c) {
    return isLetter(c) || (c >= '0' && c <= '9');
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}

void appendEscaped(std::string& to, char c) {
    switch (c) {
    case '<':
        to += "&lt;";
        break;
    case '>':
        to += "&gt;";
        break;
    case '"':
        to += "&quot;";
        break;
    case '&':
        to += "&amp;";
        break;
    default:
        to += c;
    }
}

std::optional<std::uint32_t> numberOf(std::string_view name) {
    if (!name.starts_with('#')) {
        return std::nullopt;
    }
    const bool isHex = name.starts_with("#x") || name.starts_with("#X");
    const std::string_view digits = name.substr(isHex ? 2 : 1);
    std::uint32_t code = 0;
    const auto [rest, fault] =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? 16 : 10);
    return fault == std::errc() && rest == digits.data() + digits.size() ? std::optional(code)
                                                                         : std::nullopt;
}

Character characterOf(std::string_view text) {
    const auto byte = [text](std::size_t i) -> std::uint32_t {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    };
    const std::uint32_t first = byte(0);
    const std::size_t length = first < 0x80    ? 1
                               : first >= 0xf0 ? 4
                               : first >= 0xe0 ? 3
                               : first >= 0xc2 ? 2
                                               : 0;
    std::uint32_t code = length < 2 ? first : first & (0x7fU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if (byte(i) >> 6U != 0b10) {
            return {};
        }
        code = (code << 6U) | (byte(i) & 0x3f);
    }
    constexpr std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    return code < least[length] ? Character() : Character{code, length};
}

std::string utf8Of(std::uint32_t code) {
    const auto tail = [code](unsigned shift) {
        return static_cast<char>(0x80U | ((code >> shift) & 0x3fU));
    };
    if (code < 0x80) {
        return {static_cast<char>(code)};
    }
    if (code < 0x800) {
        return {static_cast<char>(0xc0U | (code >> 6U)), tail(0)};
    }
    if (code < 0x10000) {
        return {static_cast<char>(0xe0U | (code >> 12U)), tail(6), tail(0)};
    }
    return {static_cast<char>(0xf0U | (code >> 18U)), tail(12), tail(6), tail(0)};
}

bool isShown(std::uint32_t code) {
    return code < 0x80
               ? (code >= 0x20 && code != 0x7f) || (code > 0 && isSpace(static_cast<char>(code)))
               : code >= 0xa0 && code <= 0x10ffff && (code < 0xd800 || code >= 0xe000) &&
                     (code < 0x202a || code > 0x202e) && (code < 0x2066 || code > 0x2069) &&
                     code != 0xfffc && code != 0xfeff;
}

std::uint32_t scriptOf(std::uint32_t code) {
    constexpr std::uint32_t eastAsian = 1;
    if (code < 0x530 || (code >= 0x1e00 && code < 0x2100)) {
        return 0;
    }
    const bool isEastAsian =
        (code >= 0x2e80 && code < 0xa000) || (code >= 0xac00 && code < 0xd800) ||
        (code >= 0xf900 && code < 0xfb00) || (code >= 0xfe30 && code < 0xfe50) ||
        (code >= 0xff00 && code < 0xfff0) || (code >= 0x20000 && code < 0x32000);
    return isEastAsian ? eastAsian : code < 0x2e80 ? code >> 7U : code >> 11U;
}

std::optional<std::string> safeAddress(std::string_view text) {
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    const auto address = decoded(text.substr(0, longestAddress * longestReference));
    if (!address || address->size() > longestAddress) {
        return std::nullopt;
    }
    const std::string start = lowered(address->substr(0, 8));
    if (!start.starts_with("https://") && !start.starts_with("http://") &&
        !start.starts_with("mailto:")) {
        return std::nullopt;
    }
    std::string result;
    for (const char c : *address) {
        if (const auto byte = static_cast<unsigned char>(c); byte <= 0x20 || byte >= 0x7f) {
            return std::nullopt;
        }
        appendEscaped(result, c);
    }
    return result;
}

} // namespace updates::notes
