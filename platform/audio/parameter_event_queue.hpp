#pragma once

#include "core/ring.hpp"
#include "platform/audio/au_types.hpp"

#include <atomic>
#include <cstddef>
#include <limits>
#include <vector>

namespace platform {

/// The sample time of an event that is due as soon as possible.
inline constexpr AUEventSampleTime AUEventSampleTimeImmediate =
    std::numeric_limits<AUEventSampleTime>::min();

/// A parameter change for the render side, at an exact sample.
struct AUParameterEvent {
    AUEventSampleTime eventSampleTime = AUEventSampleTimeImmediate;
    AUAudioFrameCount rampDurationSampleFrames = 0; ///< 0: a step
    AUParameterAddress parameterAddress = 0;
    AUValue value = 0;
};

/// Parameter events on their way from any thread to the one that renders. Its memory is allocated
/// once; neither side takes a lock.
class ParameterEventQueue {
  public:
    /// Holds up to `capacity` events (at least one) that are not due yet.
    explicit ParameterEventQueue(std::size_t capacity = 4096);

    /// Any thread. False when `capacity` events are waiting already: then nothing is scheduled, and
    /// nothing that was scheduled before is lost.
    [[nodiscard]] bool schedule(const AUParameterEvent& event) noexcept;

    /// The render thread, once per block: calls `apply(event, offset)` for every event that is due
    /// before `blockStart + frameCount`, in the order of their sample times and, at one sample, of
    /// scheduling. `offset` is the frame within the block, 0 for events that are late or immediate.
    template<class Apply>
    void render(AUEventSampleTime blockStart, AUAudioFrameCount frameCount, Apply&& apply) {
        collect();
        while (!waiting_.empty() && isDue(waiting_.front().event, blockStart, frameCount)) {
            const AUParameterEvent event = takeFirst();
            apply(event, offsetIn(event, blockStart));
        }
    }

  private:
    struct Cell {
        std::atomic<std::size_t> sequence;
        AUParameterEvent event;
    };
    struct Waiting {
        AUParameterEvent event;
        std::size_t position; // order of scheduling
    };

    static bool isLater(const Waiting& one, const Waiting& other) noexcept;
    static bool isDue(const AUParameterEvent& event, AUEventSampleTime blockStart,
                      AUAudioFrameCount frameCount) noexcept;
    static AUAudioFrameCount offsetIn(const AUParameterEvent& event,
                                      AUEventSampleTime blockStart) noexcept;
    void collect() noexcept;
    AUParameterEvent takeFirst() noexcept;

    const std::size_t capacity_;
    core::Ring<Cell> ring_;
    std::atomic<std::size_t> reserved_{0}; // scheduled and not applied

    // The render thread's own.
    std::vector<Waiting> waiting_; // a heap, the next one in front; never grows beyond `capacity_`
};

} // namespace platform
