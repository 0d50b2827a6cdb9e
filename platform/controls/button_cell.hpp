#pragma once

#include "platform/ui/cells/button_geometry.hpp"
#include "platform/ui/cells/cell_painting.hpp"
#include "platform/ui/cells/cell_state.hpp"

#include <QString>

namespace platform {

/// The form of a bezel. The values count.
enum class BezelStyle { automatic = 0, push = 1, flexiblePush = 2, smallSquare = 10 };

/// Measures and draws a button; knows no widget. What it draws follows from its fields and from the
/// frame that it is given, in points. This one draws its image and title plainly; styled cells
/// refine it, one operation at a time. Main thread.
class ButtonCell {
  public:
    explicit ButtonCell(QString title = {}) : title_(std::move(title)) {}
    ButtonCell(const ButtonCell&) = delete;
    ButtonCell& operator=(const ButtonCell&) = delete;
    virtual ~ButtonCell() = default;

    [[nodiscard]] const QString& title() const { return title_; }
    void setTitle(const QString& title) { title_ = title; }
    /// Null shows none. The image outlives the cell.
    [[nodiscard]] const ImageAsset* image() const { return image_; }
    void setImage(const ImageAsset* image) { image_ = image; }
    [[nodiscard]] ImagePosition imagePosition() const { return imagePosition_; }
    void setImagePosition(ImagePosition position) { imagePosition_ = position; }
    [[nodiscard]] ImageScaling imageScaling() const { return imageScaling_; }
    void setImageScaling(ImageScaling scaling) { imageScaling_ = scaling; }
    [[nodiscard]] BezelStyle bezelStyle() const { return bezelStyle_; }
    void setBezelStyle(BezelStyle style) { bezelStyle_ = style; }
    [[nodiscard]] bool isBordered() const { return isBordered_; }
    void setBordered(bool isBordered) { isBordered_ = isBordered; }
    [[nodiscard]] bool isBezeled() const { return isBezeled_; }
    void setBezeled(bool isBezeled) { isBezeled_ = isBezeled; }
    [[nodiscard]] bool hasFrame() const { return isBordered_ || isBezeled_; }

    /// Whether it is on, enabled and pressed.
    [[nodiscard]] const CellState& cellState() const { return cellState_; }
    void setCellState(const CellState& state) { cellState_ = state; }
    [[nodiscard]] bool allowsMixedState() const { return allowsMixedState_; }
    void setAllowsMixedState(bool allows) { allowsMixedState_ = allows; }
    /// What a click makes of the state: on, off, and mixed where that is allowed, in turn.
    [[nodiscard]] virtual StateValue nextState() const;

    // The rectangles of a draw pass: the first is asked for the bounds, the others for the first.
    [[nodiscard]] virtual core::Rect drawingRect(const core::Rect& bounds) const { return bounds; }
    [[nodiscard]] virtual core::Rect imageRect(const core::Rect& bounds, bool isRightToLeft) const;
    [[nodiscard]] virtual core::Rect titleRect(const core::Rect& bounds, bool isRightToLeft) const;

    /// The bounds of the focus ring.
    [[nodiscard]] virtual core::Rect focusRingMaskBounds(const core::Rect& frame) const {
        return frame;
    }
    [[nodiscard]] virtual QFont titleFont() const;
    /// What image and title need.
    [[nodiscard]] virtual core::Size cellSize() const;

    void draw(const core::Rect& frame, const CellCanvas& canvas) const;

  protected:
    virtual void drawBezel(const core::Rect& frame, const CellCanvas& canvas) const;
    virtual void drawInterior(const core::Rect& frame, const CellCanvas& canvas) const;
    virtual void drawImage(const ImageAsset& image, const core::Rect& frame,
                           const CellCanvas& canvas) const;
    virtual void drawTitle(const QString& title, const core::Rect& frame,
                           const CellCanvas& canvas) const;

    [[nodiscard]] ButtonParts parts(bool isRightToLeft) const;
    /// The whole title in one line.
    [[nodiscard]] core::Size titleSize() const { return titleText_.size(title_, titleFont()); }
    void paintTitle(const QString& title, const core::Rect& frame, const CellCanvas& canvas,
                    const QColor& color) const;

  private:
    QString title_;
    const ImageAsset* image_ = nullptr;
    ImagePosition imagePosition_ = ImagePosition::imageLeading;
    ImageScaling imageScaling_ = ImageScaling::proportionallyDown;
    BezelStyle bezelStyle_ = BezelStyle::push;
    CellState cellState_{.showsState = false};
    bool isBordered_ = true;
    bool isBezeled_ = false;
    bool allowsMixedState_ = false;
    mutable TitleText titleText_; // laid out when it is first measured or painted
};

} // namespace platform
