#pragma once

#include "platform/controls/cell_button.hpp"

#include <QCursor>

#include <optional>

// All of this is for the main thread.
namespace driftwood {

/// A button cell without a bezel that draws its image itself, see the button.
class DarkHighlightButtonCell : public platform::ButtonCell {
  public:
    explicit DarkHighlightButtonCell(const QString& title = {}) : ButtonCell(title) {
        setBordered(false);
    }

  protected:
    void drawImage(const platform::ImageAsset& image, const core::Rect& frame,
                   const platform::CellCanvas& canvas) const override {
        const platform::CellState& state = cellState();
        const bool isWhole = state.isEnabled && !state.isHighlighted;
        platform::paintCellImage(canvas, frame, image, isWhole ? 1.0 : 0.5,
                                 platform::CellImageResizing::stretch);
    }
};

/// An image that darkens while it is pressed.
class DarkHighlightButton : public platform::CellButton {
  public:
    explicit DarkHighlightButton(const QString& title, QWidget* parent = nullptr)
        : CellButton(std::make_unique<DarkHighlightButtonCell>(title), parent) {}

    [[nodiscard]] const std::optional<QCursor>& customCursor() const { return customCursor_; }
    /// The pointer over all of the button; none is the one of the views behind.
    void setCustomCursor(const std::optional<QCursor>& cursor) {
        customCursor_ = cursor;
        if (cursor) {
            setCursor(*cursor);
        } else {
            unsetCursor();
        }
    }

  private:
    std::optional<QCursor> customCursor_;
};

} // namespace driftwood
