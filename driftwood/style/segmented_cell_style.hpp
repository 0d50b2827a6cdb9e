#pragma once

#include "driftwood/style/control_style.hpp"

// All of this is for the main thread.
namespace driftwood {

/// The style of rows of segments such as tabs.
class SegmentedCellStyle : public ControlStyle {
  public:
    SegmentedCellStyle();

    /// Room around a segment's label.
    [[nodiscard]] const core::EdgeInsets& segmentPadding() const { return segmentPadding_; }
    void setSegmentPadding(const core::EdgeInsets& insets) { setLayout(segmentPadding_, insets); }

    /// Room around a segment.
    [[nodiscard]] const core::EdgeInsets& segmentMargin() const { return segmentMargin_; }
    void setSegmentMargin(const core::EdgeInsets& insets) { setLayout(segmentMargin_, insets); }

  private:
    core::EdgeInsets segmentPadding_;
    core::EdgeInsets segmentMargin_;
};

} // namespace driftwood
