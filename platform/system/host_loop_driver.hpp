#pragma once

#include "core/main_queue.hpp"
#include "platform/system/wake_descriptor.hpp"

#include <chrono>
#include <optional>

namespace platform {

/// Drains a main queue from the event loop of a host, whatever loop that is: the host watches
/// `descriptor()` and calls `onReadable` when it can be read, when `nextTimeout` has passed, and
/// whenever it is idle anyway. Made, called and destroyed on one thread, which is the queue's main
/// thread meanwhile. A queue may have several drivers at once.
class HostLoopDriver {
  public:
    explicit HostLoopDriver(core::MainQueue& queue = core::MainQueue::shared());
    ~HostLoopDriver();
    HostLoopDriver(const HostLoopDriver&) = delete;
    HostLoopDriver& operator=(const HostLoopDriver&) = delete;

    /// For poll, select and their like; the driver closes it.
    [[nodiscard]] int descriptor() const { return wake_.descriptor(); }

    /// Runs what waits, up to a bound after which the host has its turn; then the descriptor can
    /// be read again at once.
    void onReadable();

    /// When `onReadable` wants to be called although the descriptor cannot be read; nothing when it
    /// does not. For a host that never asks, every burst of posts costs one of them a system call,
    /// and nothing else.
    [[nodiscard]] std::optional<std::chrono::milliseconds> nextTimeout();

  private:
    core::MainQueue& queue_;
    WakeDescriptor wake_;
    bool hasTimers_ = false; // the host has asked for a timeout
    bool wantsTimeout_ = false;
};

} // namespace platform
