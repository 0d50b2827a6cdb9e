#include "driftwood/declarative/drift_slider_track.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace driftwood {
namespace drift_slider {
namespace {

constexpr double smallestTrack = 10; // exclusive
constexpr double deadZone = 20;

double knobCentre(double place, double width) {
    return std::clamp(place * width, knobReach, std::max(knobReach, width - knobReach));
}

} // namespace

std::optional<TrackParts> trackParts(const DriftSliderModel& model, double width) {
    if (!(width > smallestTrack)) {
        return {};
    }
    TrackParts parts;
    const auto& starts = model.startingValues;
    const auto place = model.percent();
    if (place && width < knobSize) {
        core::fatal("A slider's track needs 16 points for its knob");
    }
    if (place) {
        parts.fillWidth = std::clamp(*place * width, knobSize, width);
        parts.knobX = knobCentre(*place, width);
        return parts;
    }
    const bool tooMany = starts.size() > maxKnobs;
    parts.fillWidth = tooMany ? width : 0;
    parts.knobOpacity = tooMany ? 0 : mixedKnobOpacity;
    if (!starts.empty()) {
        parts.knobX = knobCentre(model.normalised(starts[0]), width);
    }
    for (std::size_t i = 1; !tooMany && i < starts.size(); ++i) {
        parts.extraKnobs[i - 1] = knobCentre(model.normalised(starts[i]), width);
    }
    return parts;
}

} // namespace drift_slider

void DriftSliderDrag::tell(Callback DriftSliderModel::*callback) {
    const auto model = model_; // who is told may destroy this drag
    if (model->value.value()) {
        told_ = model->value.value();
    }
    if (!told_) {
        return; // mixed, and untouched
    }
    const double value = *told_;
    const bool isStart = !std::exchange(isStartTold_, true);
    const bool isEnd = callback == &DriftSliderModel::onSlideComplete;
    const std::weak_ptr<bool> gesture = gesture_;
    // Copies are called: a callback may replace itself.
    for (const auto& next : {isStart ? &DriftSliderModel::onSlideStarted : nullptr,
                             callback != &DriftSliderModel::onSlideStarted ? callback : nullptr}) {
        // Hearing of the start may end the drag: then it does not go on.
        const bool isOver = next != nullptr && next == callback && !isEnd && gesture.expired();
        if (next != nullptr && !isOver) {
            if (const Callback call = (*model).*next) {
                call(value);
            }
        }
    }
}

double DriftSliderDrag::knobFromPointer(double pointer, double width) const {
    const double x = std::clamp(pointer, 0.0, width) + xDragOffset_;
    if (x < drift_slider::knobReach) {
        return 0;
    }
    return x > width - drift_slider::knobReach ? width : x;
}

void DriftSliderDrag::begin(core::Point pointer, double width) {
    const auto model = model_; // who is told may destroy this drag
    isDragging_ = true;
    gesture_ = std::make_shared<bool>(true);
    const auto parts = drift_slider::trackParts(*model, width);
    const double knob = parts ? parts->knobX : 0;
    const bool isOnKnob = pointer.x >= knob - drift_slider::knobReach &&
                          pointer.x < knob + drift_slider::knobReach && pointer.y >= 0 &&
                          pointer.y < drift_slider::rowHeight;
    if (isOnKnob) {
        xDragOffset_ = knob - pointer.x;
    } else {
        const std::weak_ptr<bool> gesture = gesture_;
        model->setPercent(knobFromPointer(pointer.x, width) / width);
        if (gesture.expired()) {
            return; // an observer of the value has ended the drag, and perhaps the view
        }
    }
    tell(&DriftSliderModel::onSlideStarted);
}

void DriftSliderDrag::move(core::Point pointer, double translation, double width, bool snaps) {
    if (!(width > drift_slider::smallestTrack)) {
        return;
    }
    if (!isDragging_) {
        begin(pointer, width);
        return;
    }
    xDistanceDragged_ += std::abs(translation);
    const double place = knobFromPointer(pointer.x, width) / width;
    if (snaps) {
        snapTo(place);
        return;
    }
    if (xDragOffset_ != 0 && xDistanceDragged_ < drift_slider::deadZone) {
        return;
    }
    change([&](DriftSliderModel& model) { model.setPercent(place); });
}

void DriftSliderDrag::snapTo(double place) {
    const auto model = model_;
    const double lowest = model->minimumValue;
    // The minimum counts within the rounding, too: with one that is not 0 the steps are shifted.
    const double steps =
        std::round((place * (model->maximumValue - lowest) - lowest) / model->incrementBy);
    const double snapped = model->clamped(steps * model->incrementBy + lowest);
    if (!std::isnan(snapped) && model->value.value() != snapped) { // a step of 0 leads nowhere
        change([&](DriftSliderModel& changed) { changed.setValue(snapped); });
    }
}

void DriftSliderDrag::change(const std::function<void(DriftSliderModel& model)>& edit) {
    const auto model = model_;
    const std::weak_ptr<bool> gesture = gesture_;
    edit(*model);
    if (!gesture.expired()) { // or an observer of the value has ended the drag
        tell(&DriftSliderModel::onSlideOngoing);
    }
}

void DriftSliderDrag::end() {
    if (!isDragging_) {
        return;
    }
    isDragging_ = false;
    gesture_.reset();
    xDragOffset_ = 0;
    xDistanceDragged_ = 0;
    DriftSliderDrag last(model_); // a callback may begin the next one
    last.told_ = std::exchange(told_, std::nullopt);
    last.isStartTold_ = std::exchange(isStartTold_, false);
    last.tell(&DriftSliderModel::onSlideComplete);
}

} // namespace driftwood
