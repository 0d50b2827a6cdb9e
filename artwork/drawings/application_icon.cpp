#include "artwork/catalogue.hpp"
#include "artwork/light_field.hpp"
#include "artwork/material.hpp"
#include "artwork/palette.hpp"

#include <QLinearGradient>
#include <QRadialGradient>
#include <algorithm>
#include <array>
#include <cmath>

namespace artwork {

namespace {

constexpr double pi = 3.141592653589793;

/// How much detail a size can carry. The small icons are not the large one made smaller: fewer
/// strands, wider apart or run together into one shape, and a voice that fills the body more.
struct Detail {
    int size; ///< points
    int strands;
    double thickness; ///< deviation of a strand's light, in points
    double strength;  ///< light at the core of a strand, linear
    double loudness;  ///< how far the strands reach, in parts of the size
    double left; ///< where the voice begins, in parts of the size; it ends as far from the right
};

constexpr std::array details{
    Detail{16, 31, 0.42, 0.20, 0.33, 0.13},   Detail{24, 31, 0.45, 0.24, 0.33, 0.125},
    Detail{32, 31, 0.45, 0.22, 0.325, 0.12},  Detail{48, 7, 0.50, 1.2, 0.32, 0.115},
    Detail{64, 9, 0.50, 1.25, 0.305, 0.115},  Detail{128, 16, 0.50, 1.15, 0.29, 0.115},
    Detail{256, 26, 0.55, 1.05, 0.28, 0.115}, Detail{512, 32, 0.62, 1.05, 0.275, 0.115},
};

/// The height of a strand at `t` along the voice, 0…1, upwards, where 1 is as loud as it gets;
/// `u` is its place among the strands, -1…1. All of them meet at both ends and nearly meet at two
/// knots between, and the bundle turns a little on the way, so that it has a near and a far side.
double strandAt(double t, double u) {
    const double opening = std::pow(std::sin(pi * t), 1.2);
    const double phase = 2 * pi * 1.45 * (t - 0.485);
    const double turn = pi / 2 * u;
    return opening * (0.95 * std::sin(turn) * std::cos(phase) +
                      0.32 * std::cos(turn) * std::sin(phase + 0.3));
}

/// Aqua where the voice begins, purple where it ends.
LightField::Light strandLight(double t, double u, double strength) {
    const double fade = std::pow(std::sin(pi * t), 0.6);
    // The strands at the rim of the bundle are seen edge on, and are brighter.
    const double edge = 0.7 + 0.45 * u * u;
    const double hue = std::clamp(0.5 + 0.8 * (t - 0.5) + 0.22 * u, 0.0, 1.0);
    return LightField::light(mixed(color("Kestrel/Aqua"), color("Kestrel/Purple"), hue),
                             strength * fade * edge);
}

void addStrand(LightField& field, const Detail& detail, double u, int scale) {
    const int pixels = detail.size * scale;
    const double deviation = detail.thickness * scale;
    const double length = (1 - 2 * detail.left) * pixels;
    const auto height = [&](double t) {
        return (0.505 - detail.loudness * strandAt(t, u)) * pixels;
    };
    for (int x = 0; x < pixels; ++x) {
        const double t = (x + 0.5 - detail.left * pixels) / length;
        if (t <= 0 || t >= 1) {
            continue;
        }
        constexpr double step = 1e-3;
        const double slope = (height(t + step) - height(t - step)) / (2 * step * length);
        const double across = 1 / std::hypot(1, slope); // from the vertical distance to the nearest
        const double reach = 3.5 * deviation / across;
        const double y = height(t);
        const auto light = strandLight(t, u, detail.strength);
        for (int row = static_cast<int>(y - reach); row <= static_cast<int>(y + reach); ++row) {
            const double distance = (row + 0.5 - y) * across / deviation;
            field.add(x, row, light, static_cast<float>(std::exp(-0.5 * distance * distance)));
        }
    }
}

void drawBody(Canvas& canvas, const QPainterPath& shape, double size) {
    material::castShadow(canvas, shape, size * 0.022, 0.55);
    material::body(canvas, shape, QColor(0x38266e), QColor(0x110b20));
    const auto rect = shape.boundingRect();
    QRadialGradient sheen(rect.topLeft() + QPointF(size * 0.16, size * 0.08), size * 0.9);
    sheen.setColorAt(0, QColor(150, 120, 255, 52));
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
    field.bloom(pixels * 0.006, 0.5F);
    field.bloom(pixels * 0.022, 0.35F);
    field.bloom(pixels * 0.07, 0.3F);
    field.shineOn(canvas.pixels(), canvas.mask(shape));

    const double rim = std::max(canvas.pixel(), size * 0.005);
    material::rimShade(canvas, shape, rim, 0.35);
    material::rimLight(canvas, shape, rim, 0.32);
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
