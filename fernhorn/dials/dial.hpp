#pragma once

#include "fernhorn/controls/dial_layout.hpp"
#include "fernhorn/controls/knob_control.hpp"
#include "fernhorn/controls/label_part.hpp"

#include <QString>

namespace fernhorn {

/// What is the same for all dials of a kind.
struct DialDesign {
    QString frames; ///< the images are called this and then "01", "02" …
    int imageCount;
    double knobMinDrag;        ///< points
    float knobDragScaleFactor; ///< share of the travel for each point
    core::Size knobSize;       ///< points
    double knobLift;           ///< points upwards from the middle
    QString labelColor;        ///< the caption's, by its name in the kit's bundle
    FernFont labelFont;
};

/// A knob with the label of its value over it. A click on the label, or Return, opens a field to
/// type a value; a drag that starts on the label turns the knob below it. Everything is one widget,
/// which paints both. `ChaosDial`, `MediumDial` and `TinyDial` are the kinds of the kit; another is
/// made from a design of its own. Main thread.
class Dial : public KnobControl {
    Q_OBJECT

  public:
    /// `param` must not be null. Without a formatter the label shows numbers with one decimal
    /// place. `onEditingEnded` is the label's and may be empty.
    Dial(std::shared_ptr<AudioParameter> param, const DialDesign& design,
         const LabelDisplayOptions& labelDisplayOptions,
         std::shared_ptr<const LabelFormatter> formatter, std::function<void()> onEditingEnded,
         QWidget* parent = nullptr);
    ~Dial() override;

    [[nodiscard]] const LabelDisplayOptions& labelDisplayOptions() const {
        return label_.displayOptions();
    }
    /// What the label shows values with; never null.
    [[nodiscard]] const std::shared_ptr<const LabelFormatter>& formatter() const {
        return label_.editing().formatter();
    }
    [[nodiscard]] bool isEditing() const { return label_.editing().isEditing(); }

    /// Opens the field. Does nothing when it is open.
    void openField();

    /// How far the knob stands out above the rest, in points; `sizeHint` includes it. For layouts
    /// that align dials with other things.
    [[nodiscard]] double overhang() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    [[nodiscard]] QRectF knobRect() const override;
    [[nodiscard]] KnobClick clickAt(QPointF point) const override;
    void valueDidChange(float value) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    const core::Size knobSize_;
    const double knobLift_;
    LabelPart label_;
    QRectF knobRect_;
    bool isLabelPressed_ = false;
};

} // namespace fernhorn
