#pragma once

#include "platform/controls/cell_painting.hpp"
#include "platform/controls/cell_state.hpp"

namespace platform {

/// Measures and draws a control; knows no widget. What it draws follows from its fields and from
/// the frame that it is given, in points from the top left. Refine one step of the drawing at a
/// time. Main thread.
class Cell {
  public:
    Cell() = default;
    Cell(const Cell&) = delete;
    Cell& operator=(const Cell&) = delete;
    virtual ~Cell() = default;

    /// Whether it is on, enabled and pressed.
    [[nodiscard]] const CellState& cellState() const { return cellState_; }
    void setCellState(const CellState& state) { cellState_ = state; }

    [[nodiscard]] bool isBordered() const { return isBordered_; }
    void setBordered(bool isBordered) { isBordered_ = isBordered; }
    [[nodiscard]] bool isBezeled() const { return isBezeled_; }
    void setBezeled(bool isBezeled) { isBezeled_ = isBezeled; }
    [[nodiscard]] bool hasFrame() const { return isBordered_ || isBezeled_; }

    /// Where the content goes, within the bounds.
    [[nodiscard]] virtual core::Rect drawingRect(const core::Rect& bounds) const { return bounds; }
    /// The bounds of the focus ring.
    [[nodiscard]] virtual core::Rect focusRingMaskBounds(const core::Rect& frame) const {
        return frame;
    }
    /// What the content needs.
    [[nodiscard]] virtual core::Size cellSize() const = 0;

    /// The bezel, where it has a frame, and the content over it. On another thread than the main
    /// thread the program stops.
    void draw(const core::Rect& frame, const CellCanvas& canvas) const;

  protected:
    virtual void drawBezel(const core::Rect& /*frame*/, const CellCanvas& /*canvas*/) const {}
    virtual void drawInterior(const core::Rect& frame, const CellCanvas& canvas) const = 0;

  private:
    CellState cellState_;
    bool isBordered_ = false;
    bool isBezeled_ = false;
};

} // namespace platform
