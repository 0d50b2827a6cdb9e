#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

#include <cmath>

namespace artwork {

namespace {

constexpr core::Size boxSize{16, 16};

enum class Mark { none, tick, dash };

QPainterPath box() {
    return material::roundedRect({2, 2, 12, 12}, 3);
}

void drawMark(Canvas& canvas, Mark mark, const QColor& ink) {
    QPainterPath path;
    if (mark == Mark::tick) {
        path.moveTo(5, 8.2);
        path.lineTo(7.1, 10.4);
        path.lineTo(11.1, 5.6);
        parts::glyph(canvas, path, ink, 1.8);
    } else if (mark == Mark::dash) {
        const QRectF bar(5, 7, 6, 2);
        canvas.fill(material::roundedRect(bar.translated(0, 0.8), 0.8), QColor(0, 0, 0, 90));
        canvas.fill(material::roundedRect(bar, 0.8), ink);
    }
}

/// Off is a hollow; a box that is on is filled up by a raised tile that carries its mark.
void drawBox(Canvas& canvas, Mark mark) {
    if (mark == Mark::none) {
        parts::well(canvas, box());
        parts::rim(canvas, box(), 1, color("Grey 40%"));
        return;
    }
    parts::raised(canvas, box(), parts::accent(), 0.8);
    drawMark(canvas, mark, Qt::white);
}

/// The finger has pushed the tile to the bottom of the box. It also stands in rows that are
/// selected, on the highlight's own colour, so it is dark with a light rim.
void drawPressedBox(Canvas& canvas, Mark mark) {
    const auto tile = mixed(color("Kestrel/DarkPurple"), color("Highlight/System"),
                            mark == Mark::none ? 0.0 : 0.22);
    material::body(canvas, box(), mixed(tile, Qt::black, 0.5), tile);
    material::hollowShadow(canvas, box(), 3, 0.85);
    parts::rim(canvas, box(), 1, parts::light());
    drawMark(canvas, mark, color("Grey 85%"));
}

/// Five points, a little blunt.
QPainterPath star(QPointF center, double radius) {
    constexpr double turn = 6.283185307179586;
    QPolygonF points;
    for (int i = 0; i < 10; ++i) {
        const double angle = turn * i / 10;
        const double r = i % 2 == 0 ? radius : radius * 0.47;
        points << center + QPointF(r * std::sin(angle), -r * std::cos(angle));
    }
    QPainterPath path;
    path.addPolygon(points);
    path.closeSubpath();
    return path;
}

void drawStar(Canvas& canvas) {
    const auto shape = star({8, 8.4}, 6.3);
    material::castShadow(canvas, shape, 0.8, 0.6);
    const auto gold = color("Kestrel/Yellow");
    canvas.stroke(shape, mixed(gold, color("Kestrel/Orange"), 0.45), 1);
    material::body(canvas, shape, gold, mixed(gold, color("Kestrel/Orange"), 0.45));
    material::rimLight(canvas, shape, canvas.lineWidth(0.7), 0.5);
}

void drawEmptyStar(Canvas& canvas) {
    const auto shape = star({8, 8.4}, 6);
    canvas.fill(shape, QColor(0, 0, 0, 110));
    canvas.stroke(shape, color("Grey 70%"), 1.1);
}

} // namespace

void addCheckBoxes(std::vector<Drawing>& drawings) {
    const auto add = [&](const char* name, void (*draw)(Canvas&, Mark), Mark mark) {
        drawings.push_back(
            parts::fixed(name, boxSize, [draw, mark](Canvas& canvas) { draw(canvas, mark); }));
    };
    add("dwk-checkbox", drawBox, Mark::none);
    add("dwk-checkbox-down", drawPressedBox, Mark::none);
    add("dwk-checkbox-on", drawBox, Mark::tick);
    add("dwk-checkbox-on-down", drawPressedBox, Mark::tick);
    add("dwk-checkbox-mixed", drawBox, Mark::dash);
    add("dwk-checkbox-mixed-down", drawPressedBox, Mark::dash);
    drawings.push_back(parts::fixed("organiser-icon-star", boxSize, drawStar));
    drawings.push_back(parts::fixed("organiser-icon-star-empty", boxSize, drawEmptyStar));
}

} // namespace artwork
