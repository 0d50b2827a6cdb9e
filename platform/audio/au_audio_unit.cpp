#include "platform/audio/au_audio_unit.hpp"

namespace platform {

AUAudioUnit::AUAudioUnit(std::size_t scheduledEventCapacity) : events_(scheduledEventCapacity) {}

AUAudioUnit::~AUAudioUnit() = default;

std::shared_ptr<AUParameterTree> AUAudioUnit::parameterTree() const {
    const std::lock_guard lock(treeMutex_);
    return parameterTree_;
}

void AUAudioUnit::setParameterTree(std::shared_ptr<AUParameterTree> tree) {
    {
        const std::lock_guard lock(treeMutex_);
        parameterTree_.swap(tree);
    }
    // The former tree goes here, without the lock: it may wait for callbacks that ask for the tree.
}

bool AUAudioUnit::scheduleParameter(AUEventSampleTime eventSampleTime,
                                    AUAudioFrameCount rampDurationSampleFrames,
                                    AUParameterAddress parameterAddress, AUValue value) noexcept {
    return events_.schedule({eventSampleTime, rampDurationSampleFrames, parameterAddress, value});
}

} // namespace platform
