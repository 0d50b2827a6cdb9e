#pragma once

#include "driftwood/controls/clickable_image_view.hpp"
#include "driftwood/controls/internal/value_accessible.hpp"
#include "driftwood/util/tracking_value.hpp"
#include "platform/controls/hover_cursor.hpp"
#include "platform/controls/pan_recognizer.hpp"

#include <functional>

class QKeyEvent;
class QMouseEvent;

// All of this is for the main thread.
namespace driftwood {

enum class MovementDirection { horizontal, vertical };

/// An image that is a knob: a drag anywhere over it, two fingers or a wheel move its value by one
/// increment an event, upwards or to the right for more. It has a pointer of its own. A drag calls
/// `onSlideStarted`; its end sends the action and calls `onSlideComplete`; one that is taken away
/// is a click, and calls nothing. The mouse leaves the keyboard where it is; where Tab leads to it,
/// the arrows, Page, Home and End move it and send the action.
class TrackingSlider : public ClickableImageView, public ValueControl {
    Q_OBJECT

  public:
    using Callback = std::function<void(double value)>;

    /// The image outlives the slider. Without the image "cursor-trackingslider" in the kit's bundle
    /// the program stops.
    explicit TrackingSlider(const platform::ImageAsset* image = nullptr, QWidget* parent = nullptr);
    ~TrackingSlider() override;

    Callback onSlideStarted;
    Callback onSlideComplete;

    [[nodiscard]] MovementDirection movementDirection() const { return direction_; }
    void setMovementDirection(MovementDirection direction) { direction_ = direction; }
    [[nodiscard]] bool horizontalDirection() const {
        return direction_ == MovementDirection::horizontal;
    }
    void setHorizontalDirection(bool isHorizontal) {
        direction_ = isHorizontal ? MovementDirection::horizontal : MovementDirection::vertical;
    }

    [[nodiscard]] double incrementBy() const { return value_.incrementBy; }
    void setIncrementBy(double increment) { value_.incrementBy = increment; }
    [[nodiscard]] double minimumValue() const { return value_.minimumValue; }
    [[nodiscard]] double maximumValue() const { return value_.maximumValue; }
    /// The value is kept within it. A maximum below the minimum, or a bound that is no number,
    /// stops the program.
    void setRange(double minimum, double maximum);
    [[nodiscard]] double minimumPanVelocity() const { return value_.minimumPanVelocity; }
    void setMinimumPanVelocity(double pointsASecond) { value_.minimumPanVelocity = pointsASecond; }
    /// By the user, since the last drag began.
    [[nodiscard]] bool valueWasEdited() const { return value_.valueWasEdited; }
    /// Whether a drag sends the action with every step. False at first.
    [[nodiscard]] bool isContinuous() const { return isContinuous_; }
    void setContinuous(bool isContinuous) { isContinuous_ = isContinuous; }
    /// What the value is followed by for screen readers: "dB".
    void setUnit(const QString& unit) { unit_ = unit; }

    // Setters keep the value within the range and send nothing; integers are truncated, and stop
    // the program where the value does not fit.
    [[nodiscard]] double doubleValue() const { return value_.doubleValue(); }
    void setDoubleValue(double value);
    [[nodiscard]] float floatValue() const { return static_cast<float>(doubleValue()); }
    void setFloatValue(float value) { setDoubleValue(value); }
    [[nodiscard]] std::int32_t intValue() const { return value_.intValue(); }
    void setIntValue(std::int32_t value) { setDoubleValue(value); }
    [[nodiscard]] std::int64_t integerValue() const { return value_.integerValue(); }
    void setIntegerValue(std::int64_t value) { setDoubleValue(static_cast<double>(value)); }

    /// The value whenever the action is sent. Makes the control's publisher its target.
    [[nodiscard]] core::Stream<double>& doubleValuePublisher();

    [[nodiscard]] static bool acceptsFirstResponder() { return false; } ///< on a click
    [[nodiscard]] static bool mouseDownCanMoveWindow() { return false; }
    [[nodiscard]] const QCursor& trackingCursor() const { return cursor_.cursor(); }

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Slider; }
    [[nodiscard]] QAccessibleInterface* makeAccessible() override;
    [[nodiscard]] std::optional<double> spokenValue() const override { return doubleValue(); }
    [[nodiscard]] double lowestValue() const override { return minimumValue(); }
    [[nodiscard]] double highestValue() const override { return maximumValue(); }
    [[nodiscard]] double smallestStep() const override { return incrementBy(); }
    [[nodiscard]] QString valueText() const override;
    void editValue(double value) override;
    void stepValue(double steps) override;

  protected:
    void cancelTracking() override;
    bool handleEvent(QEvent* event) override;

  private:
    [[nodiscard]] bool takeMouse(const QMouseEvent& event);
    [[nodiscard]] bool takeKey(const QKeyEvent& event);
    void handlePan(platform::PanState state);
    void centreTranslation();
    void step(double amount, bool sendsAction);

    TrackingValue value_;
    MovementDirection direction_ = MovementDirection::vertical;
    bool isContinuous_ = false;
    platform::PanRecognizer pan_;
    platform::HoverCursor cursor_;
    QString unit_;
    std::shared_ptr<core::Subject<double>> values_; // made when it is asked for
    core::Subscription events_;
};

} // namespace driftwood
