#include "artwork/catalogue.hpp"
#include "artwork/parts.hpp"

#include <QTransform>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace artwork {

namespace {

constexpr const char* bundle = "KestrelShaders_KestrelShaders";

// The emblem: a tern on the wing, seen from above, before a ring. White and coverage only: what
// light falls on it is the shader's affair.

constexpr core::Size emblemSize{160, 160};

QPainterPath mirrored(const QPainterPath& half) {
    auto whole = half;
    whole.addPath(QTransform::fromScale(-1, 1).map(half));
    return whole;
}

/// Flies up; from the bill's tip at y = -60 to the streamers of its tail at y = 64.
QPainterPath tern() {
    QPainterPath half;
    half.moveTo(0, -60);
    half.cubicTo(0.6, -52, 1.4, -48, 2.4, -45.5); // the bill
    half.cubicTo(6.6, -43, 7.6, -37, 8.0, -31);   // head and neck
    half.cubicTo(8.6, -27, 17, -33, 30, -33);     // the arm's leading edge
    half.cubicTo(40, -33, 62, -10, 76, 24);       // from the wrist to the tip
    half.cubicTo(62, 6, 48, -6, 37, -10);         // back along the primaries
    half.cubicTo(27, -13, 14, -8, 9, 2);          // and the secondaries
    half.cubicTo(8.6, 11, 6.6, 19, 4.8, 26);      // the flank
    half.cubicTo(8, 36, 11, 48, 12.5, 64);        // a streamer
    half.cubicTo(8.5, 51, 4.6, 42, 0, 37);        // the fork
    half.closeSubpath();

    // The cap, and the seams between the feathers of the hand.
    QPainterPath nape;
    nape.moveTo(0, -36.2);
    nape.cubicTo(3.4, -36.2, 6.0, -37.4, 8.4, -39.6);
    nape.lineTo(9.4, -37.0);
    nape.cubicTo(6.6, -34.6, 3.6, -33.8, 0, -33.8);
    nape.closeSubpath();
    QPainterPath seams;
    struct Seam {
        QPointF from;
        QPointF bend;
        QPointF to;
    };
    for (const auto& [from, bend, to] :
         {Seam{{25, -26}, {40, -23}, {58, 1.5}}, Seam{{18, -21}, {29, -21}, {38.5, -14.5}}}) {
        QPainterPath line;
        line.moveTo(from);
        line.quadTo(bend, to);
        QPainterPathStroker pen;
        pen.setWidth(1.7);
        pen.setCapStyle(Qt::RoundCap);
        seams.addPath(pen.createStroke(line));
    }
    // Cutting turns curves into lines as long as a point or so: cut at a large size.
    const auto large = QTransform::fromScale(100, 100);
    const auto cut = mirrored(large.map(half))
                         .simplified()
                         .subtracted(mirrored(large.map(nape)))
                         .subtracted(mirrored(large.map(seams)).simplified());
    return large.inverted().map(cut);
}

void drawEmblem(Canvas& canvas) {
    const QPointF center(emblemSize.width / 2, emblemSize.height / 2);
    QTransform flight;
    flight.translate(center.x() - 1, center.y());
    flight.rotate(38);
    const auto bird = flight.map(tern());

    QPainterPath ring = parts::disc(center, 66);
    ring = ring.subtracted(parts::disc(center, 63.4));
    canvas.fill(ring, Qt::white);
    // Air between the bird and the ring.
    auto& painter = canvas.painter();
    painter.save();
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    canvas.fill(bird, Qt::black);
    canvas.stroke(bird, Qt::black, 7);
    painter.restore();
    canvas.fill(bird, Qt::white);
}

// The noise: gradient noise that tiles, another octave in each channel.

constexpr core::Size noiseSize{128, 128};

std::uint32_t scrambled(std::uint32_t x, std::uint32_t y, std::uint32_t channel) {
    auto h = x * 0x9e3779b1U ^ y * 0x85ebca77U ^ channel * 0xc2b2ae3dU;
    h = (h ^ (h >> 15U)) * 0x2c1b3c6dU;
    h = (h ^ (h >> 12U)) * 0x297a2d39U;
    return h ^ (h >> 15U);
}

/// One octave with that many cells a side, at a place of 0…1; about -1…1.
double octave(double u, double v, std::uint32_t cells, std::uint32_t channel) {
    const double x = u * cells;
    const double y = v * cells;
    const auto left = static_cast<std::uint32_t>(x);
    const auto top = static_cast<std::uint32_t>(y);
    const double fx = x - left;
    const double fy = y - top;
    const auto slope = [&](std::uint32_t right, std::uint32_t down) {
        constexpr double turn = 6.283185307179586 / 4294967296.0;
        const double angle =
            scrambled((left + right) % cells, (top + down) % cells, channel) * turn;
        return std::cos(angle) * (fx - right) + std::sin(angle) * (fy - down);
    };
    const auto eased = [](double t) { return t * t * t * (t * (t * 6 - 15) + 10); };
    const double above = std::lerp(slope(0, 0), slope(1, 0), eased(fx));
    const double below = std::lerp(slope(0, 1), slope(1, 1), eased(fx));
    return std::lerp(above, below, eased(fy)) * 1.4;
}

void drawNoise(Canvas& canvas) {
    auto& image = canvas.pixels();
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const auto level = [&](std::uint32_t cells, std::uint32_t channel) {
                const double n =
                    octave((x + 0.5) / image.width(), (y + 0.5) / image.height(), cells, channel);
                return std::clamp(0.5 + 0.5 * n, 0.0, 1.0);
            };
            const auto byte = [](double value) { return static_cast<int>(std::lround(value)); };
            // Images are stored premultiplied: an alpha of at least a half keeps the others exact
            // to one part in 128.
            line[x] = qPremultiply(qRgba(byte(255 * level(4, 0)), byte(255 * level(8, 1)),
                                         byte(255 * level(16, 2)), byte(128 + 127 * level(32, 3))));
        }
    }
}

} // namespace

void addTern(std::vector<Drawing>& drawings) {
    drawings.push_back(
        {.bundle = bundle, .name = "tern-logo", .size = emblemSize, .draw = drawEmblem});
    drawings.push_back(
        {.bundle = bundle, .name = "tern-noise", .size = noiseSize, .draw = drawNoise});
}

} // namespace artwork
