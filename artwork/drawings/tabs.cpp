#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

namespace artwork {

namespace {

constexpr core::Size size{36, 28};
constexpr core::EdgeInsets caps{8, 16, 10, 16};
constexpr QRectF bar{9, 23, size.width - 18, 2};

QPainterPath body() {
    return material::roundedRect({1, 1, size.width - 2, size.height - 3}, 4);
}

/// No body at all, only the lamp that is not lit.
void drawRest(Canvas& canvas) {
    parts::unlitLamp(canvas, bar);
}

void drawSelected(Canvas& canvas) {
    parts::raised(canvas, body(), parts::quiet());
    parts::lamp(canvas, bar, body(), 0.3);
}

void drawPressed(Canvas& canvas) {
    parts::sunk(canvas, body());
    canvas.fill(material::roundedRect(bar, 1), color("Highlight/System", 0.45));
}

} // namespace

void addTabs(std::vector<Drawing>& drawings) {
    drawings.push_back(parts::sliced("dwk-window-tab", size, caps, drawRest));
    drawings.push_back(parts::sliced("dwk-window-tab-selected", size, caps, drawSelected));
    drawings.push_back(parts::sliced("dwk-window-tab-down", size, caps, drawPressed));
}

} // namespace artwork
