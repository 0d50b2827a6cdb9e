#pragma once

#include "core/geometry.hpp"
#include "fernhorn/dials/knob_control.hpp"
#include "fernhorn/dials/value_label.hpp"

#include <QString>

#include <algorithm>
#include <cstdint>

namespace fernhorn {

/// Where the two layers of a dial lie: the knob and the label around one centre, the knob shifted
/// upwards, so that it may stand out of the layers' common height at the top. A
/// value.
struct DialLayout {
    core::Rect knob;
    core::Point labelCenter;
};

/// How far the knob stands out. Any thread.
[[nodiscard]] constexpr double dialOverhang(core::Size knob, double lift, double labelHeight) {
    return std::max(0.0, lift - (std::max(knob.height, labelHeight) - knob.height) / 2);
}

/// The layers within a widget that has room for the overhang at its top. Any thread.
[[nodiscard]] constexpr DialLayout layOutDial(core::Size widget, core::Size knob, double lift,
                                              double labelHeight) {
    const double overhang = dialOverhang(knob, lift, labelHeight);
    const core::Point center{widget.width / 2, overhang + (widget.height - overhang) / 2};
    return {{{center.x - knob.width / 2, center.y - knob.height / 2 - lift}, knob}, center};
}

/// What is the same for all dials of a kind; a value.
struct DialDesign {
    QString frames; ///< the images are called this and then "01", "02" …
    int imageCount;
    double knobMinDrag;        ///< points
    float knobDragScaleFactor; ///< share of the travel for each point
    core::Size knobSize;       ///< points
    double knobLift;           ///< points upwards from the middle
    core::Point axis;          ///< the middle of the knob that the images show, in their frame
    double reach;              ///< from there to where the focus ring ends, points
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
    [[nodiscard]] FocusShape focusShape() const override;
    [[nodiscard]] bool showsValue() const override { return true; }
    [[nodiscard]] KnobClick clickAt(QPointF point) const override;
    void valueDidChange(float value) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    const core::Size knobSize_;
    const double knobLift_;
    const core::Point axis_;
    const double reach_;
    LabelPart label_;
    QRectF knobRect_;
    platform::HeldKey heldKey_;
    bool isLabelPressed_ = false;
};

/// The colours of large dials.
enum class ModernDialColor : std::uint8_t { grey };

/// The large dial. Main thread.
class ChaosDial final : public Dial {
    Q_OBJECT

  public:
    /// See `Dial`.
    ChaosDial(std::shared_ptr<AudioParameter> param, ModernDialColor color,
              const LabelDisplayOptions& labelDisplayOptions,
              std::shared_ptr<const LabelFormatter> formatter = nullptr,
              std::function<void()> onEditingEnded = {}, QWidget* parent = nullptr);

    [[nodiscard]] ModernDialColor color() const { return color_; }

  private:
    const ModernDialColor color_;
};

/// The colours of the lit ring.
enum class SmallDialColor : std::uint8_t { blue, yellow, red, purple };

/// The dial with a lit ring around it. Main thread.
class MediumDial final : public Dial {
    Q_OBJECT

  public:
    /// See `Dial`.
    MediumDial(std::shared_ptr<AudioParameter> param, SmallDialColor color,
               const LabelDisplayOptions& labelDisplayOptions,
               std::shared_ptr<const LabelFormatter> formatter = nullptr,
               std::function<void()> onEditingEnded = {}, QWidget* parent = nullptr);

    [[nodiscard]] SmallDialColor color() const { return color_; }

  private:
    const SmallDialColor color_;
};

/// The colours of small dials.
enum class TinyDialColor : std::uint8_t { grey };

/// The small dial. Main thread.
class TinyDial final : public Dial {
    Q_OBJECT

  public:
    /// See `Dial`.
    TinyDial(std::shared_ptr<AudioParameter> param, const LabelDisplayOptions& labelDisplayOptions,
             std::shared_ptr<const LabelFormatter> formatter = nullptr,
             std::function<void()> onEditingEnded = {}, QWidget* parent = nullptr);

    [[nodiscard]] TinyDialColor color() const { return TinyDialColor::grey; }
};

} // namespace fernhorn
