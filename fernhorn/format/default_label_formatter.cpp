#include "fernhorn/format/default_label_formatter.hpp"

#include "core/decimal_text.hpp"
#include "fernhorn/model/audio_parameter.hpp"

namespace fernhorn {

DefaultLabelFormatter::DefaultLabelFormatter(const AudioParameter& parameter,
                                             std::int64_t decimalPlaces)
    : decimalPlaces_(decimalPlaces), saveScaleFactor_(parameter.saveScaleFactor()) {}

std::string DefaultLabelFormatter::format(float value) const {
    const float scaled = value * saveScaleFactor_;
    return core::fixedText(static_cast<double>(scaled), decimalPlaces_);
}

std::optional<float> DefaultLabelFormatter::parse(std::string_view text) const {
    return core::parseDecimal(text);
}

} // namespace fernhorn
