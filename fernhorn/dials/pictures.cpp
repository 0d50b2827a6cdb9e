#include "fernhorn/controls/text_pictures.hpp"

#include "fernhorn/controls/device_pixels.hpp"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>
#include <map>
#include <memory>
#include <utility>

namespace fernhorn {
namespace {

constexpr qsizetype keptBytes = 4 * 1024 * 1024;
constexpr qsizetype keptWidths = 4096;
/// Letters may reach out of their line.
constexpr double margin = 2;

} // namespace

TextPictures::TextPictures(const QFont& font, const QColor& color)
    : font_(font),
      color_(color),
      lineHeight_(QFontMetricsF(font).height()),
      pictures_(keptBytes),
      widths_(keptWidths) {}

TextPictures& TextPictures::of(const QFont& font, const QColor& color) {
    static std::map<std::pair<QFont, QRgb>, TextPictures> looks;
    return looks.try_emplace({font, color.rgba()}, font, color).first->second;
}

double TextPictures::width(const QString& text) const {
    if (const double* const known = widths_.object(text)) {
        return *known;
    }
    const double width = QFontMetricsF(font_).horizontalAdvance(text);
    widths_.insert(text, new double(width));
    return width;
}

QImage TextPictures::draw(const QString& text, qreal scale) const {
    const QSizeF size(width(text) + 2 * margin, lineHeight_ + 2 * margin);
    QImage picture(
        QSizeF(std::ceil(size.width() * scale), std::ceil(size.height() * scale)).toSize(),
        QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    painter.setFont(font_);
    painter.setPen(color_);
    painter.drawText(QPointF(margin, margin + QFontMetricsF(font_).ascent()), text);
    painter.end();
    picture.setDevicePixelRatio(1); // pixels are meant from here on
    return picture;
}

void TextPictures::paint(QPainter& painter, const QPointF& topLeft, const QString& text) {
    if (text.isEmpty()) {
        return;
    }
    const QPointF corner = topLeft - QPointF(margin, margin);
    const Key key{text, painter.deviceTransform().m11()};
    if (const QImage* const picture = pictures_.object(key)) {
        drawDevicePixels(painter, corner, *picture);
        return;
    }
    auto picture = std::make_unique<QImage>(draw(text, key.scale));
    drawDevicePixels(painter, corner, *picture);
    const qsizetype bytes = picture->sizeInBytes();
    pictures_.insert(key, picture.release(), bytes);
}

} // namespace fernhorn
