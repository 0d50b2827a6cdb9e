#pragma once

#include "platform/audio/au_parameter.hpp"

namespace platform {

/// The ten attributes a parameter is created from. A value.
struct AUParameter::Attributes {
    std::string identifier;
    std::string name;
    AUParameterAddress address;
    AUValue min;
    AUValue max;
    AudioUnitParameterUnit unit;
    std::string unitName;
    AudioUnitParameterOptions flags;
    std::optional<std::vector<std::string>> valueStrings;
    std::optional<std::vector<AUParameterAddress>> dependentParameters;
};

} // namespace platform
