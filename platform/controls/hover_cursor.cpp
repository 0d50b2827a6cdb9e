#include "platform/controls/hover_cursor.hpp"

#include "platform/assets/asset_catalog.hpp"

#include <QEvent>
#include <QPixmap>
#include <QWidget>

namespace platform {

HoverCursor::HoverCursor(QWidget& widget, const ImageAsset& image, QPoint hotSpot)
    : widget_(widget), image_(&image), hotSpot_(hotSpot) {
    widget.installEventFilter(this);
}

void HoverCursor::setImage(const ImageAsset& image) {
    image_ = &image;
    renew();
}

void HoverCursor::setHotSpot(QPoint hotSpot) {
    hotSpot_ = hotSpot;
    renew();
}

void HoverCursor::renew() {
    cursor_.reset();
    if (widget_.underMouse()) {
        widget_.setCursor(cursor());
    }
}

const QCursor& HoverCursor::cursor() const {
    const qreal scale = widget_.devicePixelRatioF();
    if (!cursor_ || scale != scale_) {
        QPixmap pixmap = QPixmap::fromImage(image_->image(scale));
        pixmap.setDevicePixelRatio(scale);
        cursor_.emplace(pixmap, hotSpot_.x(), hotSpot_.y());
        scale_ = scale;
    }
    return *cursor_;
}

bool HoverCursor::eventFilter(QObject* object, QEvent* event) {
    if (object == &widget_ && event->type() == QEvent::Enter) {
        widget_.setCursor(cursor());
    }
    return false;
}

} // namespace platform
