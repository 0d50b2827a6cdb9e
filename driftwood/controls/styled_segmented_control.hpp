#pragma once

#include "driftwood/bridges/styled_class.hpp"
#include "driftwood/controls/kit_control.hpp"
#include "driftwood/style/segmented_cell_style.hpp"
#include "driftwood/util/segment_row.hpp"
#include "platform/controls/line_text.hpp"
#include "platform/controls/press_input.hpp"

#include <functional>
#include <map>
#include <vector>

// All of this is for the main thread.
namespace driftwood {

/// Measures and draws a row of segments such as tabs, each from the style's image for its state.
class StyledSegmentedCell : public platform::Cell,
                            public StyledControl,
                            public StyledClass<StyledSegmentedCell, SegmentedCellStyle> {
  public:
    [[nodiscard]] StyledControlState controlState() const override {
        return styledControlState(cellState());
    }
    [[nodiscard]] SegmentedCellStyle& controlStyle() const override { return style(); }

    /// Which segments there are and what they are up to; change it through `setLabels` and here.
    [[nodiscard]] SegmentRow& row() { return row_; }
    [[nodiscard]] const SegmentRow& row() const { return row_; }

    void setLabels(const QStringList& labels);
    [[nodiscard]] QString label(int segment) const; ///< empty where there is none
    void setLabel(int segment, const QString& label);

    /// In points, for a segment without a label; one with a label is as wide as that and the
    /// style's padding, whatever is asked for.
    void setWidth(double width, int segment);
    [[nodiscard]] double width(int segment) const;

    /// True: no segment is drawn as selected.
    [[nodiscard]] bool hideSelection() const { return hideSelection_; }
    void setHideSelection(bool hides) { hideSelection_ = hides; }
    [[nodiscard]] SegmentDistribution distribution() const { return distribution_; }
    void setDistribution(SegmentDistribution distribution) { distribution_ = distribution; }

    /// A pressed segment is `highlighted` in a disabled control, too.
    [[nodiscard]] StyledControlState segmentState(int segment) const;
    [[nodiscard]] std::vector<core::Rect> segmentFrames(const core::Rect& bounds,
                                                        bool isRightToLeft) const;
    /// Where each segment was when it was last drawn; segments that are gone may still be there.
    [[nodiscard]] const std::map<int, core::Rect>& cachedSegmentFrames() const {
        return cachedSegmentFrames_;
    }

    [[nodiscard]] BackgroundStyle interiorBackgroundStyle() const {
        return style().interiorBackgroundStyle();
    }
    [[nodiscard]] BackgroundStyle interiorBackgroundStyle(int /*segment*/) const {
        return style().interiorBackgroundStyle();
    }

    /// The key segment's content; empty as long as that has not been drawn.
    [[nodiscard]] core::Rect focusRingMaskBounds(const core::Rect& frame) const override;
    [[nodiscard]] core::Size cellSize() const override;

    /// Whether the key segment has its ring now. It lies under the label, so the cell draws it.
    std::function<bool()> showsFocusRing;

  protected:
    void drawInterior(const core::Rect& frame, const platform::CellCanvas& canvas) const override;

  private:
    struct Segment {
        QString label;
        double width = 0;
        mutable platform::LineText text;
    };

    [[nodiscard]] core::Rect contentRect(const core::Rect& frame, int segment) const;
    void drawSegment(int segment, const core::Rect& frame,
                     const platform::CellCanvas& canvas) const;
    [[nodiscard]] const Segment* find(int segment) const;

    SegmentRow row_;
    std::vector<Segment> segments_;
    bool hideSelection_ = false;
    SegmentDistribution distribution_ = SegmentDistribution::fit;
    mutable std::map<int, core::Rect> cachedSegmentFrames_;
};

/// A row of tabs. A click selects one and sends the action, which asks `selectedSegment`; the
/// arrow keys, Home and End move the keyboard from one to the other, and Space or Return selects.
/// Screen readers find a list of tabs.
class StyledSegmentedControl : public KitControl<platform::CellControl, StyledSegmentedCell> {
  public:
    explicit StyledSegmentedControl(const QStringList& labels = {}, QWidget* parent = nullptr);

    [[nodiscard]] int segmentCount() const { return styledCell().row().count(); }
    void setLabels(const QStringList& labels);
    [[nodiscard]] QString label(int segment) const { return styledCell().label(segment); }
    void setLabel(int segment, const QString& label);
    void setWidth(double width, int segment);
    void setDistribution(SegmentDistribution distribution);

    /// By a program: no action is sent. None for no segment.
    void setSelectedSegment(std::optional<int> segment);
    [[nodiscard]] std::optional<int> selectedSegment() const {
        return styledCell().row().selected();
    }
    /// The selection is kept, and not seen.
    void setHideSelection(bool hides);
    [[nodiscard]] bool hideSelection() const { return styledCell().hideSelection(); }

    [[nodiscard]] core::Size intrinsicContentSize() const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override;
    [[nodiscard]] std::vector<platform::AccessiblePart> accessibleParts() const override;
    void performAccessiblePart(int index) override;

  protected:
    void cancelTracking() override;
    [[nodiscard]] bool isTrackingKey() const override { return input_.press().isByKey(); }
    [[nodiscard]] QColor focusRingColor() const override { return Qt::transparent; }
    bool handleEvent(QEvent* event) override;

  private:
    void tellSelection(std::optional<int> segment);
    [[nodiscard]] std::vector<core::Rect> frames() const;
    [[nodiscard]] bool moveKey(const QKeyEvent& event);
    [[nodiscard]] bool press(const QEvent& event);
    void follow(platform::PressStep step);
    void choose(int segment);
    void tellFocus();

    platform::PressInput input_;
    std::optional<int> tracked_; // the segment that the press has begun on
};

} // namespace driftwood
