#include "artwork/canvas.hpp"
#include "artwork/catalogue.hpp"

namespace artwork {

namespace {

constexpr double thickness = 1.2;

/// A level bar of whole pixels around the height `y`.
void bar(Canvas& canvas, double left, double right, double y) {
    const double height = canvas.lineWidth(thickness);
    const double top = canvas.snapped(y - height / 2);
    canvas.painter().fillRect(QRectF(left, top, right - left, height), Qt::black);
}

void drawClose(Canvas& canvas) {
    QPainterPath cross;
    cross.moveTo(2.25, 2.25);
    cross.lineTo(9.75, 9.75);
    cross.moveTo(9.75, 2.25);
    cross.lineTo(2.25, 9.75);
    canvas.stroke(cross, Qt::black, thickness);
}

void drawMinimise(Canvas& canvas) {
    bar(canvas, 2, 10, 6);
}

void drawMenu(Canvas& canvas) {
    // Whole points apart, so that the gaps stay equal where a point is one pixel.
    for (const double offset : {-3.0, 0.0, 3.0}) {
        bar(canvas, 2, 10, 6 + offset);
    }
}

} // namespace

void addWindowControls(std::vector<Drawing>& drawings) {
    const auto add = [&](const char* name, void (*draw)(Canvas&)) {
        drawings.push_back({.bundle = "Larkvox",
                            .name = name,
                            .size = {12, 12},
                            .isTemplate = true,
                            .draw = draw});
    };
    add("window-close", drawClose);
    add("window-minimise", drawMinimise);
    add("window-menu", drawMenu);
}

} // namespace artwork
