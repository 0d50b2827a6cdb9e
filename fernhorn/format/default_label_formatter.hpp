#pragma once

#include "fernhorn/format/label_formatter.hpp"

#include <cstdint>

namespace fernhorn {

class AudioParameter;

/// Numbers with a fixed number of decimal places, in the C locale both ways.
/// Immutable: any thread.
class DefaultLabelFormatter final : public LabelFormatter {
  public:
    /// Shows absolute cents as hundreds of them. The parameter is not kept.
    DefaultLabelFormatter(const AudioParameter& parameter, std::int64_t decimalPlaces);

    /// Below 0 counts as 0; beyond `core::maximumDecimalPlaces` none are added.
    [[nodiscard]] std::int64_t decimalPlaces() const { return decimalPlaces_; }
    /// What a value is multiplied by before it is shown.
    [[nodiscard]] float saveScaleFactor() const { return saveScaleFactor_; }

    /// The value times the factor, in 32-bit arithmetic, written as C's printf does: exact halves
    /// go to the even digit.
    [[nodiscard]] std::string format(float value) const override;

    /// The number as it was typed, without any factor; see `core::parseDecimal`.
    [[nodiscard]] std::optional<float> parse(std::string_view text) const override;

  private:
    const std::int64_t decimalPlaces_;
    const float saveScaleFactor_;
};

} // namespace fernhorn
