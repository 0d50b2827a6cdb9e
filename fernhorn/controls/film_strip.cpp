#include "fernhorn/controls/film_strip.hpp"

#include "fernhorn/controls/device_pixels.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"

#include <QPainter>

#include <map>
#include <utility>

namespace fernhorn {

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

} // namespace fernhorn
