#include "platform/controls/image_view.hpp"

#include "platform/assets/asset_catalog.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/controls/accessible_role.hpp"

#include <QPainter>

namespace platform {

ImageView::ImageView(const ImageAsset* image, const QColor& tint, const QString& name,
                     QWidget* parent)
    : QWidget(parent), image_(image), tint_(tint) {
    setAccessibleRole(*this, QAccessible::Graphic);
    setAccessibleName(name);
    setFixedSize(sizeHint());
}

QSize ImageView::sizeHint() const {
    return image_ != nullptr ? image_->size().toSize() : QSize(0, 0);
}

void ImageView::paintEvent(QPaintEvent* /*event*/) {
    if (image_ != nullptr) {
        QPainter painter(this);
        paintImage(painter, QRectF(rect()), *image_, tint_);
    }
}

} // namespace platform
