#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace core {

/// A part of a text, in bytes: from the first one to the one behind the last.
struct TextRange {
    std::size_t begin = 0;
    std::size_t end = 0;
    friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// What needs Unicode tables and the user's locale. The class itself is the plain fallback for
/// programs without a toolkit; the platform installs one that knows both. All texts are UTF-8.
/// Any thread, so an installed service must not change after it is installed.
class TextService {
  public:
    virtual ~TextService() = default;

    /// The text in lower case by the rules of the user's language. The fallback turns the letters
    /// A to Z and leaves everything else alone.
    [[nodiscard]] virtual std::string lowercase(std::string_view text) const;

    /// The number without decimal places, exact halves rounded to even, written as the user's
    /// locale writes numbers. The fallback writes what "%.f" does in the C locale: no grouping,
    /// "-0" for what rounds to zero from below, "inf", "-inf" and "nan".
    [[nodiscard]] virtual std::string localizedWholeNumber(double value) const;

    /// Whether the character is a letter, a mark or a number of any script. The fallback knows A to
    /// Z, a to z and 0 to 9.
    [[nodiscard]] virtual bool isAlphanumeric(char32_t character) const;

    /// The first place where `wanted` is found, whatever the case of its letters and whatever marks
    /// they carry; nothing when `wanted` is empty. The fallback looks at the case of A to Z.
    [[nodiscard]] virtual std::optional<TextRange>
    localizedStandardFind(std::string_view text, std::string_view wanted) const;

    /// A fixed text in the user's language, by the text itself. The fallback leaves it as it is.
    [[nodiscard]] virtual std::string translate(const char* context, const char* text) const;

    /// The service in use: the installed one, else the fallback.
    [[nodiscard]] static const TextService& current();

    /// Null goes back to the fallback. The service has to outlive every later use.
    static void install(const TextService* service);
};

} // namespace core
