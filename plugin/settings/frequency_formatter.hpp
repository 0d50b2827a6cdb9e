#pragma once

#include "fernhorn/format/label_formatter.hpp"

namespace larkvox {

/// Frequencies in hertz as musicians read them: "0.25 Hz", "640 Hz", "1.20 kHz"; both units can be
/// typed, or none for hertz. Immutable: any thread.
class FrequencyFormatter final : public fernhorn::LabelFormatter {
  public:
    [[nodiscard]] std::string format(float value) const override;
    [[nodiscard]] std::optional<float> parse(std::string_view text) const override;
    [[nodiscard]] bool writesUnit() const override { return true; }
};

} // namespace larkvox
