#pragma once

#include "platform/audio/au_parameter_tree.hpp"
#include "platform/audio/parameter_event_queue.hpp"

#include <mutex>

namespace platform {

/// What a plug-in format sees of a plug-in: its parameters, and parameter changes at exact samples
/// for its render side. Plug-ins derive from it.
class AUAudioUnit {
  public:
    /// `scheduledEventCapacity` is how many scheduled events may wait to be rendered.
    explicit AUAudioUnit(std::size_t scheduledEventCapacity = 4096);
    virtual ~AUAudioUnit();
    AUAudioUnit(const AUAudioUnit&) = delete;
    AUAudioUnit& operator=(const AUAudioUnit&) = delete;

    /// The parameters; null until the plug-in is set up. Any thread but an audio thread.
    [[nodiscard]] std::shared_ptr<AUParameterTree> parameterTree() const;
    void setParameterTree(std::shared_ptr<AUParameterTree> tree);

    /// Schedules a change for the render side; the value and observers of the `AUParameter` are
    /// not touched. Any thread, without locks. False when too many events wait: then nothing is
    /// scheduled, and the caller may set the value at once or try again after the next block.
    [[nodiscard]] bool scheduleParameter(AUEventSampleTime eventSampleTime,
                                         AUAudioFrameCount rampDurationSampleFrames,
                                         AUParameterAddress parameterAddress,
                                         AUValue value) noexcept;

    /// For the render side, once per block; see `ParameterEventQueue::render`.
    template<class Apply>
    void renderParameterEvents(AUEventSampleTime blockStart, AUAudioFrameCount frameCount,
                               Apply&& apply) {
        events_.render(blockStart, frameCount, std::forward<Apply>(apply));
    }

  private:
    mutable std::mutex treeMutex_;
    std::shared_ptr<AUParameterTree> parameterTree_;
    ParameterEventQueue events_;
};

} // namespace platform
