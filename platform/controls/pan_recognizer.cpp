#include "platform/controls/pan_recognizer.hpp"

#include <algorithm>
#include <cmath>

namespace platform {

PanState PanRecognizer::press(core::Point at, core::Instant when) {
    if (isPressed_) {
        return state_;
    }
    isPressed_ = true;
    location_ = origin_ = pressedAt_ = at;
    velocity_ = {};
    samples_[0] = {at, when};
    count_ = 1;
    return state_ = PanState::possible;
}

PanState PanRecognizer::move(core::Point to, core::Instant when) {
    if (!isPressed_) {
        return state_;
    }
    follow(to, when);
    if (state_ != PanState::possible) {
        return state_ = PanState::changed;
    }
    if (std::abs(to.x - pressedAt_.x) > slop || std::abs(to.y - pressedAt_.y) > slop) {
        return state_ = PanState::began;
    }
    velocity_ = {};
    return state_;
}

PanState PanRecognizer::release(core::Point at, core::Instant when) {
    if (!isPressed_) {
        return state_;
    }
    isPressed_ = false;
    if (state_ == PanState::possible) {
        return state_ = PanState::failed;
    }
    if (at != location_) {
        follow(at, when);
    }
    return state_ = PanState::ended;
}

PanState PanRecognizer::cancel() {
    if (!isPressed_) {
        return state_;
    }
    isPressed_ = false;
    return state_ = state_ == PanState::possible ? PanState::failed : PanState::cancelled;
}

core::Point PanRecognizer::translation() const {
    return {location_.x - origin_.x, location_.y - origin_.y};
}

void PanRecognizer::setTranslation(core::Point translation) {
    origin_ = {location_.x - translation.x, location_.y - translation.y};
}

void PanRecognizer::follow(core::Point to, core::Instant when) {
    // At least the sample before this one stays, however old it is.
    const auto begin = samples_.begin();
    auto end = begin + static_cast<std::ptrdiff_t>(count_);
    auto first =
        std::find_if(begin, end - 1, [&](const Sample& s) { return when - s.when <= window; });
    if (first == begin && count_ == samples_.size()) {
        ++first;
    }
    end = std::move(first, end, begin);
    *end = {to, when};
    count_ = static_cast<std::size_t>(end - begin) + 1;
    location_ = to;
    if (const double seconds = (when - samples_[0].when).count(); seconds > 0) {
        velocity_ = {(to.x - samples_[0].at.x) / seconds, (to.y - samples_[0].at.y) / seconds};
    }
}

} // namespace platform
