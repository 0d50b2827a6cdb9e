#include "plugin/settings/vocoder_settings.hpp"

namespace larkvox {

using fernhorn::AudioParameter;
using platform::AUParameterAddress;

void VocoderUnit::setParameter(AUParameterAddress address, float value) {
    if (address < values_.size()) {
        values_[address].store(value, std::memory_order_relaxed);
    }
}

float VocoderUnit::processedValue(AUParameterAddress address) const {
    return address < values_.size() ? values_[address].load(std::memory_order_relaxed) : 0;
}

std::string VocoderSettings::pluginVersion() const {
    return LARKVOX_VERSION;
}

std::shared_ptr<VocoderSettings> VocoderSettings::make(core::MainQueue& queue) {
    const std::shared_ptr<VocoderSettings> settings(new VocoderSettings);
    settings->unit_ = std::make_shared<VocoderUnit>();
    AUParameterAddress address = 0;
    for (const auto& description : vocoderParameters()) {
        std::optional<std::vector<std::string>> names;
        if (!description.names.empty()) {
            names.emplace(description.names.begin(), description.names.end());
        }
        settings->all_.push_back(std::make_shared<AudioParameter>(
            address, description.identifier, description.name, description.unit, description.range,
            description.defaultValue, description.increment, std::move(names), std::nullopt,
            queue));
        ++address;
    }
    settings->setupParameters(settings->all_);
    settings->configureAudioUnit(settings->unit_);
    settings->setupParameterTreeListeners();
    return settings;
}

} // namespace larkvox
