#pragma once

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "platform/assets/image_painter.hpp"
#include "platform/controls/button_cell.hpp"
#include "platform/controls/control.hpp"

#include <QPainter>

#include <stdexcept>

namespace driftwood::testing {

/// Counts what a control sends.
class Counter final : public platform::ActionTarget {
  public:
    explicit Counter(platform::Control& control) {
        control.setAction([this](ActionTarget&, platform::Control&) { ++count; }, *this);
    }
    int count = 0;
};

inline const platform::ImageAsset& asset(const char* name) {
    const auto* const image = resourceBundle().assets().image(QString::fromLatin1(name));
    if (image == nullptr) {
        throw std::runtime_error(name);
    }
    return *image;
}

inline QColor kitColor(const char* name) {
    return resourceBundle().assets().color(QString::fromLatin1(name));
}

inline const QColor ground("#2a2830"); ///< of all pictures

/// What is painted on the ground; `size` in points, `scale` in pixels a point.
template<class Paint>
QImage picture(QSize size, double scale, Paint paint) {
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(ground);
    QPainter painter(&image);
    paint(painter);
    return image;
}

inline QImage pictureOf(const platform::ButtonCell& cell, QSize size, double scale = 1,
                        bool isRightToLeft = false) {
    return picture(size, scale, [&](QPainter& painter) {
        cell.draw({{0, 0}, {double(size.width()), double(size.height())}},
                  {painter, Qt::white, isRightToLeft});
    });
}

inline QImage pictureOf(const char* image, QRectF place, QSize size, double scale = 1,
                        double opacity = 1) {
    return picture(size, scale, [&](QPainter& painter) {
        painter.setOpacity(opacity);
        platform::paintImage(painter, place, asset(image));
    });
}

} // namespace driftwood::testing
