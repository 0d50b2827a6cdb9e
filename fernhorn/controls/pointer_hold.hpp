#pragma once

#include "core/geometry.hpp"

#include <optional>

namespace fernhorn {

/// Keeps a pointer about where it is while it is dragged: gives the way that it has gone, whatever
/// edge of the screen is near, and tells when to put it back. It knows points, not pointers.
class PointerHold {
  public:
    /// How far the pointer may stray before it is put back, in points. The place that it is put
    /// back to is at least twice as far from the screen's edges, which would stop it.
    static constexpr double stray = 48;

    struct Move {
        core::Point position; ///< where the pointer would be had it never been put back
        bool putBack;         ///< to `home()`, now
    };

    /// The hold begins with the pointer at this place of a screen.
    void begin(core::Point at, const core::Rect& screen);
    void end() { home_.reset(); }
    [[nodiscard]] bool isHolding() const { return home_.has_value(); }
    [[nodiscard]] core::Point home() const { return home_.value_or(core::Point{}); }
    /// Where the pointer belongs after the hold.
    [[nodiscard]] core::Point beginning() const { return beginning_; }

    /// The pointer has moved, by hand or because it was put back.
    Move move(core::Point at);

  private:
    std::optional<core::Point> home_;
    core::Point beginning_;
    core::Point last_;     // where the pointer was seen
    core::Point position_; // where it would be
    bool isGoingHome_ = false;
};

} // namespace fernhorn
