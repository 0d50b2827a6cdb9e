#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

namespace artwork {

namespace {

constexpr core::Size size{24, 24};
constexpr core::EdgeInsets buttonCaps{8, 10, 8, 10};

/// Leaves a point around the body, and one more below it, for the shadow where it stands.
QPainterPath body() {
    return material::roundedRect({1, 1, size.width - 2, size.height - 3}, 3.5);
}

void drawRest(Canvas& canvas) {
    parts::raised(canvas, body(), parts::grey());
}

void drawPressed(Canvas& canvas) {
    parts::sunk(canvas, body());
}

// The back button points to where it leads.

constexpr core::Size backSize{36, 32};

QPainterPath arrowBody() {
    constexpr double left = 5;
    constexpr double top = 6;
    constexpr double right = backSize.width - 4;
    constexpr double bottom = backSize.height - 4;
    constexpr double middle = (top + bottom) / 2;
    constexpr double shoulder = left + 9;
    QPainterPath path;
    path.moveTo(right - 3.5, top);
    path.quadTo(right, top, right, top + 3.5);
    path.lineTo(right, bottom - 3.5);
    path.quadTo(right, bottom, right - 3.5, bottom);
    path.lineTo(shoulder + 2, bottom);
    path.cubicTo(shoulder, bottom, shoulder - 1, bottom - 0.6, shoulder - 2, bottom - 2);
    path.lineTo(left + 0.6, middle + 1.6);
    path.quadTo(left - 0.4, middle, left + 0.6, middle - 1.6);
    path.lineTo(shoulder - 2, top + 2);
    path.cubicTo(shoulder - 1, top + 0.6, shoulder, top, shoulder + 2, top);
    path.closeSubpath();
    return path;
}

// Tools: quiet squares beside the canvas; the corner mark says that more lies behind one.

constexpr core::Size toolSize{32, 32};
constexpr core::EdgeInsets toolCaps{12, 15, 12, 15};

QPainterPath toolBody() {
    return material::roundedRect({1, 1, toolSize.width - 2, toolSize.height - 3}, 4);
}

void drawToolMore(Canvas& canvas) {
    QPainterPath mark;
    mark.moveTo(28, 22.5);
    mark.lineTo(28, 27);
    mark.lineTo(23.5, 27);
    mark.closeSubpath();
    canvas.fill(mark.translated(0, 0.6), QColor(0, 0, 0, 110));
    canvas.fill(mark, color("Grey 70%"));
}

} // namespace

void addButtons(std::vector<Drawing>& drawings) {
    drawings.push_back(parts::sliced("dwk-button", size, buttonCaps, drawRest));
    drawings.push_back(parts::sliced("dwk-button-down", size, buttonCaps, drawPressed));
    drawings.push_back(parts::sliced("dwk-button-selected", size, buttonCaps, [](Canvas& canvas) {
        parts::lit(canvas, body(), {5, 19.5, size.width - 10, 1.5});
    }));

    constexpr core::EdgeInsets backCaps{12, 20, 10, 12};
    drawings.push_back(
        parts::sliced("organiser-navbar-back", backSize, backCaps,
                      [](Canvas& canvas) { parts::raised(canvas, arrowBody(), parts::grey()); }));
    drawings.push_back(parts::sliced("organiser-navbar-back-down", backSize, backCaps,
                                     [](Canvas& canvas) { parts::sunk(canvas, arrowBody()); }));

    drawings.push_back(
        parts::sliced("corner-tool-background", toolSize, toolCaps, [](Canvas& canvas) {
            parts::raised(canvas, toolBody(), parts::quiet(), 0.8);
        }));
    drawings.push_back(parts::sliced("corner-tool-background-down", toolSize, toolCaps,
                                     [](Canvas& canvas) { parts::sunk(canvas, toolBody(), 3); }));
    drawings.push_back(
        parts::sliced("corner-tool-background-selected", toolSize, toolCaps, [](Canvas& canvas) {
            parts::lit(canvas, toolBody(), {10, 25, toolSize.width - 20, 2});
        }));
    drawings.push_back(parts::sliced("corner-tool-more", toolSize, toolCaps, drawToolMore));
}

} // namespace artwork
