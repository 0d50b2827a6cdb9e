#pragma once

#include "fernhorn/format/label_formatter.hpp"

namespace larkvox {

/// Values on both sides of nought, with their sign: "+3", "0", "-12". In whole numbers they are
/// short enough for the window of a small knob. Immutable: any thread.
class GainFormatter final : public fernhorn::LabelFormatter {
  public:
    /// `factor` is what a value is multiplied by before it is shown.
    explicit GainFormatter(int decimalPlaces = 0, float factor = 1)
        : decimalPlaces_(decimalPlaces), factor_(factor) {}

    [[nodiscard]] std::string format(float value) const override;
    [[nodiscard]] std::optional<float> parse(std::string_view text) const override;

  private:
    int decimalPlaces_;
    float factor_;
};

} // namespace larkvox
