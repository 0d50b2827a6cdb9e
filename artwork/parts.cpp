#include "artwork/parts.hpp"

#include "artwork/palette.hpp"

#include <utility>

namespace artwork::parts {

namespace {

constexpr const char* bundle = "Driftwood_Driftwood";

QColor black(double opacity) {
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}

/// Of whole pixels in height, standing on the bar's lower edge.
QPainterPath barShape(const Canvas& canvas, const QRectF& bar) {
    const double height = canvas.lineWidth(bar.height());
    const double top = canvas.snapped(bar.bottom()) - height;
    return material::roundedRect({bar.left(), top, bar.width(), height}, height / 2);
}

} // namespace

Tone grey() {
    return {color("Grey 30%"), color("Grey 20%")};
}

Tone quiet() {
    return {mixed(color("Grey 20%"), color("Grey 30%"), 0.25), color("Background/Normal")};
}

Tone dark() {
    return {color("Background/Darkest"), color("Background/Darker")};
}

Tone accent() {
    return {mixed(color("Highlight/System"), Qt::white, 0.06),
            mixed(color("Highlight/System"), Qt::black, 0.22)};
}

Tone ivory() {
    return {color("Grey 85%"), color("Grey 60%")};
}

QColor light() {
    return mixed(color("Highlight/System"), Qt::white, 0.35);
}

void raised(Canvas& canvas, const QPainterPath& shape, const Tone& tone, double height) {
    material::castShadow(canvas, shape, height, 0.75);
    material::body(canvas, shape, tone.above, tone.below);
    material::rimShade(canvas, shape, canvas.lineWidth(0.7), 0.3);
    material::rimLight(canvas, shape, canvas.lineWidth(0.7), 0.2);
}

void sunk(Canvas& canvas, const QPainterPath& shape, double depth, const Tone& tone) {
    material::body(canvas, shape, tone.above, tone.below);
    material::hollowShadow(canvas, shape, depth, 0.6);
    material::seam(canvas, shape, canvas.pixel(), black(0.5));
    material::hollowLight(canvas, shape, canvas.lineWidth(0.7), 0.13);
}

void lit(Canvas& canvas, const QPainterPath& shape, const QRectF& bar, double share) {
    // So dark that also grey text is legible on it.
    const auto purple = color("Kestrel/DarkPurple");
    material::body(canvas, shape, mixed(purple, Qt::black, 1 - 0.55 * share),
                   mixed(purple, Qt::black, 1 - 0.7 * share));
    if (share < 1) {
        material::hollowShadow(canvas, shape, 3, 0.6);
    }
    auto glow = color("Highlight/System");
    glow.setAlphaF(static_cast<float>(0.6 * share));
    const auto room = canvas.mask(shape);
    canvas.paint(canvas.softened(room.inverted(), 1.6) * room, glow);
    rim(canvas, shape, 1, color("Highlight/System", 0.3 + 0.45 * share));
    lamp(canvas, bar, shape, 0.5 * share, mixed(light(), Qt::white, 0.45 * share));
}

void well(Canvas& canvas, const QPainterPath& shape) {
    const auto ground = mixed(color("Background/Darkest"), Qt::black, 0.45);
    material::body(canvas, shape, ground, mixed(ground, color("Background/Darkest"), 0.5));
    material::hollowShadow(canvas, shape, 1.6, 0.55);
    rim(canvas, shape, 1, color("Grey 30%", 0.75));
    material::hollowLight(canvas, shape, canvas.lineWidth(0.7), 0.08);
}

void rim(Canvas& canvas, const QPainterPath& shape, double width, const QColor& color) {
    material::seam(canvas, shape, canvas.lineWidth(width), color);
}

void lamp(Canvas& canvas, const QRectF& bar, const QPainterPath& within, double glow,
          const QColor& color) {
    const auto shape = barShape(canvas, bar);
    const auto room = canvas.mask(within);
    for (const double reach : {2.4, 1.2}) {
        auto halo = color;
        halo.setAlphaF(static_cast<float>(glow));
        canvas.paint(canvas.softened(canvas.mask(shape), reach) * room, halo);
    }
    canvas.fill(shape, color);
}

void unlitLamp(Canvas& canvas, const QRectF& bar) {
    const auto shape = barShape(canvas, bar);
    canvas.fill(shape, black(0.45));
    material::rimShade(canvas, shape, canvas.pixel(), 0.25);
}

void glyph(Canvas& canvas, const QPainterPath& path, const QColor& color, double width) {
    canvas.stroke(path.translated(0, 0.8), black(0.35), width);
    canvas.stroke(path, color, width);
}

QPainterPath chevron(QPointF center, double width, Direction direction) {
    const double half = width / 2;
    const bool level = direction == Direction::left || direction == Direction::right;
    const bool forward = direction == Direction::down || direction == Direction::right;
    const double tip = (forward ? half : -half) / 2;
    const auto point = [&](double across, double along) {
        return center + (level ? QPointF(along, across) : QPointF(across, along));
    };
    QPainterPath path;
    path.moveTo(point(-half, -tip));
    path.lineTo(point(0, tip));
    path.lineTo(point(half, -tip));
    return path;
}

QPainterPath disc(QPointF center, double radius) {
    QPainterPath path;
    path.addEllipse(center, radius, radius);
    return path;
}

Drawing sliced(const char* name, core::Size size, core::EdgeInsets caps,
               std::function<void(Canvas&)> draw) {
    return {.bundle = bundle,
            .name = name,
            .size = size,
            .capInsets = caps,
            .resizing = Resizing::stretch,
            .draw = std::move(draw)};
}

Drawing fixed(const char* name, core::Size size, std::function<void(Canvas&)> draw) {
    return {.bundle = bundle, .name = name, .size = size, .draw = std::move(draw)};
}

Drawing inPluginKit(Drawing drawing) {
    drawing.bundle = "Fernhorn_Fernhorn";
    return drawing;
}

} // namespace artwork::parts
