#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

// Texts and the values that they stand for. All texts are UTF-8; bytes that are none are kept as
// they are, and nothing throws because of them. Only the standard library is used. Main thread.
namespace driftwood {

/// What a field holds: nothing, a number, or a text.
using FieldValue = std::variant<std::monostate, double, std::string>;

/// What became of a text that was read: a value, or the reason why it is refused.
struct FormatterResult {
    std::optional<FieldValue> objectValue;
    std::string errorDescription; ///< for the user; empty when there is a value
    [[nodiscard]] bool isSuccess() const { return objectValue.has_value(); }
};

/// The same for a text that is still being typed.
struct PartialFormatterResult {
    bool isValid = true;
    std::string newEditingString; ///< the text, when it is valid
    std::string errorDescription; ///< for the user; empty when it is valid
};

/// Between the value of a field and its text.
class Formatter {
  public:
    virtual ~Formatter() = default;

    /// The text that shows a value; nothing for a value of another kind.
    [[nodiscard]] virtual std::optional<std::string>
    stringForObjectValue(const FieldValue& value) const = 0;
    /// The text in which the user edits a value.
    [[nodiscard]] virtual std::optional<std::string>
    editingStringForObjectValue(const FieldValue& value) const {
        return stringForObjectValue(value);
    }
    /// The value that a text stands for.
    [[nodiscard]] virtual FormatterResult objectValueForString(std::string_view text) const = 0;
    /// Whether a text that is being typed may go on like this. Every text may, here.
    [[nodiscard]] virtual PartialFormatterResult isPartialStringValid(std::string_view text) const {
        return {true, std::string(text), {}};
    }
};

/// Names of constants: shown with a prefix, edited and kept without it. Letters, marks and numbers
/// of all scripts are allowed, and "$", "_", "-" and "."; the message to the user names fewer.
class ConstantNameFormatter final : public Formatter {
  public:
    [[nodiscard]] const std::string& requiredPrefix() const { return requiredPrefix_; }
    void setRequiredPrefix(std::string prefix) { requiredPrefix_ = std::move(prefix); }

    [[nodiscard]] std::optional<std::string>
    stringForObjectValue(const FieldValue& value) const override;
    /// What follows the first place where the prefix is found, whatever the case of its letters;
    /// it need not be the start.
    [[nodiscard]] std::optional<std::string>
    editingStringForObjectValue(const FieldValue& value) const override;
    [[nodiscard]] FormatterResult objectValueForString(std::string_view text) const override;
    [[nodiscard]] PartialFormatterResult isPartialStringValid(std::string_view text) const override;

  private:
    std::string requiredPrefix_ = "$";
};

/// Which generation of rules a number formatter follows. The values count.
enum class FormatterBehavior { default_ = 0, behavior10_0 = 1000, behavior10_4 = 1040 };

/// Numbers in the C style, so that what is shown can be typed again: the separator is a point,
/// whatever the user's locale is.
class NumberFormatter : public Formatter {
  public:
    /// Follows a number that is shown, such as a unit; empty for none.
    [[nodiscard]] const std::string& positiveSuffix() const { return positiveSuffix_; }
    void setPositiveSuffix(std::string suffix) { positiveSuffix_ = std::move(suffix); }
    [[nodiscard]] FormatterBehavior formatterBehavior() const { return behavior_; }
    void setFormatterBehavior(FormatterBehavior behavior) { behavior_ = behavior; }
    /// Whether the white space around a number is overlooked when it is read.
    [[nodiscard]] bool isLenient() const { return isLenient_; }
    void setLenient(bool isLenient) { isLenient_ = isLenient; }
    /// The most decimal places that are written; zeros at the end are not. From 0 to 15.
    [[nodiscard]] int maximumFractionDigits() const { return maximumFractionDigits_; }
    void setMaximumFractionDigits(int digits);

    /// A number without the suffix: expressions and other fields add it as they need. Infinity and
    /// what is no number have no text.
    [[nodiscard]] std::optional<std::string>
    stringForObjectValue(const FieldValue& value) const override;
    /// A finite number, in any form that C knows. Everything else is refused with a message.
    [[nodiscard]] FormatterResult objectValueForString(std::string_view text) const override;

  private:
    std::string positiveSuffix_;
    FormatterBehavior behavior_ = FormatterBehavior::default_;
    bool isLenient_ = false;
    int maximumFractionDigits_ = 3;
};

/// Numbers, and texts that are none: expressions, which the owner of the field works out.
class ExpressionFormatter final : public NumberFormatter {
  public:
    ExpressionFormatter();

    [[nodiscard]] std::optional<std::string>
    stringForObjectValue(const FieldValue& value) const override;
    [[nodiscard]] std::optional<std::string>
    editingStringForObjectValue(const FieldValue& value) const override;
    /// A text that is no number is its own value. A number is read as `NumberFormatter` does.
    [[nodiscard]] FormatterResult objectValueForString(std::string_view text) const override;
};

/// The number that is the whole of a text in the C locale: a sign or none, then decimal digits,
/// hexadecimal digits after "0x", or the words for infinity and NaN. Nothing for other texts,
/// which includes white space at either end. As in C, what is too large is an infinity.
[[nodiscard]] std::optional<double> parseNumber(std::string_view text);

} // namespace driftwood
