#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

namespace artwork {

namespace {

// Fields keep 2 points free on every side: the focus ring is drawn around that edge.

constexpr core::Size size{24, 24};
constexpr core::EdgeInsets fieldCaps{8, 10, 8, 10};

QPainterPath body() {
    return material::roundedRect({2, 2, size.width - 4, size.height - 4}, 3);
}

void drawField(Canvas& canvas) {
    parts::well(canvas, body());
}

/// Shallower than a text field: it stands in bars above what it searches.
void drawSearchField(Canvas& canvas) {
    material::body(canvas, body(), color("Background/Darkest"), color("Background/Darker"));
    material::hollowShadow(canvas, body(), 1.2, 0.5);
    parts::rim(canvas, body(), 1, color("Grey 40%", 0.6));
}

/// A field with a lit rim on its edge and a breath of light around it.
void drawLit(Canvas& canvas, void (*draw)(Canvas&), const QColor& light) {
    auto halo = light;
    halo.setAlphaF(0.55F);
    canvas.paint(canvas.softened(canvas.mask(body()), 2.4), halo);
    draw(canvas);
    parts::rim(canvas, body(), 1.5, light);
}

void drawFocus(Canvas& canvas) {
    drawLit(canvas, drawField, color("Highlight/System"));
}

void drawSearchFocus(Canvas& canvas) {
    drawLit(canvas, drawSearchField, color("Highlight/System"));
}

/// Not by its colour alone: the left edge is a solid bar.
void drawError(Canvas& canvas) {
    drawLit(canvas, drawField, color("Error"));
    auto& painter = canvas.painter();
    painter.save();
    painter.setClipPath(body());
    painter.fillRect(QRectF(2, 2, 4, size.height - 4), color("Error"));
    painter.restore();
}

/// Lies flat in the header it belongs to; only its lower edge is drawn.
void drawHeaderField(Canvas& canvas) {
    canvas.fill(body(), color("Background/Darker"));
    const double line = canvas.lineWidth(1);
    canvas.painter().save();
    canvas.painter().setClipPath(body());
    canvas.painter().fillRect(QRectF(2, size.height - 2 - line, size.width - 4, line),
                              color("Grey 40%"));
    canvas.painter().restore();
}

void drawMagnifier(Canvas& canvas) {
    QPainterPath path = parts::disc({5.4, 5.4}, 3.4);
    path.moveTo(8, 8);
    path.lineTo(10.6, 10.6);
    parts::glyph(canvas, path, color("Grey 50%"), 1.3);
}

void drawCancel(Canvas& canvas, bool pressed) {
    const auto shape = parts::disc({6, 6}, 5);
    if (pressed) {
        parts::sunk(canvas, shape, 1.2);
    } else {
        canvas.fill(shape, color("Grey 40%"));
    }
    QPainterPath cross;
    cross.moveTo(4.2, 4.2);
    cross.lineTo(7.8, 7.8);
    cross.moveTo(7.8, 4.2);
    cross.lineTo(4.2, 7.8);
    canvas.stroke(cross, color(pressed ? "Grey 70%" : "Background/Darkest"), 1.2);
}

} // namespace

void addFields(std::vector<Drawing>& drawings) {
    const auto add = [&](const char* name, void (*draw)(Canvas&)) {
        drawings.push_back(parts::sliced(name, size, fieldCaps, draw));
    };
    add("dwk-textfield", drawField);
    add("dwk-textfield-focus", drawFocus);
    add("dwk-textfield-error", drawError);
    add("dwk-textfield-tableheader", drawHeaderField);
    add("dwk-searchfield", drawSearchField);
    add("dwk-searchfield-focus", drawSearchFocus);
    drawings.push_back(parts::fixed("dwk-searchfield-icon", {12, 12}, drawMagnifier));
    drawings.push_back(parts::fixed("dwk-searchfield-cancel", {12, 12},
                                    [](Canvas& canvas) { drawCancel(canvas, false); }));
    drawings.push_back(parts::fixed("dwk-searchfield-cancel-down", {12, 12},
                                    [](Canvas& canvas) { drawCancel(canvas, true); }));
}

} // namespace artwork
