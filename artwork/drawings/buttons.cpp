#include "artwork/catalogue.hpp"
#include "artwork/material.hpp"
#include "artwork/palette.hpp"

namespace artwork {

namespace {

constexpr double height = 24;
constexpr double cap = 8;
constexpr double radius = 3.5;
constexpr double width = 2 * cap + 4;

/// Leaves a point around the body, and one more below it, for the shadow where it stands.
QRectF bodyRect() {
    return {1, 1, width - 2, height - 3};
}

void drawRest(Canvas& canvas) {
    const auto shape = material::roundedRect(bodyRect(), radius);
    material::castShadow(canvas, shape, 1.2, 0.75);
    material::body(canvas, shape, color("Grey 30%"), color("Grey 20%"));
    material::rimShade(canvas, shape, canvas.lineWidth(0.7), 0.3);
    material::rimLight(canvas, shape, canvas.lineWidth(0.7), 0.2);
}

void drawPressed(Canvas& canvas) {
    const auto shape = material::roundedRect(bodyRect(), radius);
    material::body(canvas, shape, color("Background/Darkest"), color("Background/Darker"));
    material::hollowShadow(canvas, shape, 2.5, 0.6);
    material::seam(canvas, shape, canvas.pixel(), QColor(0, 0, 0, 130));
}

} // namespace

void addButtons(std::vector<Drawing>& drawings) {
    const auto add = [&](const char* name, void (*draw)(Canvas&)) {
        drawings.push_back({.bundle = "Driftwood_Driftwood",
                            .name = name,
                            .size = {width, height},
                            .capInsets = {cap, cap, cap, cap},
                            .resizing = Resizing::stretch,
                            .draw = draw});
    };
    add("dwk-button", drawRest);
    add("dwk-button-down", drawPressed);
}

} // namespace artwork
