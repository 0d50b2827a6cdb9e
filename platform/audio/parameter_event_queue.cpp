#include "platform/audio/parameter_event_queue.hpp"

#include <algorithm>
#include <bit>

namespace platform {

ParameterEventQueue::ParameterEventQueue(std::size_t capacity)
    : capacity_(std::max<std::size_t>(capacity, 1)),
      mask_(std::bit_ceil(capacity_) - 1),
      cells_(std::make_unique<Cell[]>(mask_ + 1)) {
    for (std::size_t i = 0; i <= mask_; ++i) {
        cells_[i].sequence.store(i, std::memory_order_relaxed);
    }
    waiting_.reserve(capacity_);
}

bool ParameterEventQueue::schedule(const AUParameterEvent& event) noexcept {
    // The reservation bounds what is in the cells and in the heap together, so that whoever has
    // one finds a free cell; acquiring passes on that the render thread is through with it.
    if (reserved_.fetch_add(1, std::memory_order_acquire) >= capacity_) {
        reserved_.fetch_sub(1, std::memory_order_relaxed);
        return false;
    }
    const std::size_t position = enqueuePosition_.fetch_add(1, std::memory_order_acq_rel);
    Cell& cell = cells_[position & mask_];
    cell.event = event;
    cell.sequence.store(position + 1, std::memory_order_release);
    return true;
}

bool ParameterEventQueue::isLater(const Waiting& one, const Waiting& other) noexcept {
    if (one.event.eventSampleTime != other.event.eventSampleTime) {
        return one.event.eventSampleTime > other.event.eventSampleTime;
    }
    return one.position > other.position;
}

namespace {

// Differences of sample times are taken unsigned, where they cannot overflow: events that are due
// at once lie at the very end of the numbers.
std::uint64_t framesBetween(AUEventSampleTime start, AUEventSampleTime time) {
    return static_cast<std::uint64_t>(time) - static_cast<std::uint64_t>(start);
}

} // namespace

bool ParameterEventQueue::isDue(const AUParameterEvent& event, AUEventSampleTime blockStart,
                                AUAudioFrameCount frameCount) noexcept {
    return event.eventSampleTime < blockStart ||
           framesBetween(blockStart, event.eventSampleTime) < frameCount;
}

AUAudioFrameCount ParameterEventQueue::offsetIn(const AUParameterEvent& event,
                                                AUEventSampleTime blockStart) noexcept {
    if (event.eventSampleTime <= blockStart) {
        return 0;
    }
    return static_cast<AUAudioFrameCount>(framesBetween(blockStart, event.eventSampleTime));
}

void ParameterEventQueue::collect() noexcept {
    for (;;) {
        Cell& cell = cells_[dequeuePosition_ & mask_];
        if (cell.sequence.load(std::memory_order_acquire) != dequeuePosition_ + 1) {
            return;
        }
        waiting_.push_back({cell.event, dequeuePosition_});
        std::ranges::push_heap(waiting_, isLater);
        ++dequeuePosition_;
    }
}

AUParameterEvent ParameterEventQueue::takeFirst() noexcept {
    std::ranges::pop_heap(waiting_, isLater);
    const AUParameterEvent event = waiting_.back().event;
    waiting_.pop_back();
    reserved_.fetch_sub(1, std::memory_order_release);
    return event;
}

} // namespace platform
