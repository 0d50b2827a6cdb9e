#pragma once

#include <chrono>

namespace core {

/// An instant on a `Clock`. Differences are in seconds, in double precision. Instants of two
/// different clocks must not be mixed.
using Seconds = std::chrono::duration<double>;
using Instant = std::chrono::time_point<std::chrono::steady_clock, Seconds>;

/// Where the program gets the time from, so that tests can set it. Any thread.
class Clock {
  public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Instant now() const = 0;

    /// The machine's monotonic clock: it does not jump when the wall clock is set, which would
    /// make an animation jump. Lives until the program ends.
    static const Clock& system();
};

/// A clock that stands still until it is told otherwise, for tests and reproducible pictures.
class ManualClock final : public Clock {
  public:
    [[nodiscard]] Instant now() const override { return now_; }
    void set(Seconds sinceStart) { now_ = Instant(sinceStart); }
    void advance(Seconds by) { now_ += by; }

  private:
    Instant now_{};
};

} // namespace core
