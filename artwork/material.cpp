#include "artwork/material.hpp"

#include <QLinearGradient>
#include <cmath>

namespace artwork::material {

namespace {

/// The light falls steeply: a shadow moves mostly down and a little to the right.
constexpr QPointF lightDirection{0.35, 1};

} // namespace

QPainterPath roundedRect(const QRectF& rect, double radius) {
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

QPainterPath softSquare(const QRectF& rect) {
    constexpr double exponent = 5;
    constexpr int steps = 360;
    constexpr double fullTurn = 6.283185307179586;
    const auto power = [](double v) {
        return std::copysign(std::pow(std::abs(v), 2 / exponent), v);
    };
    QPolygonF outline;
    for (int i = 0; i < steps; ++i) {
        const double angle = fullTurn * i / steps;
        outline << QPointF(rect.center().x() + rect.width() / 2 * power(std::cos(angle)),
                           rect.center().y() + rect.height() / 2 * power(std::sin(angle)));
    }
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    return path;
}

void castShadow(Canvas& canvas, const QPainterPath& shape, double height, double opacity) {
    const auto fallen = canvas.mask(shape.translated(lightDirection * height));
    canvas.paint(canvas.softened(fallen, height),
                 QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity)));
}

void body(Canvas& canvas, const QPainterPath& shape, const QColor& above, const QColor& below) {
    const auto rect = shape.boundingRect();
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, above);
    gradient.setColorAt(1, below);
    canvas.fill(shape, gradient);
}

void rimLight(Canvas& canvas, const QPainterPath& shape, double width, double opacity) {
    const auto rest = canvas.mask(shape.translated(lightDirection * width));
    canvas.paint(canvas.mask(shape) * rest.inverted(),
                 QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity)));
}

void rimShade(Canvas& canvas, const QPainterPath& shape, double width, double opacity) {
    const auto rest = canvas.mask(shape.translated(-lightDirection * width));
    canvas.paint(canvas.mask(shape) * rest.inverted(),
                 QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity)));
}

void hollowShadow(Canvas& canvas, const QPainterPath& shape, double depth, double opacity) {
    const auto wall = canvas.mask(shape.translated(lightDirection * depth)).inverted();
    canvas.paint(canvas.mask(shape) * canvas.softened(wall, depth),
                 QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity)));
}

void hollowLight(Canvas& canvas, const QPainterPath& shape, double width, double opacity) {
    const auto rest = canvas.mask(shape.translated(-lightDirection * width));
    canvas.paint(canvas.mask(shape) * rest.inverted(),
                 QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity)));
}

void seam(Canvas& canvas, const QPainterPath& shape, double width, const QColor& color) {
    auto& painter = canvas.painter();
    painter.save();
    painter.setClipPath(shape);
    canvas.stroke(shape, color, width * 2);
    painter.restore();
}

} // namespace artwork::material
