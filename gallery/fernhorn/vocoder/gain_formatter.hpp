#pragma once

#include "fernhorn/format/label_formatter.hpp"

namespace gallery {

/// Whole decibels with their sign, "+3", "0", "-12": short enough for the window of a small knob.
class GainFormatter final : public fernhorn::LabelFormatter {
  public:
    [[nodiscard]] std::string format(float value) const override;
    [[nodiscard]] std::optional<float> parse(std::string_view text) const override;
};

} // namespace gallery
