#include "platform/audio/parameter_event_queue.hpp"

#include <algorithm>

namespace platform {

ParameterEventQueue::ParameterEventQueue(std::size_t capacity)
    : capacity_(std::max<std::size_t>(capacity, 1)), ring_(capacity_) {
    waiting_.reserve(capacity_);
}

bool ParameterEventQueue::schedule(const AUParameterEvent& event) noexcept {
    // The reservation bounds what is in the ring and in the heap together, so that whoever has one
    // finds a cell; acquiring passes on that the render thread is through with it.
    if (reserved_.fetch_add(1, std::memory_order_acquire) >= capacity_) {
        reserved_.fetch_sub(1, std::memory_order_relaxed);
        return false;
    }
    const auto ticket = ring_.claim();
    ticket.cell->event = event; // NOLINT(clang-analyzer-core.CallAndMessage): there is a cell
    ring_.publish(ticket);
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
    for (auto ticket = ring_.take(); ticket.cell != nullptr; ticket = ring_.take()) {
        waiting_.push_back({ticket.cell->event, ticket.position});
        std::ranges::push_heap(waiting_, isLater);
        ring_.release(ticket);
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
