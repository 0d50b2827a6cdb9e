#pragma once

#include "platform/ui/cells/cell_button.hpp"

#include <QCursor>

#include <optional>

namespace driftwood {

class CursorButtonCell : public platform::ButtonCell {
  public:
    explicit CursorButtonCell(const QString& title = {}) : ButtonCell(title) { setBordered(false); }
};

/// A button with a pointer of its own: entering it puts that on top of the others, leaving it takes
/// it away. It fades while it is pressed. A click counts even if it makes the window key.
class CursorButton : public platform::CellButton {
  public:
    /// Without the image "cursor-cycle" in the kit's bundle the program stops.
    explicit CursorButton(const QString& title, QWidget* parent = nullptr)
        : CursorButton(std::make_unique<CursorButtonCell>(title), parent) {}
    ~CursorButton() override;

    [[nodiscard]] const platform::ImageAsset& cursorImage() const { return *cursorImage_; }
    /// The image outlives the button.
    void setCursorImage(const platform::ImageAsset& image);
    [[nodiscard]] QPoint cursorHotSpot() const { return cursorHotSpot_; }
    void setCursorHotSpot(QPoint hotSpot);
    /// Made from the two when it is first asked for.
    [[nodiscard]] const QCursor& buttonCursor() const;
    /// Where the pointer is the button's.
    [[nodiscard]] QRect trackingArea() const { return rect(); }

  protected:
    CursorButton(std::unique_ptr<platform::ButtonCell> cell, QWidget* parent);

    void highlightDidChange(bool isHighlighted) override { setAlphaValue(isHighlighted ? 0.5 : 1); }
    bool event(QEvent* event) override;

  private:
    void pushCursor();
    void popCursor();

    const platform::ImageAsset* cursorImage_;
    QPoint cursorHotSpot_{3, 4};
    mutable std::optional<QCursor> cursor_;
    bool isPushed_ = false;
};

} // namespace driftwood
