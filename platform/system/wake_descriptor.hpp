#pragma once

#include "core/main_queue.hpp"

namespace platform {

/// A waker that makes a file descriptor readable, so that any event loop (Qt's, or a foreign
/// host's) can wait for a `core::MainQueue`: poll `descriptor()`, and when it is readable call
/// `reset()` and then drain the queue.
class WakeDescriptor final : public core::Waker {
  public:
    /// Stops the program when the process has no file descriptors left.
    WakeDescriptor();
    ~WakeDescriptor() override;
    WakeDescriptor(const WakeDescriptor&) = delete;
    WakeDescriptor& operator=(const WakeDescriptor&) = delete;

    void wake() noexcept override; ///< any thread
    void reset() noexcept;         ///< makes the descriptor unreadable again; before draining
    [[nodiscard]] int descriptor() const { return readEnd_; }

  private:
    int readEnd_ = -1;
    int writeEnd_ = -1; // the same as readEnd_ for an eventfd
};

} // namespace platform
