#include "fernhorn/dials/pictures.hpp"

#include "fernhorn/fonts/resource_bundle_accessor.hpp"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>
#include <map>
#include <memory>
#include <utility>

namespace fernhorn {

void drawDevicePixels(QPainter& painter, const QPointF& place, const QImage& image) {
    const QTransform toDevice = painter.deviceTransform();
    const double scale = toDevice.m11();
    const QPointF corner = QPointF(toDevice.map(place).toPoint());
    if (scale == 1) {
        painter.drawImage(corner - QPointF(toDevice.dx(), toDevice.dy()), image);
        return;
    }
    const QTransform fromDevice = toDevice.inverted();
    if (scale == 2) { // the paint engine copies these, too
        painter.drawImage(QRectF(fromDevice.map(corner), QSizeF(image.size()) / scale), image,
                          image.rect());
        return;
    }
    const QTransform before = painter.worldTransform();
    painter.setWorldTransform(fromDevice * before);
    painter.drawImage(corner, image);
    painter.setWorldTransform(before);
}

FilmStrip::FilmStrip(const platform::AssetCatalog& assets, QString prefix, int frameCount)
    : assets_(assets),
      prefix_(std::move(prefix)),
      frames_(static_cast<std::size_t>(std::max(frameCount, 0))) {}

const FilmStrip& FilmStrip::ofKit(const QString& prefix, int frameCount) {
    static std::map<std::pair<QString, int>, FilmStrip> strips;
    return strips.try_emplace({prefix, frameCount}, resourceBundle().assets(), prefix, frameCount)
        .first->second;
}

QString FilmStrip::frameName(int index) const {
    return prefix_ + QStringLiteral("%1").arg(index, 2, 10, QChar(u'0'));
}

const platform::ImageAsset* FilmStrip::frame(int index) const {
    if (index < 1 || index > frameCount()) {
        return nullptr;
    }
    Frame& frame = frames_[static_cast<std::size_t>(index - 1)];
    if (!frame.isKnown) {
        frame = {true, assets_.image(frameName(index))};
    }
    return frame.image;
}

void FilmStrip::paint(QPainter& painter, const QRectF& rect, int index) const {
    const platform::ImageAsset* const image = frame(index);
    if (image == nullptr || rect.isEmpty()) {
        return;
    }
    const double scale = painter.deviceTransform().m11() * rect.width() / image->size().width();
    drawDevicePixels(painter, rect.topLeft(), image->image(scale));
}

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
