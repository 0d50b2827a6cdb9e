#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

namespace artwork {

namespace {

constexpr core::Size buttonSize{20, 20};
constexpr core::Size glyphSize{16, 16};

/// The small buttons at the end of a table's header.
void drawHeaderButton(Canvas& canvas, void (*draw)(Canvas&, const QColor&), bool pressed) {
    const auto body = material::roundedRect({2, 2, 16, 15}, 3);
    if (pressed) {
        parts::sunk(canvas, body, 2);
    } else {
        parts::raised(canvas, body, parts::quiet(), 0.8);
    }
    draw(canvas, color(pressed ? "Grey 50%" : "Grey 85%"));
}

/// Bars of whole pixels, so that it is crisp at every scale.
void drawPlus(Canvas& canvas, const QColor& ink) {
    const double line = canvas.scale() == 1 ? 2 : canvas.lineWidth(1.5);
    const double x = canvas.snapped(10 - line / 2);
    const double y = canvas.snapped(9.5 - line / 2);
    const double reach = 3.5 + (line - 1.5) / 2;
    auto& painter = canvas.painter();
    painter.fillRect(QRectF(x, canvas.snapped(y + line / 2 - reach), line, 2 * reach), ink);
    painter.fillRect(QRectF(canvas.snapped(x + line / 2 - reach), y, 2 * reach, line), ink);
}

void drawDots(Canvas& canvas, const QColor& ink) {
    for (const double x : {6.0, 10.0, 14.0}) {
        canvas.fill(parts::disc({x, 9.5}, 1.2), ink);
    }
}

void drawDisclosure(Canvas& canvas, parts::Direction direction) {
    parts::glyph(canvas, parts::chevron({8, 8}, 7, direction), color("Grey 85%"), 1.6);
}

/// The pattern that shows through what is transparent; one cell of two by two squares.
void drawCheckerboard(Canvas& canvas) {
    const double width = canvas.size().width / 2;
    auto& painter = canvas.painter();
    painter.fillRect(QRectF(0, 0, 2 * width, 2 * width), color("Grey 30%"));
    painter.fillRect(QRectF(0, 0, width, width), color("Grey 20%"));
    painter.fillRect(QRectF(width, width, width, width), color("Grey 20%"));
}

} // namespace

void addTables(std::vector<Drawing>& drawings) {
    const auto addButton = [&](const char* name, void (*draw)(Canvas&, const QColor&),
                               bool pressed) {
        drawings.push_back(parts::fixed(name, buttonSize, [draw, pressed](Canvas& canvas) {
            drawHeaderButton(canvas, draw, pressed);
        }));
    };
    addButton("properties-table-add", drawPlus, false);
    addButton("properties-table-add-down", drawPlus, true);
    addButton("properties-tableheader-overflow", drawDots, false);
    addButton("properties-tableheader-overflow-down", drawDots, true);

    const auto addDisclosure = [&](const char* name, parts::Direction direction) {
        drawings.push_back(parts::fixed(
            name, glyphSize, [direction](Canvas& canvas) { drawDisclosure(canvas, direction); }));
    };
    addDisclosure("organiser-icon-disclose", parts::Direction::right);
    addDisclosure("organiser-icon-disclose-open", parts::Direction::down);

    const auto addPattern = [&](const char* name, double side) {
        auto drawing = parts::fixed(name, {side, side}, drawCheckerboard);
        drawing.resizing = Resizing::tile;
        drawings.push_back(drawing);
    };
    addPattern("dwk-checkerboard", 16);
    addPattern("dwk-checkerboard-small", 8);
}

} // namespace artwork
