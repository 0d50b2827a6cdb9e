#pragma once

#include "core/clock.hpp"
#include "core/geometry.hpp"

#include <array>
#include <cstddef>

namespace platform {

/// What a pan has come to with an event.
enum class PanState {
    possible,  ///< nothing, or a press that has not moved far enough
    began,     ///< this event has moved it far enough
    changed,   ///< a further move
    ended,     ///< the release of a pan
    cancelled, ///< a pan that was taken away
    failed     ///< a press that was released or taken away before it became one
};

/// Tells a pan from a click: points and times of a press, its moves and its release go in, the
/// state of the gesture comes out. Knows no view; the points are in its coordinates, so y grows
/// downwards. Main thread.
class PanRecognizer {
  public:
    /// What a click may move, in points along either axis.
    static constexpr double slop = 3;

    // Each returns the state that the event has led to. What follows a release or a cancelling, and
    // a press in the midst of another, is no event of a pan.
    PanState press(core::Point at, core::Instant when);
    PanState move(core::Point to, core::Instant when);
    PanState release(core::Point at, core::Instant when);
    PanState cancel();

    /// After `ended`, `cancelled` and `failed` as told, until the next press.
    [[nodiscard]] PanState state() const { return state_; }
    [[nodiscard]] bool isPressed() const { return isPressed_; }
    [[nodiscard]] core::Point location() const { return location_; }

    /// From where the press was, or as far from there as it was set to.
    [[nodiscard]] core::Point translation() const;
    void setTranslation(core::Point translation);

    /// Points a second, over the last tenth of a second of movement. A pointer that rests and then
    /// creeps is slow; (0, 0) before a pan has begun.
    [[nodiscard]] core::Point velocity() const { return velocity_; }

  private:
    struct Sample {
        core::Point at;
        core::Instant when;
    };
    static constexpr core::Seconds window{0.1};

    void follow(core::Point to, core::Instant when);

    PanState state_ = PanState::possible;
    bool isPressed_ = false;
    core::Point location_;
    core::Point origin_; // where the translation counts from
    core::Point velocity_;
    core::Point pressedAt_;
    std::array<Sample, 16> samples_{}; // of the window, oldest first
    std::size_t count_ = 0;
};

} // namespace platform
