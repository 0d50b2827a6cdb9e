#include "fernhorn/plugin/host_text.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace fernhorn {

void useFormatter(AudioParameter& parameter, std::shared_ptr<const LabelFormatter> formatter) {
    auto& unitSide = *parameter.auParameter();
    unitSide.setImplementorStringFromValueCallback(
        [formatter](const platform::AUParameter& asked, const float* value) {
            if (value == nullptr || std::isnan(*value)) {
                return std::string("-");
            }
            // A host may ask for any value; a formatter knows those of the range.
            return formatter->format(std::clamp(*value, asked.minValue(), asked.maxValue()));
        });
    unitSide.setImplementorValueFromStringCallback(
        [formatter = std::move(formatter), scale = parameter.displayScaleFactor()](
            const platform::AUParameter& asked, const std::string& text) {
            const auto parsed = formatter->parse(text);
            return parsed ? *parsed * scale : asked.value();
        });
}

} // namespace fernhorn
