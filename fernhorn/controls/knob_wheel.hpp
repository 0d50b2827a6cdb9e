#pragma once

#include "core/clock.hpp"
#include "fernhorn/controls/continuous_edit.hpp"

#include <memory>
#include <optional>

namespace fernhorn {

/// The wheel or two fingers over a knob: what comes without a pause between is one burst, and one
/// touch. Parts of a notch add up. In a page that scrolls, a burst that has scrolled the page never
/// turns the knob that comes below the pointer. Main thread; times come from the caller.
class KnobWheel {
  public:
    /// What ends a burst.
    static constexpr core::Seconds pause{0.25};

    explicit KnobWheel(std::shared_ptr<AudioParameter> parameter);

    /// Where the pointer is.
    void pointerCame(core::Instant now);
    void pointerLeft();

    /// The wheel turns by a number of notches, upwards above 0. False: it is not meant for the
    /// knob, and the page below may have it.
    bool turn(core::Instant now, float notches, bool isFine, bool isInScrollingPage);

    /// When the burst is over unless more of it comes; absent when there is none.
    [[nodiscard]] std::optional<core::Instant> closesAt() const;
    /// Closes the touch when the burst is over.
    void closeWhenDue(core::Instant now);
    /// Closes the touch now.
    void close();

    [[nodiscard]] bool isOpen() const { return edit_.isOpen(); }

  private:
    [[nodiscard]] bool belongsToPage(core::Instant now) const;

    ContinuousEdit edit_;
    core::Instant lastTurn_{};
    std::optional<core::Instant> pointerSince_;
    std::optional<core::Instant> lastRefused_;
};

} // namespace fernhorn
