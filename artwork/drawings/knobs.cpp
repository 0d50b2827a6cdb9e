#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

#include <QConicalGradient>
#include <QLinearGradient>
#include <cmath>
#include <map>
#include <memory>

namespace artwork {

namespace {

constexpr int frames = 51;
constexpr double sweep = 270; ///< degrees; the middle frame points up
constexpr double pi = 3.141592653589793;

// A dial lays its value over the frame: over the middle of a small one, and 16 points below the
// middle of the others. So the knobs stand in the upper part of their frames, and the small one
// has a window for the value in the middle of its cap.

/// A kind of knob. Lengths are in points, `center` is the axis.
struct Knob {
    core::Size size;
    QPointF center;
    double skirt;   ///< radius of the whole body
    double cap;     ///< radius of the part that stands out of it
    double pointer; ///< width of the indicator
    double inner;   ///< where the indicator begins, as a part of the cap's radius
    int ridges;     ///< around the skirt, to grip
    double arc;     ///< radius of the ring that shows the value; 0: none
    double window;  ///< radius of the window in the cap; 0: none
    QColor light;
};

/// Clockwise from the top, in degrees.
QPointF onCircle(const Knob& knob, double radius, double angle) {
    const double a = angle * pi / 180;
    return knob.center + QPointF(radius * std::sin(a), -radius * std::cos(a));
}

/// How squarely a wall that faces outwards at this angle looks into the light, -1…1.
double facingLight(double angle) {
    constexpr double lightFrom = -35;
    return std::cos((angle - lightFrom) * pi / 180);
}

QPainterPath arcPath(const Knob& knob, double radius, double from, double to) {
    const QRectF circle(knob.center.x() - radius, knob.center.y() - radius, 2 * radius, 2 * radius);
    QPainterPath path;
    path.arcMoveTo(circle, 90 - from); // Qt counts anticlockwise from the right
    path.arcTo(circle, 90 - from, from - to);
    return path;
}

QColor grey(double level, double opacity) {
    const auto l = static_cast<float>(level);
    return QColor::fromRgbF(l, l, l, static_cast<float>(opacity));
}

/// A bright line and the light around it.
void glowingLine(Canvas& canvas, const QPainterPath& path, const QColor& light, double width,
                 double reach) {
    constexpr int steps = 5;
    for (int i = steps; i > 0; --i) {
        auto halo = light;
        halo.setAlphaF(0.075F);
        canvas.stroke(path, halo, width + 2 * reach * i / steps);
    }
    canvas.stroke(path, light, width);
}

/// What the light makes of a surface of revolution: it stays where it is while the knob turns.
void drawStill(Canvas& canvas, const Knob& knob) {
    const auto skirt = parts::disc(knob.center, knob.skirt);
    const auto cap = parts::disc(knob.center, knob.cap);
    if (knob.arc > 0) {
        const auto track = arcPath(knob, knob.arc, -sweep / 2, sweep / 2);
        canvas.stroke(track.translated(0, 0.5), grey(1, 0.06), 3);
        canvas.stroke(track, color("Background/Darkest"), 3);
        canvas.stroke(track, grey(1, 0.12), 2);
    }
    if (knob.arc == 0) {
        // Without a ring, marks show where the sweep begins, its middle and its end.
        for (const double at : {-sweep / 2, 0.0, sweep / 2}) {
            canvas.fill(
                parts::disc(onCircle(knob, knob.skirt + knob.cap * 0.11, at), knob.pointer * 0.34),
                grey(1, 0.3));
        }
    }
    material::castShadow(canvas, skirt, knob.skirt * 0.17, 0.6);
    material::castShadow(canvas, skirt, knob.skirt * 0.06, 0.7);
    material::body(canvas, skirt, color("Grey 20%"), color("Background/Darkest"));

    // The cap throws its shadow on the skirt.
    const auto fallen = canvas.mask(cap.translated(knob.cap * 0.03, knob.cap * 0.1));
    canvas.paint(canvas.softened(fallen, knob.cap * 0.16) * canvas.mask(skirt), grey(0, 0.6));
    material::rimLight(canvas, skirt, canvas.lineWidth(0.6), 0.28);
    material::rimShade(canvas, skirt, canvas.lineWidth(0.6), 0.4);
}

void drawStillCap(Canvas& canvas, const Knob& knob) {
    const auto cap = parts::disc(knob.center, knob.cap);
    QLinearGradient gradient(onCircle(knob, knob.cap, -35), onCircle(knob, knob.cap, 145));
    const auto violet = [](const QColor& grey) {
        return mixed(grey, color("Highlight/System"), 0.055);
    };
    gradient.setColorAt(0, violet(mixed(color("Grey 30%"), color("Grey 40%"), 0.1)));
    gradient.setColorAt(0.55, violet(mixed(color("Grey 20%"), color("Grey 30%"), 0.4)));
    gradient.setColorAt(1, violet(color("Grey 20%")));
    // The edge is bevelled: towards the light it is brighter than the face, away from it darker.
    QLinearGradient bevel(gradient.start(), gradient.finalStop());
    bevel.setColorAt(0, violet(color("Grey 40%")));
    bevel.setColorAt(0.5, violet(color("Grey 20%")));
    bevel.setColorAt(1, color("Background/Darkest"));
    canvas.fill(cap, bevel);
    const auto face = parts::disc(knob.center, knob.cap - knob.cap * 0.075);
    canvas.fill(face, gradient);
    // Turned on a lathe: the sheen lies across the grooves.
    QConicalGradient sheen(knob.center, 125);
    for (const double at : {0.0, 0.5, 1.0}) {
        sheen.setColorAt(at, grey(1, at == 0.5 ? 0.035 : 0.06));
    }
    for (const double at : {0.16, 0.34, 0.66, 0.84}) {
        sheen.setColorAt(at, grey(1, 0));
    }
    canvas.fill(face, sheen);
    material::rimShade(canvas, cap, canvas.lineWidth(0.7), 0.35);
    material::rimLight(canvas, cap, canvas.lineWidth(0.7), 0.3);
    if (knob.window > 0) {
        parts::sunk(canvas, parts::disc(knob.center, knob.window), 2.2,
                    {color("background"), color("Background/Darkest")});
    }
}

/// The ridges turn with the body; each catches as much light as it faces at that moment.
void drawRidges(Canvas& canvas, const Knob& knob, double turn) {
    const double pitch = 360.0 / knob.ridges;
    const double inner = knob.cap + 0.5;
    const double outer = knob.skirt - 0.9;
    for (int i = 0; i < knob.ridges; ++i) {
        const double angle = turn + pitch * (i + 0.5);
        const double light = facingLight(angle);
        const double half = pitch * 0.24;
        QPainterPath ridge;
        ridge.moveTo(onCircle(knob, inner, angle - half));
        ridge.lineTo(onCircle(knob, outer, angle - half));
        ridge.lineTo(onCircle(knob, outer, angle + half));
        ridge.lineTo(onCircle(knob, inner, angle + half));
        ridge.closeSubpath();
        canvas.fill(ridge, grey(0, 0.3));
        canvas.fill(ridge, grey(1, 0.05 + 0.08 * std::max(0.0, light)));
    }
}

void drawPointer(Canvas& canvas, const Knob& knob, double turn) {
    QPainterPath line;
    line.moveTo(onCircle(knob, knob.cap * knob.inner, turn));
    line.lineTo(onCircle(knob, knob.cap - knob.pointer * 0.9, turn));
    canvas.stroke(line, grey(0, 0.5), knob.pointer + 1.2); // a slot that it lies in
    glowingLine(canvas, line, mixed(knob.light, Qt::white, 0.28), knob.pointer, knob.pointer * 1.1);
}

/// Across the ring at twelve o'clock, so that values on either side of the middle are told apart.
void drawMiddleMark(Canvas& canvas, const Knob& knob) {
    const double reach = std::max(1.5, knob.arc * 0.085);
    QPainterPath mark;
    mark.moveTo(onCircle(knob, knob.arc - reach, 0));
    mark.lineTo(onCircle(knob, knob.arc + reach, 0));
    canvas.stroke(mark, color("Background/Darkest"), 3);
    canvas.stroke(mark, color("Grey 70%"), 1);
}

/// What does not turn is the same in all frames of a strip: drawn once for each scale.
struct StillParts {
    QImage below;
    QImage cap;
};
using StillPartsByScale = std::map<int, StillParts>;

template<class Draw>
QImage drawn(const Canvas& like, Draw draw) {
    Canvas canvas(like.size(), like.scale());
    draw(canvas);
    return canvas.finish();
}

void lay(Canvas& canvas, const QImage& image) {
    canvas.painter().save();
    canvas.painter().resetTransform();
    canvas.painter().drawImage(0, 0, image);
    canvas.painter().restore();
}

void drawFrame(Canvas& canvas, const Knob& knob, StillPartsByScale& cache, int frame) {
    auto& still = cache[canvas.scale()];
    if (still.below.isNull()) {
        still.below = drawn(canvas, [&](Canvas& c) { drawStill(c, knob); });
        still.cap = drawn(canvas, [&](Canvas& c) { drawStillCap(c, knob); });
    }
    const double turn = -sweep / 2 + sweep * frame / (frames - 1);
    lay(canvas, still.below);
    if (knob.arc > 0 && frame > 0) {
        glowingLine(canvas, arcPath(knob, knob.arc, -sweep / 2, turn), knob.light, 2, 1.8);
    }
    if (knob.arc > 0) {
        drawMiddleMark(canvas, knob);
    }
    drawRidges(canvas, knob, turn);
    lay(canvas, still.cap);
    drawPointer(canvas, knob, turn);
}

void addStrip(std::vector<Drawing>& drawings, const QString& prefix, const Knob& knob) {
    const auto cache = std::make_shared<StillPartsByScale>();
    for (int frame = 0; frame < frames; ++frame) {
        drawings.push_back({.bundle = "Fernhorn_Fernhorn",
                            .name = prefix + QStringLiteral("%1").arg(frame + 1, 2, 10, QChar('0')),
                            .size = knob.size,
                            .draw = [knob, cache, frame](Canvas& canvas) {
                                drawFrame(canvas, knob, *cache, frame);
                            }});
    }
}

} // namespace

void addKnobs(std::vector<Drawing>& drawings) {
    addStrip(drawings, "knobs/chaos-dial-grey_",
             {{56, 64}, {28, 20.5}, 18, 13.8, 2.4, 0.4, 22, 0, 0, color("Grey 100%")});
    addStrip(drawings, "knobs/dial-small-grey-",
             {{34, 40}, {17, 20}, 12.2, 11.7, 1.8, 0.8, 0, 14.3, 8.6, color("Kestrel/Aqua")});
    const Knob medium{{68, 84}, {34, 28.5}, 20, 15.2, 2.5, 0.4, 24, 25.8, 0, {}};
    struct Variant {
        const char* name;
        const char* color;
    };
    for (const auto& [name, light] :
         {Variant{"blue", "Kestrel/Blue"}, Variant{"yellow", "Kestrel/Yellow"},
          Variant{"red", "Kestrel/Red"}, Variant{"purple", "Kestrel/Purple"}}) {
        auto knob = medium;
        knob.light = color(light);
        addStrip(drawings, QStringLiteral("knobs/dial-medium-%1-").arg(name), knob);
    }
}

} // namespace artwork
