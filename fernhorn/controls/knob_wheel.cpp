#include "fernhorn/controls/knob_wheel.hpp"

#include "fernhorn/controls/parameter_steps.hpp"

#include <utility>

namespace fernhorn {

KnobWheel::KnobWheel(std::shared_ptr<AudioParameter> parameter) : edit_(std::move(parameter)) {}

void KnobWheel::pointerCame(core::Instant now) {
    if (!pointerSince_) {
        pointerSince_ = now;
    }
}

void KnobWheel::pointerLeft() {
    pointerSince_.reset();
    lastRefused_.reset();
}

bool KnobWheel::belongsToPage(core::Instant now) const {
    // The pointer has not come by itself, has come in the midst of scrolling, or scrolls on.
    return !pointerSince_ || now - *pointerSince_ < pause ||
           (lastRefused_ && now - *lastRefused_ < pause);
}

bool KnobWheel::turn(core::Instant now, float notches, bool isFine, bool isInScrollingPage) {
    closeWhenDue(now);
    if (!isOpen() && isInScrollingPage && belongsToPage(now)) {
        lastRefused_ = now;
        return false;
    }
    lastTurn_ = now;
    if (notches != 0) {
        const float travel = notches * stepTravel(*edit_.parameter());
        if (edit_.begin()) { // may destroy this
            edit_.moveBy(isFine ? travel * fineShare : travel);
        }
    }
    return true;
}

std::optional<core::Instant> KnobWheel::closesAt() const {
    return isOpen() ? std::optional(lastTurn_ + pause) : std::nullopt;
}

void KnobWheel::closeWhenDue(core::Instant now) {
    if (isOpen() && now - lastTurn_ >= pause) {
        close();
    }
}

void KnobWheel::close() {
    edit_.end();
}

} // namespace fernhorn
