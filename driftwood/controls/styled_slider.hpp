#pragma once

#include "driftwood/controls/internal/value_accessible.hpp"
#include "driftwood/controls/kit_control.hpp"
#include "driftwood/style/slider_cell_style.hpp"
#include "driftwood/util/slider_drag.hpp"

#include <functional>

class QKeyEvent;

// All of this is for the main thread.
namespace driftwood {

/// Measures and draws a slider: a track, its filled part and a knob. The style's images are those
/// of a horizontal one; a vertical slider is that one stood up, a circular one draws a ring in the
/// style's colours.
class StyledSliderCell : public platform::Cell, public StyledControl {
  public:
    using ViewStyle = SliderCellStyle;
    /// One for all sliders; its background is clear.
    [[nodiscard]] static SliderCellStyle& style();

    /// `default`, `disabled`, and `highlighted` while the knob is held.
    [[nodiscard]] StyledControlState controlState() const override {
        return styledControlState(cellState());
    }
    [[nodiscard]] SliderCellStyle& controlStyle() const override { return style(); }

    [[nodiscard]] SliderKind sliderType() const { return kind_; }
    void setSliderType(SliderKind kind) { kind_ = kind; }
    [[nodiscard]] bool isVertical() const { return kind_ == SliderKind::vertical; }
    [[nodiscard]] double place() const { return place_; } ///< of the knob, 0 to 1
    void setPlace(double place) { place_ = place; }

    /// What the geometry follows from, in a control of these bounds.
    [[nodiscard]] SliderParts parts(const core::Rect& bounds, bool isRightToLeft) const;
    [[nodiscard]] double knobThickness() const;
    [[nodiscard]] core::Rect barRect(const core::Rect& bounds) const;
    [[nodiscard]] core::Rect knobRect(const core::Rect& bounds, bool isRightToLeft) const;

    [[nodiscard]] BackgroundStyle interiorBackgroundStyle() const {
        return style().interiorBackgroundStyle();
    }
    [[nodiscard]] core::Size cellSize() const override;

  protected:
    void drawInterior(const core::Rect& frame, const platform::CellCanvas& canvas) const override;
    virtual void drawBar(const SliderParts& parts, const platform::CellCanvas& canvas) const;
    virtual void drawKnob(const core::Rect& frame, const platform::CellCanvas& canvas) const;

  private:
    void drawTrack(const core::Rect& rect, const Image& image,
                   const platform::CellCanvas& canvas) const;
    void drawRing(const core::Rect& bar, const platform::CellCanvas& canvas) const;
    [[nodiscard]] double opacity() const { return cellState().isEnabled ? 1.0 : 0.5; }

    SliderKind kind_ = SliderKind::horizontal;
    double place_ = 0;
};

/// A slider. A drag tells of its start, course and end through the callbacks: by its own action,
/// which looks at the current event; somebody else's action takes that place. A drag that is taken
/// away, by disabling, hiding, re-parenting or destroying the slider, ends as a release ends it, so
/// each start has one end. Keys (the arrows, Page, Home, End) and screen readers send the action,
/// and call nothing. The callbacks own what they use.
class StyledSlider : public KitControl<platform::CellControl, StyledSliderCell>,
                     public ValueControl {
  public:
    using Callback = std::function<void(double value)>;

    explicit StyledSlider(SliderKind kind = SliderKind::horizontal, QWidget* parent = nullptr);
    ~StyledSlider() override;

    Callback onSlideStarted;
    Callback onSlideOngoing;
    Callback onSlideComplete;

    [[nodiscard]] SliderKind sliderType() const { return styledCell().sliderType(); }
    void setSliderType(SliderKind kind);

    [[nodiscard]] double doubleValue() const { return value_; }
    /// Kept within the range; sends nothing. What is no number is ignored.
    void setDoubleValue(double value);
    [[nodiscard]] double minValue() const { return range_.minimum; }
    [[nodiscard]] double maxValue() const { return range_.maximum; }
    /// The value is kept within it, in the middle of a drag as well. A maximum below the minimum,
    /// or a bound that is no number, stops the program. 0 to 1 at first.
    void setRange(double minimum, double maximum);
    /// What an arrow key moves; a hundredth of the range unless it is above 0. A page is ten.
    void setKeyStep(double step) { keyStep_ = step; }
    /// What the value is followed by for screen readers: "dB".
    void setUnit(const QString& unit) { unit_ = unit; }

    /// Whether the action is sent in the course of a drag, too. True at first.
    [[nodiscard]] bool isContinuous() const { return isContinuous_; }
    void setContinuous(bool isContinuous) { isContinuous_ = isContinuous; }
    [[nodiscard]] bool isDragging() const { return drag_.isDragging(); }

    /// The slider's own action: runs the callback for the current event.
    void sliderValueChanged(platform::Control& sender);

    [[nodiscard]] core::Size intrinsicContentSize() const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Slider; }
    [[nodiscard]] QAccessibleInterface* makeAccessible() override;
    [[nodiscard]] std::optional<double> spokenValue() const override { return value_; }
    [[nodiscard]] double lowestValue() const override { return range_.minimum; }
    [[nodiscard]] double highestValue() const override { return range_.maximum; }
    [[nodiscard]] double smallestStep() const override;
    [[nodiscard]] QString valueText() const override;
    void editValue(double value) override;
    void stepValue(double steps) override;

  protected:
    [[nodiscard]] const SliderRange& range() const { return range_; }
    [[nodiscard]] bool isRightToLeftSlider() const { return layoutDirection() == Qt::RightToLeft; }
    void cancelTracking() override { endDrag(); }
    bool handleEvent(QEvent* event) override;

  private:
    [[nodiscard]] SliderParts parts() const;
    void endDrag();
    void dragTo(double place, bool isPress);
    [[nodiscard]] bool takeKey(const QKeyEvent& event);
    [[nodiscard]] bool takeMouse(QEvent& event);
    void placeKnob();

    SliderRange range_;
    double value_ = 0;
    double keyStep_ = 0;
    SliderDrag drag_;
    bool isContinuous_ = true;
    QString unit_;
};

/// The same, moved by wheels and two fingers as well. A notch of an ordinary mouse, 10 units of
/// `platform::scrollingDelta`, is a fortieth of the range: with one unit for a notch the whole
/// range would take 400 of them. A circular one goes on at its other end.
class StyledScrollableSlider : public StyledSlider {
  public:
    using StyledSlider::StyledSlider;

  protected:
    bool handleEvent(QEvent* event) override;
};

} // namespace driftwood
