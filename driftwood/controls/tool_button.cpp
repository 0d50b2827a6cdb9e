#include "driftwood/controls/tool_button.hpp"

#include <QApplication>
#include <QTimerEvent>

namespace driftwood {

void ToolButtonCell::drawBezel(const core::Rect& frame, const platform::CellCanvas& canvas) const {
    StyledButtonCell::drawBezel(frame, canvas);
    if (showMoreIcon_) {
        static const Image more = assetSource().image("corner-tool-more");
        if (const auto* const image = toImageAsset(more)) {
            platform::paintCellImage(canvas, frame, *image, bezelOpacity());
        }
    }
}

void ToolButton::setShowMoreIcon(bool shows) {
    if (shows != showMoreIcon()) {
        toolCell().setShowMoreIcon(shows);
        update();
    }
}

void ToolButton::setSecondaryAction(Action action, platform::ActionTarget& target) {
    secondaryAction_ = std::move(action);
    secondaryTarget_ = target.weakTarget();
    secondaryFinder_ = nullptr;
}

void ToolButton::setUntargetedAction(Action action, Finder finder) {
    secondaryAction_ = std::move(action);
    secondaryTarget_.reset();
    secondaryFinder_ = finder;
}

bool ToolButton::performSecondaryClick() {
    const Action action = secondaryAction_; // it may be replaced while it runs
    if (action == nullptr) {
        return false;
    }
    platform::ActionTarget* to = secondaryTarget();
    if (to == nullptr && secondaryFinder_ != nullptr) {
        to = secondaryFinder_(*this);
    }
    if (to != nullptr) {
        action(*to, *this); // may destroy the button
    }
    return true;
}

bool ToolButton::mouseDown(int clickCount) {
    if (secondaryAction_ != nullptr && clickCount == 1) {
        const auto interval =
            holdInterval_.value_or(std::chrono::milliseconds(QApplication::doubleClickInterval()));
        hold_.start(static_cast<int>(interval.count()), this);
    }
    return false;
}

void ToolButton::trackingDidChange(bool isTracking) {
    if (!isTracking) {
        hold_.stop();
    }
}

void ToolButton::timerEvent(QTimerEvent* event) {
    if (event->timerId() != hold_.timerId()) {
        StyledButton::timerEvent(event);
        return;
    }
    cancelPress();
    performSecondaryClick();
}

} // namespace driftwood
