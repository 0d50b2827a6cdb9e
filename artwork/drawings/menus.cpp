#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

namespace artwork {

namespace {

using parts::Direction;

// The bodies keep 3 points free above and below and 2 at the sides; titles end 14 points before
// the right edge.

constexpr core::Size popUpSize{32, 24};
constexpr core::EdgeInsets popUpCaps{8, 10, 8, 18};
constexpr double arrowX = popUpSize.width - 9;

QPainterPath popUpBody(core::Size of, double left = 2, double right = 2) {
    return material::roundedRect({left, 3, of.width - left - right, of.height - 6}, 3);
}

enum class Look { rest, pressed, tool, toolPressed };

void drawBody(Canvas& canvas, Look look) {
    const auto shape = popUpBody(canvas.size());
    switch (look) {
    case Look::rest:
        return parts::raised(canvas, shape, parts::grey());
    case Look::tool: // lies flat among tools: an outline, no body
        canvas.fill(shape, color("Grey 30%", 0.28));
        return parts::rim(canvas, shape, 1, color("Grey 40%", 0.65));
    case Look::pressed:
    case Look::toolPressed:
        return parts::sunk(canvas, shape);
    }
}

/// A list that lies over the button opens both ways, a menu below it only downwards.
void drawMenuButton(Canvas& canvas, Look look, bool bothWays) {
    drawBody(canvas, look);
    const bool pressed = look == Look::pressed || look == Look::toolPressed;
    const auto ink = color(pressed ? "Grey 50%" : "Grey 70%");
    const double middle = popUpSize.height / 2;
    if (bothWays) {
        parts::glyph(canvas, parts::chevron({arrowX, middle - 3}, 5, Direction::up), ink, 1.3);
        parts::glyph(canvas, parts::chevron({arrowX, middle + 3}, 5, Direction::down), ink, 1.3);
    } else {
        parts::glyph(canvas, parts::chevron({arrowX, middle}, 6, Direction::down), ink, 1.4);
    }
}

// A combo box puts two images side by side: the field, stretched, and at the right edge either
// the raised arrow button or, while its list is open, the field's image once more: the button
// has then sunk to the level of the field.

constexpr core::Size comboSize{14, 24};
constexpr core::EdgeInsets comboCaps{8, 6, 8, 6};

void drawComboField(Canvas& canvas) {
    parts::well(canvas, popUpBody(comboSize));
}

void drawComboArrow(Canvas& canvas) {
    parts::raised(canvas, popUpBody(comboSize, 0, 2), parts::grey());
    parts::glyph(canvas, parts::chevron({6, comboSize.height / 2}, 5, Direction::down),
                 color("Grey 85%"), 1.3);
}

} // namespace

void addMenus(std::vector<Drawing>& drawings) {
    const auto add = [&](const char* name, Look look, bool bothWays) {
        drawings.push_back(
            parts::sliced(name, popUpSize, popUpCaps, [look, bothWays](Canvas& canvas) {
                drawMenuButton(canvas, look, bothWays);
            }));
    };
    add("dwk-popup", Look::rest, true);
    add("dwk-popup-down", Look::pressed, true);
    add("dwk-popup-tool", Look::tool, true);
    add("dwk-popup-tool-down", Look::toolPressed, true);
    add("dwk-popdown", Look::rest, false);
    add("dwk-popdown-down", Look::pressed, false);
    drawings.push_back(parts::sliced("dwk-combobox", comboSize, comboCaps, drawComboField));
    drawings.push_back(parts::fixed("dwk-combobox-up", comboSize, drawComboArrow));
}

} // namespace artwork
