#include "platform/controls/soft_shadow.hpp"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <vector>

namespace platform {
namespace {

/// How much of a blurred bar from `from` to `to` there is at each pixel: the difference of two
/// error functions.
std::vector<double> blurredBar(int length, double from, double to, double sigma) {
    std::vector<double> line(static_cast<std::size_t>(length));
    for (std::size_t i = 0; i < line.size(); ++i) {
        const double at = static_cast<double>(i) + 0.5;
        const double width = sigma * std::sqrt(2.0);
        line[i] = 0.5 * (std::erf((at - from) / width) - std::erf((at - to) / width));
    }
    return line;
}

QImage makeShadow(QSize rectangle, QMargins margins, qreal scale, double strength) {
    const QSize all = (QSizeF(rectangle.grownBy(margins)) * scale).toSize();
    const double reach = std::min(margins.left(), margins.top()) * scale;
    const double sigma = reach * 0.5;
    const double drop = (margins.bottom() - margins.top()) * 0.5 * scale;
    const double inset = 1 * scale; // the rim itself casts nothing
    const auto across = blurredBar(all.width(), margins.left() * scale + inset,
                                   all.width() - margins.right() * scale - inset, sigma);
    const auto down = blurredBar(all.height(), margins.top() * scale + inset + drop,
                                 all.height() - margins.bottom() * scale - inset + drop, sigma);
    QImage image(all, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    for (int y = 0; y < all.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const double row = down[static_cast<std::size_t>(y)] * strength * 255;
        for (int x = 0; x < all.width(); ++x) {
            const double alpha = row * across[static_cast<std::size_t>(x)];
            line[x] = qRgba(0, 0, 0, static_cast<int>(alpha));
        }
    }
    return image;
}

} // namespace

const QImage& softShadow(QSize rectangle, QMargins margins, qreal scale, double strength) {
    using Key = std::tuple<int, int, int, int, int, int, qreal, double>;
    static Key kept;
    static QImage shadow;
    const Key key{rectangle.width(), rectangle.height(), margins.left(), margins.top(),
                  margins.right(),   margins.bottom(),   scale,          strength};
    if (shadow.isNull() || key != kept) {
        shadow = makeShadow(rectangle, margins, scale, strength);
        kept = key;
    }
    return shadow;
}

} // namespace platform
