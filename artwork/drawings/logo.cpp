#include "artwork/canvas.hpp"
#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/typeface.hpp"

#include <QTransform>

namespace artwork {

namespace {

/// Where the parts of the logo stand, in points.
struct Layout {
    core::Size size;
    QPointF nose; ///< of the fox
    double foxScale;
    QPointF word;        ///< where its first letter begins, on the line it stands on
    double letterHeight; ///< of lower-case letters; whole, as the line is, to be crisp at 1x
};

constexpr Layout windowLayout{{117, 30}, {16, 28}, 0.96, {37, 22}, 12};
constexpr Layout headerLayout{{100, 30}, {14, 26}, 0.82, {32, 20}, 10};

/// Curves that form one half of the fox, left of x = 0, and their mirror image.
QPainterPath mirrored(const QPainterPath& half) {
    auto whole = half;
    whole.addPath(QTransform::fromScale(-1, 1).map(half));
    return whole;
}

/// A fennec fox from the front: mostly ears. Its nose is at (0, 0), its ears reach y = -26.6.
QPainterPath fox() {
    QPainterPath head;
    head.moveTo(0, 0);
    head.cubicTo(-1.4, 0, -2.0, -1.0, -2.6, -2.2); // the muzzle
    head.cubicTo(-3.9, -4.9, -6.2, -6.0, -9.6, -6.2);
    head.cubicTo(-8.8, -7.4, -8.5, -8.6, -8.5, -10.0); // the cheek
    head.cubicTo(-13.6, -12.6, -17.2, -18.6, -16.2, -24.8);
    head.cubicTo(-15.9, -26.5, -14.6, -27.0, -13.2, -26.4); // the ear's tip
    head.cubicTo(-7.4, -24.0, -3.0, -19.6, -1.9, -13.6);
    head.cubicTo(-1.3, -13.75, -0.7, -13.8, 0, -13.8);
    head.closeSubpath();

    QPainterPath ear;
    ear.moveTo(-13.8, -23.6);
    ear.cubicTo(-14.0, -18.2, -11.4, -13.6, -7.0, -11.3);
    ear.cubicTo(-5.6, -16.2, -8.4, -21.0, -13.8, -23.6);
    ear.closeSubpath();

    QPainterPath eye;
    eye.moveTo(-5.6, -8.8);
    eye.cubicTo(-4.2, -9.6, -2.5, -8.6, -2.4, -6.7);
    eye.cubicTo(-4.0, -6.3, -5.4, -7.2, -5.6, -8.8);
    eye.closeSubpath();

    // Cutting turns curves into lines as long as a point or so: cut at a large size.
    const auto large = QTransform::fromScale(100, 100);
    const auto cut = mirrored(large.map(head))
                         .simplified()
                         .subtracted(mirrored(large.map(ear)))
                         .subtracted(mirrored(large.map(eye)));
    return large.inverted().map(cut);
}

void drawLogo(Canvas& canvas, const QString& fonts, const Layout& layout, const QColor& ink) {
    canvas.painter().save();
    canvas.painter().translate(layout.nose);
    canvas.painter().scale(layout.foxScale, layout.foxScale);
    canvas.fill(fox(), ink);
    canvas.painter().restore();

    const double letterSize = layout.letterHeight / 0.545;
    const auto word = outlineOf("fennick", fonts + "/FennickRounded-Bold.ttf", letterSize, 0.15);
    canvas.fill(word.path.translated(layout.word), ink);
}

} // namespace

void addLogo(std::vector<Drawing>& drawings, const QString& fonts) {
    drawings.push_back(
        {.bundle = "Driftwood_Driftwood",
         .name = "window-fennick",
         .size = windowLayout.size,
         .isTemplate = true,
         .draw = [fonts](Canvas& canvas) { drawLogo(canvas, fonts, windowLayout, Qt::black); }});
    drawings.push_back({.bundle = "Fernhorn_Fernhorn",
                        .name = "fennick-logo",
                        .size = headerLayout.size,
                        .draw = [fonts](Canvas& canvas) {
                            drawLogo(canvas, fonts, headerLayout, color("Grey 85%"));
                        }});
}

} // namespace artwork
