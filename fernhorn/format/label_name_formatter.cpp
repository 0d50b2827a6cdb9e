#include "fernhorn/format/label_name_formatter.hpp"

#include "core/decimal_text.hpp"
#include "core/fatal.hpp"
#include "core/text_service.hpp"
#include "fernhorn/model/audio_parameter.hpp"

#include <cmath>

namespace fernhorn {

LabelNameFormatter::LabelNameFormatter(const AudioParameter& parameter)
    : valueStrings_(parameter.valueStrings().value_or(std::vector<std::string>())) {}

std::string LabelNameFormatter::format(float value) const {
    const float index = std::round(value);
    if (index >= 0 && index < static_cast<float>(valueStrings_.size())) { // NaN is neither
        return valueStrings_[static_cast<std::size_t>(index)];
    }
    core::fatal("Unable to format value " + core::shortestText(value) + ", no value string found");
}

std::optional<float> LabelNameFormatter::parse(std::string_view text) const {
    const core::TextService& service = core::TextService::current();
    const std::string wanted = service.lowercase(text);
    for (std::size_t i = 0; i < valueStrings_.size(); ++i) {
        if (service.lowercase(valueStrings_[i]) == wanted) {
            return static_cast<float>(i);
        }
    }
    return std::nullopt;
}

} // namespace fernhorn
