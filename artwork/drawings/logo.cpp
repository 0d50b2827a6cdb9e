#include "artwork/canvas.hpp"
#include "artwork/catalogue.hpp"
#include "artwork/typeface.hpp"

#include <QTransform>

namespace artwork {

namespace {

constexpr core::Size size{112, 32};

/// Adds the curves of one half of the face and their mirror image about x = 0.
QPainterPath mirrored(const QPainterPath& half) {
    auto whole = half;
    whole.addPath(QTransform::fromScale(-1, 1).map(half));
    return whole;
}

/// The fox from the front, its nose at (0, 0) and its ears up to y = -27.
QPainterPath fox() {
    QPainterPath half;
    half.moveTo(0, 0);
    half.cubicTo(-2.2, -0.4, -3.4, -2.2, -4.6, -4.4);
    half.cubicTo(-6.2, -7.0, -8.2, -8.0, -8.2, -10.6);
    half.cubicTo(-11.6, -14.4, -13.8, -20.2, -13.0, -26.4);
    half.cubicTo(-8.6, -24.6, -5.0, -20.4, -3.4, -14.6);
    half.cubicTo(-2.2, -15.0, -1.2, -15.2, 0, -15.2);
    half.closeSubpath();

    QPainterPath ear;
    ear.moveTo(-11.4, -22.8);
    ear.cubicTo(-11.2, -18.8, -9.8, -15.4, -7.8, -12.8);
    ear.cubicTo(-6.6, -13.6, -5.8, -14.0, -5.2, -14.2);
    ear.cubicTo(-6.4, -18.0, -8.4, -21.0, -11.4, -22.8);
    ear.closeSubpath();

    QPainterPath eye;
    eye.addEllipse(QPointF(-3.6, -8.4), 0.95, 1.15);
    return mirrored(half).simplified().subtracted(mirrored(ear)).subtracted(mirrored(eye));
}

void drawLogo(Canvas& canvas, const QString& fonts) {
    canvas.fill(fox().translated(14.5, 29.5), Qt::black);
    const auto word = outlineOf("fennick", fonts + "/FennickRounded-Bold.ttf", 21.5, 0.1);
    canvas.fill(word.path.translated(33, 23), Qt::black);
}

} // namespace

void addLogo(std::vector<Drawing>& drawings, const QString& fonts) {
    drawings.push_back({.bundle = "Driftwood_Driftwood",
                        .name = "window-fennick",
                        .size = size,
                        .isTemplate = true,
                        .draw = [fonts](Canvas& canvas) { drawLogo(canvas, fonts); }});
}

} // namespace artwork
