#include "platform/system/host_loop_driver.hpp"

namespace platform {
namespace {

/// Tasks at a time, so that a flood of them leaves the host its turn.
constexpr std::size_t budget = 8192;

} // namespace

HostLoopDriver::HostLoopDriver(core::MainQueue& queue) : queue_(queue) {
    queue_.addWaker(wake_);
}

HostLoopDriver::~HostLoopDriver() {
    queue_.removeWaker(wake_);
}

void HostLoopDriver::onReadable() {
    wake_.reset();
    using Next = core::MainQueue::Next;
    // To be called again soon nobody may be relied on who has never asked for a timeout.
    const Next next = hasTimers_             ? queue_.pump(budget)
                      : queue_.drain(budget) ? Next::now
                                             : Next::whenWoken;
    wantsTimeout_ = next == Next::soon;
    if (next == Next::now) {
        wake_.wake();
    }
}

std::optional<std::chrono::milliseconds> HostLoopDriver::nextTimeout() {
    hasTimers_ = true;
    return wantsTimeout_ ? std::optional(core::MainQueue::pumpInterval) : std::nullopt;
}

} // namespace platform
