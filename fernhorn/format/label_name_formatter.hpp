#pragma once

#include "fernhorn/format/label_formatter.hpp"

#include <vector>

namespace fernhorn {

class AudioParameter;

/// The names of the values 0, 1, 2 …; for parameters whose value never leaves them. Immutable: any
/// thread.
class LabelNameFormatter final : public LabelFormatter {
  public:
    /// Copies the parameter's value strings, if it has any. The parameter is not kept.
    explicit LabelNameFormatter(const AudioParameter& parameter);

    [[nodiscard]] const std::vector<std::string>& valueStrings() const { return valueStrings_; }

    /// The name of the nearest whole number, exact halves away from zero. Stops the program when
    /// there is none.
    [[nodiscard]] std::string format(float value) const override;

    /// The number of the first name that equals the text, both in lower case by the rules of the
    /// user's language. Spaces count.
    [[nodiscard]] std::optional<float> parse(std::string_view text) const override;

  private:
    const std::vector<std::string> valueStrings_;
};

} // namespace fernhorn
