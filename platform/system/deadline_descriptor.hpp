#pragma once

#include "platform/system/descriptor.hpp"

#include <chrono>

namespace platform {

/// A file descriptor that becomes readable at a deadline, exact to what the processor can do, where
/// the timers of event loops round to milliseconds. One thread.
class DeadlineDescriptor {
  public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// Without one where the operating system has nothing of the kind.
    DeadlineDescriptor();

    [[nodiscard]] int get() const { return descriptor_.get(); } ///< -1 without one
    /// Makes it readable at `deadline`, at once for one that has passed; replaces the one before.
    void set(Deadline deadline);
    /// No deadline any more, and not readable.
    void clear();

  private:
    Descriptor descriptor_;
};

} // namespace platform
