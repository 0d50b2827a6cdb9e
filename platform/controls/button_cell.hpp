#pragma once

#include "platform/controls/button_geometry.hpp"
#include "platform/controls/cell.hpp"
#include "platform/controls/line_text.hpp"

#include <QString>

namespace platform {

/// The form of a bezel. The values count.
enum class BezelStyle { automatic = 0, push = 1, flexiblePush = 2, smallSquare = 10 };

/// Measures and draws a button: its image and its title, plainly; styled cells refine it, one
/// operation at a time. Main thread.
class ButtonCell : public Cell {
  public:
    explicit ButtonCell(QString title = {});

    [[nodiscard]] const QString& title() const { return title_; }
    void setTitle(const QString& title) { title_ = title; }
    /// Null shows none. The image outlives the cell.
    [[nodiscard]] const ImageAsset* image() const { return image_; }
    void setImage(const ImageAsset* image) { image_ = image; }
    [[nodiscard]] ImagePosition imagePosition() const { return imagePosition_; }
    void setImagePosition(ImagePosition position) { imagePosition_ = position; }
    [[nodiscard]] ImageScaling imageScaling() const { return imageScaling_; }
    void setImageScaling(ImageScaling scaling) { imageScaling_ = scaling; }
    /// Whether the image points to a side: left and right change places where one reads from the
    /// right. False unless told otherwise.
    [[nodiscard]] bool imageFollowsReading() const { return imageFollowsReading_; }
    void setImageFollowsReading(bool follows) { imageFollowsReading_ = follows; }
    [[nodiscard]] BezelStyle bezelStyle() const { return bezelStyle_; }
    void setBezelStyle(BezelStyle style) { bezelStyle_ = style; }
    [[nodiscard]] bool allowsMixedState() const { return allowsMixedState_; }
    void setAllowsMixedState(bool allows) { allowsMixedState_ = allows; }
    /// What a click makes of the state: on, off, and mixed where that is allowed, in turn.
    [[nodiscard]] virtual StateValue nextState() const;

    // Where image and title go within the drawing rectangle.
    [[nodiscard]] virtual core::Rect imageRect(const core::Rect& bounds, bool isRightToLeft) const;
    [[nodiscard]] virtual core::Rect titleRect(const core::Rect& bounds, bool isRightToLeft) const;

    [[nodiscard]] virtual QFont titleFont() const;
    /// What image and title need.
    [[nodiscard]] core::Size cellSize() const override;

  protected:
    void drawInterior(const core::Rect& frame, const CellCanvas& canvas) const override;
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
    bool allowsMixedState_ = false;
    bool imageFollowsReading_ = false;
    mutable LineText titleText_; // laid out when it is first measured or painted
};

} // namespace platform
