#pragma once

#include <string>
#include <string_view>

namespace core {

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

    /// The service in use: the installed one, else the fallback.
    [[nodiscard]] static const TextService& current();

    /// Null goes back to the fallback. The service has to outlive every later use.
    static void install(const TextService* service);
};

} // namespace core
