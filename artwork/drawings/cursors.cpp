#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

namespace artwork {

namespace {

constexpr core::Size cursorSize{24, 24};

/// The pointer; its tip, where it points, is at (3, 4).
QPainterPath pointer() {
    QPainterPath path;
    path.moveTo(3, 4);
    path.lineTo(3, 15);
    path.lineTo(5.6, 12.6);
    path.lineTo(7.3, 16.5);
    path.lineTo(9.2, 15.7);
    path.lineTo(7.5, 11.8);
    path.lineTo(11, 11.7);
    path.closeSubpath();
    return path;
}

void outline(Canvas& canvas, const QPainterPath& path, double width) {
    canvas.stroke(path, Qt::white, width + 1.8);
}

/// The pointer and a sign beside it made of strokes and a solid part: dark inside a light
/// outline, to be seen on every ground.
void drawCursor(Canvas& canvas, const QPainterPath& strokes, const QPainterPath& solid) {
    constexpr double width = 1.4;
    const auto ink = color("Background/Darkest");
    material::castShadow(canvas, pointer(), 1, 0.5);
    outline(canvas, pointer(), 0);
    canvas.fill(pointer(), ink);
    outline(canvas, strokes, width);
    outline(canvas, solid, 0);
    canvas.stroke(strokes, ink, width);
    canvas.fill(solid, ink);
}

/// Drag up or down.
void drawTrackingCursor(Canvas& canvas) {
    QPainterPath arrows;
    arrows.moveTo(18, 6);
    arrows.lineTo(18, 18);
    arrows.addPath(parts::chevron({18, 7}, 5, parts::Direction::up));
    arrows.addPath(parts::chevron({18, 17}, 5, parts::Direction::down));
    drawCursor(canvas, arrows, {});
}

/// Click for the next one, and round again.
void drawCycleCursor(Canvas& canvas) {
    constexpr double radius = 3.6;
    constexpr QPointF center(18.4, 14.8);
    const QRectF circle(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius);
    // Clockwise from the left over the right; the head stands at the lower left.
    constexpr double start = 135;
    constexpr double sweep = -225;
    QPainterPath arc;
    arc.arcMoveTo(circle, start);
    arc.arcTo(circle, start, sweep);
    QPainterPath head; // points along the arc at its end, where it runs to the left
    const auto end = arc.currentPosition();
    head.moveTo(end + QPointF(-3.2, 0));
    head.lineTo(end + QPointF(0.4, -2.3));
    head.lineTo(end + QPointF(0.4, 2.3));
    head.closeSubpath();
    drawCursor(canvas, arc, head);
}

} // namespace

void addCursors(std::vector<Drawing>& drawings) {
    drawings.push_back(parts::fixed("cursor-trackingslider", cursorSize, drawTrackingCursor));
    drawings.push_back(parts::fixed("cursor-cycle", cursorSize, drawCycleCursor));
}

} // namespace artwork
