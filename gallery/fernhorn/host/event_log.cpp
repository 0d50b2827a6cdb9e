#include "gallery/fernhorn/host/event_log.hpp"

#include <algorithm>
#include <utility>

namespace gallery {

using platform::AUParameterAutomationEvent;
using Type = platform::AUParameterAutomationEventType;

EventLog::EventLog(std::shared_ptr<platform::AUParameterTree> tree, std::size_t lines)
    : tree_(std::move(tree)),
      capacity_(lines),
      token_(tree_->addParameterAutomationObserver(
          [this](const AUParameterAutomationEvent& event) { note(event); })) {}

EventLog::~EventLog() {
    tree_->removeParameterObserver(token_);
}

void EventLog::note(const AUParameterAutomationEvent& event) {
    if (!waiting_.tryPost([this, event] { add(event); })) {
        lost_.fetch_add(1, std::memory_order_relaxed);
    }
}

bool EventLog::collect() {
    const auto before = eventCount_;
    // What comes meanwhile has to wait, or a busy writer would keep this going.
    waiting_.drain(waitingEvents);
    return eventCount_ != before;
}

void EventLog::add(const AUParameterAutomationEvent& event) {
    ++eventCount_;
    const auto reach =
        lines_.begin() + static_cast<std::ptrdiff_t>(std::min(mergingReach, lines_.size()));
    const auto latest = std::find_if(lines_.begin(), reach, [&](const Line& line) {
        return line.event.address == event.address;
    });
    if (latest != reach && event.eventType == Type::value &&
        latest->event.eventType == Type::value) {
        latest->event = event;
        ++latest->count;
        return;
    }
    if (lines_.size() == capacity_) {
        lines_.pop_back();
    }
    lines_.push_front({event});
}

} // namespace gallery
