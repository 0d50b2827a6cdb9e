#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

namespace artwork {

namespace {

constexpr core::Size size{24, 24};

/// The pointer; its tip, where it points, is at (3, 4).
QPainterPath pointer() {
    QPainterPath path;
    path.moveTo(3, 4);
    path.lineTo(3, 16.2);
    path.lineTo(5.9, 13.5);
    path.lineTo(7.8, 17.9);
    path.lineTo(9.9, 17);
    path.lineTo(8, 12.7);
    path.lineTo(11.9, 12.6);
    path.closeSubpath();
    return path;
}

/// Dark inside a light outline: seen on every ground.
void drawOutlined(Canvas& canvas, const QPainterPath& path, double width) {
    canvas.stroke(path, Qt::white, width + 1.8);
    canvas.stroke(path, color("Background/Darkest"), width);
}

void drawPointer(Canvas& canvas) {
    const auto shape = pointer();
    material::castShadow(canvas, shape, 1, 0.5);
    canvas.stroke(shape, Qt::white, 1.8);
    canvas.fill(shape, color("Background/Darkest"));
}

/// Drag up or down.
void drawTrackingCursor(Canvas& canvas) {
    QPainterPath arrows;
    arrows.moveTo(18.5, 6);
    arrows.lineTo(18.5, 18);
    arrows.addPath(parts::chevron({18.5, 7}, 5, parts::Direction::up));
    arrows.addPath(parts::chevron({18.5, 17}, 5, parts::Direction::down));
    drawPointer(canvas);
    drawOutlined(canvas, arrows, 1.4);
}

/// Click for the next one, and round again.
void drawCycleCursor(Canvas& canvas) {
    constexpr QRectF circle(15, 10.5, 7, 7);
    QPainterPath arc;
    arc.arcMoveTo(circle, 135);
    arc.arcTo(circle, 135, 270);
    const auto end = arc.currentPosition();
    QPainterPath head; // at the open end of the arc, which runs upwards to the left there
    head.moveTo(end + QPointF(0.4, -3.6));
    head.lineTo(end);
    head.lineTo(end + QPointF(3.4, 0.6));
    arc.addPath(head);
    drawPointer(canvas);
    drawOutlined(canvas, arc, 1.4);
}

} // namespace

void addCursors(std::vector<Drawing>& drawings) {
    drawings.push_back(parts::fixed("cursor-trackingslider", size, drawTrackingCursor));
    drawings.push_back(parts::fixed("cursor-cycle", size, drawCycleCursor));
}

} // namespace artwork
