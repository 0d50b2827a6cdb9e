#include "fernhorn/dials/knob_gestures.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace fernhorn {
namespace {

/// NaN becomes the lower bound.
float clamped(float value, ValueRange range) {
    const float fromBelow = value >= range.lower ? value : range.lower;
    return fromBelow <= range.upper ? fromBelow : range.upper;
}

} // namespace

ContinuousEdit::ContinuousEdit(std::shared_ptr<AudioParameter> parameter)
    : parameter_(std::move(parameter)) {}

bool ContinuousEdit::begin() {
    if (isOpen()) {
        return true;
    }
    if (opening_ != nullptr) {
        return false;
    }
    const auto opening = std::make_shared<const bool>(true);
    opening_ = opening;
    ParameterGesture gesture(parameter_);
    if (opening.use_count() == 1) { // ended or destroyed: the gesture sends its release here
        return false;
    }
    opening_ = nullptr;
    continuousValue_ = parameter_->valueWithPendingEdits();
    gesture_.emplace(std::move(gesture));
    return true;
}

void ContinuousEdit::moveBy(float travel) {
    if (isOpen()) {
        const float position = parameter_->normalizedPosition(*continuousValue_) + travel;
        changeTo(parameter_->valueForNormalizedPosition(clamped(position, {0, 1})));
    }
}

void ContinuousEdit::changeTo(float value) {
    if (!isOpen()) {
        return;
    }
    const auto parameter = parameter_; // keeps it, whatever its observers destroy
    const float candidate = clamped(value, parameter->valueRange());
    continuousValue_ = candidate;
    gesture_->change(parameter->isIndexed() ? std::round(candidate) : candidate);
}

void ContinuousEdit::end() {
    opening_ = nullptr;
    continuousValue_.reset();
    // Taken first: an observer that is told may destroy this.
    if (auto gesture = std::exchange(gesture_, std::nullopt)) {
        gesture->end();
    }
}

namespace {

constexpr float smallStep = 0.02F;
constexpr float page = 0.1F;

} // namespace

float stepTravel(const AudioParameter& parameter) {
    const ValueRange range = parameter.valueRange();
    return parameter.isIndexed() && range.lower < range.upper
               ? std::min(1 / (range.upper - range.lower), 1.0F)
               : smallStep;
}

float stepSize(const AudioParameter& parameter) {
    const float step = stepTravel(parameter);
    const float from =
        std::clamp(parameter.normalizedPosition(parameter.valueWithPendingEdits()), 0.0F, 1 - step);
    return parameter.valueForNormalizedPosition(from + step) -
           parameter.valueForNormalizedPosition(from);
}

void stepParameter(const std::shared_ptr<AudioParameter>& parameter, ParameterStep step,
                   bool isFine) {
    const float one = stepTravel(*parameter);
    const float whole = std::max(page, one);
    const float share = isFine && !parameter->isIndexed() ? fineShare : 1;
    const ValueRange range = parameter->valueRange();
    ContinuousEdit edit(parameter);
    if (!edit.begin()) {
        return;
    }
    switch (step) {
    case ParameterStep::up:
        edit.moveBy(one * share);
        break;
    case ParameterStep::down:
        edit.moveBy(-one * share);
        break;
    case ParameterStep::pageUp:
        edit.moveBy(whole * share);
        break;
    case ParameterStep::pageDown:
        edit.moveBy(-whole * share);
        break;
    case ParameterStep::toLowest:
        edit.changeTo(range.lower);
        break;
    case ParameterStep::toHighest:
        edit.changeTo(range.upper);
        break;
    case ParameterStep::toDefault:
        edit.changeTo(parameter->defaultValue());
        break;
    }
    edit.end();
}

void editParameter(const std::shared_ptr<AudioParameter>& parameter, float value) {
    ContinuousEdit edit(parameter);
    if (edit.begin()) {
        edit.changeTo(value);
        edit.end();
    }
}

namespace {

/// A hand that clicks is not quite still.
constexpr double clickTravel = 3;

} // namespace

KnobDrag::KnobDrag(std::shared_ptr<AudioParameter> parameter, KnobFeel feel)
    : feel_(feel), edit_(std::move(parameter)) {}

void KnobDrag::press(core::Point at, int clickCount, bool isAltHeld) {
    if (!isPressed()) {
        press_ = Press{at, clickCount == 2 || isAltHeld};
        if (feel_.knobMinDrag <= 0) {
            move(at, false);
        }
    }
}

void KnobDrag::note(core::Point at) {
    press_->travel = std::max(press_->travel, std::hypot(at.x - press_->at.x, at.y - press_->at.y));
}

void KnobDrag::move(core::Point at, bool isFine) {
    if (!isPressed()) {
        return;
    }
    note(at);
    if (!isDragging()) {
        if (press_->travel >= feel_.knobMinDrag) {
            lastDragValue_ = at.y;
            [[maybe_unused]] const bool isOpen = edit_.begin(); // may destroy this
        }
        return;
    }
    const float way =
        static_cast<float>(*std::exchange(lastDragValue_, at.y) - at.y) * feel_.knobDragScaleFactor;
    edit_.moveBy(isFine ? way * fineShare : way);
}

void KnobDrag::release(core::Point at) {
    if (!isPressed()) {
        return;
    }
    note(at);
    const auto parameter = edit_.parameter();
    const auto press = *std::exchange(press_, std::nullopt);
    lastDragValue_.reset();
    const bool isReset = press.resets && press.travel < std::max(feel_.knobMinDrag, clickTravel);
    edit_.end(); // may destroy this
    if (isReset) {
        parameter->setValue(parameter->defaultValue(), ParameterEditor::ui,
                            ParameterEditorState::change);
    }
}

void KnobDrag::cancel() {
    press_.reset();
    lastDragValue_.reset();
    edit_.end();
}

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

namespace {

double distance(core::Point a, core::Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Away from the edges of a stretch, in its middle when it is short.
double awayFromEdges(double at, double from, double length) {
    const double room = std::min(2 * PointerHold::stray, length / 2);
    return std::clamp(at, from + room, from + length - room);
}

} // namespace

void PointerHold::begin(core::Point at, const core::Rect& screen) {
    home_ = {awayFromEdges(at.x, screen.origin.x, screen.size.width),
             awayFromEdges(at.y, screen.origin.y, screen.size.height)};
    beginning_ = at;
    last_ = at;
    position_ = at;
    isGoingHome_ = false;
}

PointerHold::Move PointerHold::move(core::Point at) {
    if (!home_) {
        return {at, false};
    }
    // Events from before the pointer was put back may still come; the first one that is nearer to
    // home than to where the pointer was seen last comes after it, perhaps with some way already.
    if (isGoingHome_ && distance(at, *home_) < distance(at, last_)) {
        isGoingHome_ = false;
        last_ = *home_;
    }
    position_ = {position_.x + at.x - last_.x, position_.y + at.y - last_.y};
    last_ = at;
    const bool putBack = !isGoingHome_ && distance(at, *home_) > stray;
    isGoingHome_ = isGoingHome_ || putBack;
    return {position_, putBack};
}

} // namespace fernhorn
