#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

namespace artwork {

namespace {

constexpr core::Size barSize{12, 6};
constexpr core::EdgeInsets barCaps{2, 4, 2, 4};
constexpr core::Size knobSize{16, 16};
constexpr QPointF center{8, 7.75};

QPainterPath groove() {
    return material::roundedRect({0, 1, barSize.width, 4}, 2);
}

void drawTrack(Canvas& canvas) {
    material::body(canvas, groove(), mixed(color("Background/Darkest"), Qt::black, 0.6),
                   color("Background/Darkest"));
    material::hollowShadow(canvas, groove(), 1, 0.6);
    parts::rim(canvas, groove(), 0.5, color("Grey 30%", 0.6));
}

/// What the track is filled with: a body of light that rises out of the groove.
void drawFilling(Canvas& canvas, const QPainterPath& shape) {
    material::body(canvas, shape, parts::light(), parts::accent().below);
    material::rimShade(canvas, shape, canvas.lineWidth(0.5), 0.2);
}

enum class Grip { plain, held, several };

/// At rest a smooth disc; in the hand it is pressed down and its middle is lit; standing for
/// several values it is a ring with a dash, as the mixed check box has.
void drawKnob(Canvas& canvas, Grip grip) {
    const auto shape = parts::disc(center, 6.5);
    switch (grip) {
    case Grip::plain:
        return parts::raised(canvas, shape, parts::ivory(), 1.5);
    case Grip::held: {
        const parts::Tone tone{color("Grey 70%"), color("Grey 50%")};
        parts::raised(canvas, shape, tone, 0.6);
        const auto lens = parts::disc(center, 3);
        material::body(canvas, lens, color("Highlight/System"), parts::light());
        return material::hollowShadow(canvas, lens, 1, 0.5);
    }
    case Grip::several:
        parts::raised(canvas, shape, parts::grey(), 1);
        parts::rim(canvas, shape, 1.5, color("Grey 70%"));
        return canvas.fill(material::roundedRect({5, 7, 6, 1.5}, 0.75), color("Grey 85%"));
    }
}

// The slider that fills a whole field: its knob has a slot, which is lit while it is held.

void drawBroadFilling(Canvas& canvas) {
    const auto shape = material::roundedRect({1.5, 3, knobSize.width - 3, 10}, 5);
    material::body(canvas, shape, parts::accent().above, parts::accent().below);
    material::rimShade(canvas, shape, canvas.lineWidth(0.5), 0.2);
}

void drawBroadKnob(Canvas& canvas, bool held) {
    const auto shape = material::roundedRect({1.5, 1, 13, 13}, 5);
    const parts::Tone tone{color("Grey 70%"), color("Grey 50%")};
    parts::raised(canvas, shape, held ? tone : parts::ivory(), held ? 0.6 : 1.5);
    const double width = held ? 4 : 2;
    const auto slot = material::roundedRect({8 - width / 2, 4, width, 7}, width / 2);
    const auto dark = color("Grey 30%");
    material::body(canvas, slot, held ? color("Highlight/System") : dark,
                   held ? parts::light() : dark);
    material::hollowShadow(canvas, slot, 1, 0.5);
}

/// What stands at the ends of a slider for a field: less and more.
void drawSign(Canvas& canvas, bool isMore) {
    constexpr double middle = 6;
    constexpr double reach = 3.5;
    QPainterPath path;
    path.moveTo(middle - reach, middle);
    path.lineTo(middle + reach, middle);
    if (isMore) {
        path.moveTo(middle, middle - reach);
        path.lineTo(middle, middle + reach);
    }
    parts::glyph(canvas, path, color("Grey 60%"), 1.5);
}

/// Beside a number that is dragged upwards and downwards.
void drawDragSign(Canvas& canvas) {
    QPainterPath path;
    path.moveTo(2.5, 6.5);
    path.lineTo(6, 3);
    path.lineTo(9.5, 6.5);
    path.moveTo(2.5, 11.5);
    path.lineTo(6, 15);
    path.lineTo(9.5, 11.5);
    parts::glyph(canvas, path, color("Grey 60%"), 1.5);
}

} // namespace

void addSliders(std::vector<Drawing>& drawings) {
    drawings.push_back(parts::sliced("dwk-slider-alley", barSize, barCaps, drawTrack));
    drawings.push_back(parts::sliced("dwk-slider", barSize, barCaps,
                                     [](Canvas& canvas) { drawFilling(canvas, groove()); }));
    const auto add = [&](const char* name, Grip grip) {
        drawings.push_back(
            parts::fixed(name, knobSize, [grip](Canvas& canvas) { drawKnob(canvas, grip); }));
    };
    add("dwk-slider-handle", Grip::plain);
    add("dwk-slider-handle-down", Grip::held);
    add("dwk-slider-handle-multi", Grip::several);

    drawings.push_back(
        parts::sliced("dwk-customslider-on", knobSize, {2, 7, 2, 7}, drawBroadFilling));
    drawings.push_back(parts::fixed("dwk-customslider-handle", knobSize,
                                    [](Canvas& canvas) { drawBroadKnob(canvas, false); }));
    drawings.push_back(parts::fixed("dwk-customslider-handle-down", knobSize,
                                    [](Canvas& canvas) { drawBroadKnob(canvas, true); }));
    drawings.push_back(parts::fixed("dwk-customslider-less", {12, 12},
                                    [](Canvas& canvas) { drawSign(canvas, false); }));
    drawings.push_back(parts::fixed("dwk-customslider-more", {12, 12},
                                    [](Canvas& canvas) { drawSign(canvas, true); }));
    drawings.push_back(parts::fixed("dwk-customslider-drag", {12, 18}, drawDragSign));
}

} // namespace artwork
