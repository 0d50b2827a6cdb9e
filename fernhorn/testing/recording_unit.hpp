#pragma once

#include "fernhorn/model/fern_audio_unit.hpp"

#include <utility>
#include <vector>

namespace fernhorn {

/// Notes what its signal processing is told. One thread.
class RecordingUnit final : public FernAudioUnit {
  public:
    using FernAudioUnit::FernAudioUnit;
    void setParameter(platform::AUParameterAddress address, float value) override {
        values.emplace_back(address, value);
    }
    std::vector<std::pair<platform::AUParameterAddress, float>> values;
};

} // namespace fernhorn
