#pragma once

#include "driftwood/bridges/first_responder.hpp"
#include "platform/controls/cell_control.hpp"
#include "platform/controls/press_input.hpp"

#include <QPointer>

// All of this is for the main thread.
namespace driftwood {

/// Draws an image at its own size in the middle; a template image in the colour of the controls'
/// text. Disabled, at half opacity.
class ImageViewCell : public platform::Cell {
  public:
    /// Null shows none. The image outlives the cell.
    [[nodiscard]] const platform::ImageAsset* image() const { return image_; }
    void setImage(const platform::ImageAsset* image) { image_ = image; }

    [[nodiscard]] core::Size cellSize() const override;

  protected:
    void drawInterior(const core::Rect& frame, const platform::CellCanvas& canvas) const override;

  private:
    const platform::ImageAsset* image_ = nullptr;
};

/// Shows an image that tells of its clicks, also of one that makes the window key, and is dim as
/// long as it is pressed. Space and Return click it as well, where Tab leads to it; a decoration
/// beside a field that has the keys already says `setFocusPolicy(Qt::NoFocus)`.
class ClickableImageView : public platform::CellControl, public ClickableView {
    Q_OBJECT

  public:
    /// The image outlives the view.
    explicit ClickableImageView(const platform::ImageAsset* image = nullptr,
                                QWidget* parent = nullptr);
    ~ClickableImageView() override;

    [[nodiscard]] const platform::ImageAsset* image() const { return imageCell().image(); }
    void setImage(const platform::ImageAsset* image);

    /// One value for each click; it ends with the view.
    [[nodiscard]] core::Stream<Click>& clicked() override { return clicked_; }
    /// Does what a click does; not when it is disabled.
    void performClick();

    [[nodiscard]] QAccessible::Role accessibleRole() const override;
    [[nodiscard]] QAccessibleInterface* makeAccessible() override;

  protected:
    ClickableImageView(std::unique_ptr<ImageViewCell> cell, QWidget* parent);

    /// Publishes one click; whoever hears of it may destroy the view.
    void handleClickGesture() { clicked_.send({}); }

    void cancelTracking() override;
    [[nodiscard]] bool isTrackingKey() const override { return input_.press().isByKey(); }
    bool handleEvent(QEvent* event) override;

  private:
    [[nodiscard]] const ImageViewCell& imageCell() const {
        return static_cast<const ImageViewCell&>(cell());
    }
    void follow(platform::PressStep step);

    platform::PressInput input_;
    core::Subject<Click> clicked_;
};

} // namespace driftwood
