#pragma once

#include "platform/audio/au_audio_unit.hpp"

namespace fernhorn {

/// An audio unit that `ParameterSettings` can serve.
class FernAudioUnit : public platform::AUAudioUnit {
  public:
    using AUAudioUnit::AUAudioUnit;

    /// Hands a value to the signal processing, as it came: it may lie outside the parameter's
    /// range. Called on whatever thread the change was made, audio threads included.
    virtual void setParameter(platform::AUParameterAddress address, float value) = 0;
};

} // namespace fernhorn
