#include "artwork/catalogue.hpp"
#include "artwork/light_field.hpp"
#include "artwork/material.hpp"
#include "artwork/palette.hpp"

#include <QLinearGradient>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>

namespace artwork {

namespace {

constexpr double pi = 3.141592653589793;

/// How much detail a size can carry.
struct Detail {
    int size; ///< points
    int strands;
    double thickness; ///< deviation of a strand's light, in points
    double spread;    ///< how far the strands differ from each other
    double strength;  ///< light at the core of a strand
};

constexpr Detail details[] = {
    {16, 2, 0.62, 1.0, 2.2},    {24, 2, 0.8, 1.0, 2.2},     {32, 3, 0.8, 1.0, 1.9},
    {48, 5, 0.62, 1.0, 1.7},    {64, 9, 0.55, 1.0, 1.2},    {128, 17, 0.55, 1.0, 1.1},
    {256, 29, 0.62, 1.0, 1.05}, {512, 45, 0.75, 1.0, 1.05},
};

/// The height of a strand at `t` along the voice; `u` is its place among the strands, -1…1.
/// In parts of the icon's size, downwards.
double strandAt(double t, double u, double spread) {
    const double opening = std::pow(std::sin(pi * t), 1.5);
    const double phase = 2 * pi * 1.15 * (t - 0.5) + 0.35;
    const double twist = 1.05 * spread * u;
    return -opening * (0.21 * std::sin(phase + twist) + 0.035 * u * std::cos(phase * 0.5));
}

void addStrand(LightField& field, const Detail& detail, double u, int scale) {
    const double pixels = detail.size * scale;
    const double deviation = detail.thickness * scale;
    const double reach = deviation * 3.5;
    const double left = 0.085;
    const double right = 0.915;
    for (int x = 0; x < static_cast<int>(pixels); ++x) {
        const double t = ((x + 0.5) / pixels - left) / (right - left);
        if (t <= 0 || t >= 1) {
            continue;
        }
        const auto height = [&](double at) {
            return (0.505 + strandAt(at, u, detail.spread)) * pixels;
        };
        const double y = height(t);
        constexpr double step = 1e-3;
        const double slope =
            (height(t + step) - height(t - step)) / (2 * step * pixels * (right - left));
        const double across = 1 / std::hypot(1, slope);
        const double fade = std::pow(std::sin(pi * t), 0.45);
        const double hue = std::clamp(0.5 + 0.62 * (t - 0.5) + 0.32 * u, 0.0, 1.0);
        const auto light = LightField::light(
            mixed(color("Kestrel/Aqua"), color("Kestrel/Purple"), hue), detail.strength * fade);
        for (int row = static_cast<int>(y - reach / across);
             row <= static_cast<int>(y + reach / across); ++row) {
            const double distance = (row + 0.5 - y) * across / deviation;
            field.add(x, row, light, static_cast<float>(std::exp(-0.5 * distance * distance)));
        }
    }
}

void drawBody(Canvas& canvas, const QPainterPath& shape, double size) {
    material::castShadow(canvas, shape, size * 0.022, 0.55);
    material::body(canvas, shape, QColor(0x3a2b66), QColor(0x150f26));
    const auto rect = shape.boundingRect();
    QRadialGradient sheen(rect.topLeft() + QPointF(size * 0.16, size * 0.1), size * 0.85);
    sheen.setColorAt(0, QColor(150, 120, 255, 64));
    sheen.setColorAt(1, QColor(150, 120, 255, 0));
    canvas.fill(shape, sheen);
}

void drawIcon(Canvas& canvas, const Detail& detail) {
    const double size = detail.size;
    const double margin = canvas.snapped(std::max(size * 0.055, size < 48 ? 0.5 : 1.0));
    const QRectF square(margin, canvas.snapped(margin * 0.8), size - 2 * margin, size - 2 * margin);
    const auto shape = material::softSquare(square);
    drawBody(canvas, shape, size);

    LightField field(canvas.pixels().width(), canvas.pixels().height());
    for (int i = 0; i < detail.strands; ++i) {
        addStrand(field, detail, 2.0 * i / (detail.strands - 1) - 1, canvas.scale());
    }
    const double pixels = size * canvas.scale();
    field.bloom(pixels * 0.012, 0.5F);
    field.bloom(pixels * 0.05, 0.45F);
    field.shineOn(canvas.pixels(), canvas.mask(shape));

    const double rim = std::max(canvas.pixel(), size * 0.006);
    material::rimShade(canvas, shape, rim, 0.35);
    material::rimLight(canvas, shape, rim, 0.34);
}

} // namespace

void addApplicationIcon(std::vector<Drawing>& drawings) {
    for (const auto& detail : details) {
        const double size = detail.size;
        drawings.push_back({.bundle = "Larkvox",
                            .name = QStringLiteral("application-icon-%1").arg(detail.size),
                            .size = {size, size},
                            .scales = {1, 2},
                            .draw = [&detail](Canvas& canvas) { drawIcon(canvas, detail); }});
    }
}

} // namespace artwork
