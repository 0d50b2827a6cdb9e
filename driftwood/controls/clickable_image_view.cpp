#include "driftwood/controls/clickable_image_view.hpp"

#include "platform/assets/asset_catalog.hpp"
#include "platform/controls/cell_control_accessible.hpp"

#include <QEvent>

#include <cmath>

namespace driftwood {
namespace {

using platform::PressStep;

/// An image that can be clicked is a button without words.
class ClickableImageAccessible final : public platform::CellControlAccessible {
  public:
    explicit ClickableImageAccessible(ClickableImageView& view) : CellControlAccessible(view) {}

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names = CellControlAccessible::actionNames();
        if (control().isEnabled()) {
            names.prepend(pressAction());
        }
        return names;
    }
    void doAction(const QString& name) override {
        if (name == pressAction()) {
            static_cast<ClickableImageView&>(control()).performClick();
        } else {
            CellControlAccessible::doAction(name);
        }
    }
};

} // namespace

core::Size ImageViewCell::cellSize() const {
    return image_ != nullptr ? core::Size{image_->size().width(), image_->size().height()}
                             : core::Size();
}

void ImageViewCell::drawInterior(const core::Rect& frame,
                                 const platform::CellCanvas& canvas) const {
    if (image_ != nullptr) {
        const core::Size size = cellSize();
        const core::Point middle = core::midPoint(frame);
        platform::paintCellImage(
            canvas,
            {{std::trunc(middle.x - size.width * 0.5), std::trunc(middle.y - size.height * 0.5)},
             size},
            *image_, cellState().isEnabled ? 1.0 : 0.5);
    }
}

ClickableImageView::ClickableImageView(const platform::ImageAsset* image, QWidget* parent)
    : ClickableImageView(std::make_unique<ImageViewCell>(), parent) {
    setImage(image);
}

ClickableImageView::ClickableImageView(std::unique_ptr<ImageViewCell> cell, QWidget* parent)
    : CellControl(std::move(cell), parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

ClickableImageView::~ClickableImageView() {
    clicked_.finish();
}

void ClickableImageView::setImage(const platform::ImageAsset* image) {
    static_cast<ImageViewCell&>(cell()).setImage(image);
    cellDidChange();
}

void ClickableImageView::performClick() {
    if (isEnabled()) {
        handleClickGesture();
    }
}

void ClickableImageView::follow(PressStep step) {
    if (step == PressStep::none) {
        return;
    }
    setAlphaValue(input_.press().isTracking() ? 0.5 : 1);
    if (step == PressStep::clicked) {
        handleClickGesture(); // may destroy the view
    }
}

void ClickableImageView::cancelTracking() {
    follow(input_.press().cancel());
}

bool ClickableImageView::handleEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (isEnabled()) {
            const platform::PressAnswer answer = input_.take(*event, bounds());
            if (answer.isTaken) {
                event->accept();
                follow(answer.step);
                return true;
            }
        }
        break;
    default:
        break;
    }
    return CellControl::handleEvent(event);
}

QAccessible::Role ClickableImageView::accessibleRole() const {
    return QAccessible::Button;
}

QAccessibleInterface* ClickableImageView::makeAccessible() {
    return new ClickableImageAccessible(*this);
}

} // namespace driftwood
