#pragma once

#include "core/subscription.hpp"
#include "fernhorn/dials/knob_gestures.hpp"
#include "fernhorn/format/label_formatter.hpp"

#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>

namespace fernhorn {

class FilmStrip;
class KnobInput;

/// Draws a knob into a rectangle; `imageIndex` is the frame to show, from 1 on. Main thread.
using KnobContent = std::function<void(QPainter& painter, const QRectF& rect, int imageIndex)>;

/// The frames of a strip, which outlives the knob. Main thread.
KnobContent filmStripContent(const FilmStrip& strip);

/// A knob over a parameter. Dragging it upwards turns it up, with Shift ten times finer; a double
/// click or a click with Alt sets the default value; wheel, arrows, Page Up, Page Down, Home, End
/// and Delete do what they say. Clicks leave the keyboard where it is; Tab brings it. Main thread.
class KnobControl : public QWidget {
    Q_OBJECT

  public:
    /// `param` must not be null. `knobMinDrag` is in points, `knobDragScaleFactor` the share of the
    /// whole travel for each point, `imageCount` at least 1.
    KnobControl(std::shared_ptr<AudioParameter> param, double knobMinDrag,
                float knobDragScaleFactor, std::int64_t imageCount, KnobContent content,
                QWidget* parent = nullptr);
    ~KnobControl() override;

    [[nodiscard]] const std::shared_ptr<AudioParameter>& param() const { return param_; }
    [[nodiscard]] double knobMinDrag() const { return feel_.knobMinDrag; }
    [[nodiscard]] float knobDragScaleFactor() const { return feel_.knobDragScaleFactor; }
    [[nodiscard]] std::int64_t imageCount() const { return imageCount_; }
    /// The pointer's height at the last event of a drag; absent between drags.
    [[nodiscard]] std::optional<double> lastDragValue() const;
    /// The unrounded value being dragged; absent between drags.
    [[nodiscard]] std::optional<float> continuousDragValue() const;
    /// The frame shown; 1 until the knob is first shown.
    [[nodiscard]] int imageIndex() const { return imageIndex_; }

    /// How the value is written beside the pointer and for screen readers.
    [[nodiscard]] const std::shared_ptr<const LabelFormatter>& readOutFormatter() const {
        return readOutFormatter_;
    }
    /// Not null.
    void setReadOutFormatter(std::shared_ptr<const LabelFormatter> formatter);

    /// Tells screen readers of an edit that was made here. Others, automation above all, are not
    /// announced.
    void announceEdit();

  protected:
    /// Where the knob is drawn.
    [[nodiscard]] virtual QRectF knobRect() const { return rect(); }
    /// Where the focus ring lies, and how round it is.
    struct FocusShape {
        QRectF bounds;
        double radius;
    };
    [[nodiscard]] virtual FocusShape focusShape() const { return {knobRect(), 4}; }
    /// Whether the value can be read on the knob itself; others show it beside a drag.
    [[nodiscard]] virtual bool showsValue() const { return false; }
    /// Whether a click there may reset the parameter.
    [[nodiscard]] virtual KnobClick clickAt(QPointF /*point*/) const { return KnobClick::resets; }
    /// The parameter has this value now, or the knob is first shown.
    virtual void valueDidChange(float value);
    /// Whether the pointer has been pressed here and is still down.
    [[nodiscard]] bool isPressed() const;
    /// Paints the knob and the focus ring.
    void paintKnob(QPainter& painter);

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    const std::shared_ptr<AudioParameter> param_;
    const KnobFeel feel_;
    const std::int64_t imageCount_;
    const KnobContent content_;
    std::shared_ptr<const LabelFormatter> readOutFormatter_;
    const std::unique_ptr<KnobInput> input_;
    core::Subscription valueObserver_;
    int imageIndex_ = 1;
    bool showsFocus_ = false;
};

} // namespace fernhorn
