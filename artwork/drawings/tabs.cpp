#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

namespace artwork {

namespace {

constexpr core::Size tabSize{36, 28};
constexpr core::EdgeInsets tabCaps{8, 16, 10, 16};
constexpr QRectF bar{9, 23, tabSize.width - 18, 2};

QPainterPath tabBody() {
    return material::roundedRect({1, 1, tabSize.width - 2, tabSize.height - 3}, 4);
}

/// No body at all, only the lamp that is not lit.
void drawRest(Canvas& canvas) {
    parts::unlitLamp(canvas, bar);
}

void drawSelected(Canvas& canvas) {
    parts::raised(canvas, tabBody(), parts::quiet());
    parts::lamp(canvas, bar, tabBody(), 0.3);
}

void drawPressed(Canvas& canvas) {
    parts::sunk(canvas, tabBody());
    canvas.fill(material::roundedRect(bar, 1), color("Highlight/System", 0.45));
}

} // namespace

void addTabs(std::vector<Drawing>& drawings) {
    drawings.push_back(parts::sliced("dwk-window-tab", tabSize, tabCaps, drawRest));
    drawings.push_back(parts::sliced("dwk-window-tab-selected", tabSize, tabCaps, drawSelected));
    drawings.push_back(parts::sliced("dwk-window-tab-down", tabSize, tabCaps, drawPressed));
}

} // namespace artwork
