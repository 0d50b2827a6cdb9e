#include "platform/controls/shadowed_label.hpp"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform {
namespace {

/// Convolves coverage with a Gaussian, along rows and then along columns. `deviation` in pixels.
std::vector<float> blurred(const std::vector<float>& coverage, int width, int height,
                           double deviation) {
    if (deviation <= 0) {
        return coverage;
    }
    const int reach = static_cast<int>(std::ceil(3 * deviation));
    std::vector<float> kernel(static_cast<std::size_t>(2 * reach + 1));
    float sum = 0;
    for (int i = -reach; i <= reach; ++i) {
        const double x = i / deviation;
        const auto weight = static_cast<float>(std::exp(-0.5 * x * x));
        kernel[static_cast<std::size_t>(i + reach)] = weight;
        sum += weight;
    }
    const auto pass = [&](const std::vector<float>& from, int length, int step, int lines,
                          int lineStep) {
        std::vector<float> to(from.size());
        for (int line = 0; line < lines; ++line) {
            for (int at = 0; at < length; ++at) {
                float value = 0;
                for (int i = std::max(-reach, -at); i <= std::min(reach, length - 1 - at); ++i) {
                    value += kernel[static_cast<std::size_t>(i + reach)] *
                             from[static_cast<std::size_t>(line * lineStep + (at + i) * step)];
                }
                to[static_cast<std::size_t>(line * lineStep + at * step)] = value / sum;
            }
        }
        return to;
    };
    return pass(pass(coverage, width, 1, height, width), height, width, width, 1);
}

QImage shadowOf(const QImage& picture, const TextShadow& shadow, double scale) {
    const int width = picture.width();
    const int height = picture.height();
    std::vector<float> coverage(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    auto value = coverage.begin();
    for (int y = 0; y < height; ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        value = std::transform(row, row + width, value,
                               [](QRgb pixel) { return static_cast<float>(qAlpha(pixel)); });
    }
    coverage = blurred(coverage, width, height, shadow.radius / 2 * scale);
    QImage result(picture.size(), QImage::Format_ARGB32_Premultiplied);
    auto source = coverage.begin();
    for (int y = 0; y < height; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < width; ++x, ++source) {
            QColor color = shadow.color;
            color.setAlphaF(color.alphaF() * *source / 255.0F);
            row[x] = qPremultiply(color.rgba());
        }
    }
    return result;
}

} // namespace

ShadowedLabel::ShadowedLabel(const QString& text, std::vector<TextShadow> shadows, QWidget* parent)
    : QLabel(text, parent), shadows_(std::move(shadows)) {
    setAlignment(Qt::AlignCenter);
    setTextFormat(Qt::PlainText);
}

QImage ShadowedLabel::render() const {
    const double scale = devicePixelRatio();
    const auto image = [&] {
        QImage empty((QSizeF(size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
        empty.fill(Qt::transparent);
        return empty;
    };
    QImage picture = image();
    if (picture.isNull()) {
        return picture;
    }
    {
        QPainter painter(&picture);
        painter.scale(scale, scale);
        painter.setRenderHint(QPainter::TextAntialiasing);
        painter.setFont(font());
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(QRectF(rect()), Qt::AlignCenter | Qt::TextSingleLine, text());
    }
    for (const TextShadow& shadow : shadows_) {
        QImage below = image();
        QPainter painter(&below);
        painter.drawImage(shadow.offset * scale, shadowOf(picture, shadow, scale));
        painter.drawImage(0, 0, picture);
        painter.end();
        picture = std::move(below);
    }
    picture.setDevicePixelRatio(scale);
    return picture;
}

void ShadowedLabel::paintEvent(QPaintEvent* /*event*/) {
    if (picture_.size() != (QSizeF(size()) * devicePixelRatio()).toSize() ||
        pictureText_ != text()) {
        picture_ = render();
        pictureText_ = text();
    }
    QPainter(this).drawImage(0, 0, picture_);
}

void ShadowedLabel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange ||
        event->type() == QEvent::EnabledChange) {
        picture_ = {};
    }
    QLabel::changeEvent(event);
}

} // namespace platform
