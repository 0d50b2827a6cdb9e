#pragma once

#include "platform/controls/cell_button.hpp"
#include "platform/controls/hover_cursor.hpp"

// All of this is for the main thread.
namespace driftwood {

/// A button cell without a bezel.
class CursorButtonCell : public platform::ButtonCell {
  public:
    explicit CursorButtonCell(const QString& title = {}) : ButtonCell(title) { setBordered(false); }
};

/// A button with a pointer of its own, a `HoverCursor`. It fades while it is pressed. A click
/// counts even if it makes the window key.
class CursorButton : public platform::CellButton {
  public:
    /// Without the image "cursor-cycle" in the kit's bundle the program stops.
    explicit CursorButton(const QString& title, QWidget* parent = nullptr)
        : CursorButton(std::make_unique<CursorButtonCell>(title), parent) {}

    [[nodiscard]] const platform::ImageAsset& cursorImage() const { return cursor_.image(); }
    /// The image outlives the button.
    void setCursorImage(const platform::ImageAsset& image) { cursor_.setImage(image); }
    [[nodiscard]] QPoint cursorHotSpot() const { return cursor_.hotSpot(); }
    void setCursorHotSpot(QPoint hotSpot) { cursor_.setHotSpot(hotSpot); }
    /// Made from the two when it is first asked for.
    [[nodiscard]] const QCursor& buttonCursor() const { return cursor_.cursor(); }
    /// Where the pointer is the button's.
    [[nodiscard]] QRect trackingArea() const { return rect(); }

  protected:
    CursorButton(std::unique_ptr<platform::ButtonCell> cell, QWidget* parent);

    void highlightDidChange(bool isHighlighted) override { setAlphaValue(isHighlighted ? 0.5 : 1); }

  private:
    platform::HoverCursor cursor_;
};

} // namespace driftwood
