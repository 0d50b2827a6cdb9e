#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

#include <array>

namespace artwork {

namespace {

using parts::Tone;

// Modern: one row of a panel, 27 points high, as wide as its caption needs.

constexpr core::Size modernSize{40, 27};
constexpr core::EdgeInsets modernCaps{9, 15, 10, 15};

QPainterPath modernBody() {
    return material::roundedRect({1, 1, modernSize.width - 2, modernSize.height - 3}, 4);
}

constexpr QRectF modernLamp{7, 20.5, modernSize.width - 14, 1.5};

// Retro: a square-cut rocker of warm plastic with grip on both ends.

QPainterPath retroBody() {
    return material::roundedRect({1, 1, modernSize.width - 2, modernSize.height - 3}, 1.5);
}

void drawGrip(Canvas& canvas, double top, double bottom, double opacity) {
    for (const double x : {4.0, 6.0, 8.0}) {
        for (const double at : {x, modernSize.width - x}) {
            const double left = canvas.snapped(at - 0.5);
            const double width = canvas.lineWidth(0.8);
            canvas.fill(material::roundedRect({left, top, width, bottom - top}, 0),
                        QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity)));
            canvas.fill(material::roundedRect({left + width, top, canvas.pixel(), bottom - top}, 0),
                        QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity * 0.25)));
        }
    }
}

void drawRetro(Canvas& canvas) {
    const Tone plastic{QColor(0x57, 0x50, 0x4b), QColor(0x33, 0x2f, 0x2e)};
    const auto shape = retroBody();
    parts::raised(canvas, shape, plastic, 1.4);
    // Bevelled: the upper face looks into the light, the lower one does not.
    canvas.fill(material::roundedRect({2, 2, modernSize.width - 4, 3}, 0),
                QColor(255, 244, 230, 22));
    canvas.fill(material::roundedRect({2, 19, modernSize.width - 4, 5}, 0), QColor(0, 0, 0, 60));
    drawGrip(canvas, 6, 18, 0.5);
}

void drawRetroPressed(Canvas& canvas) {
    const Tone plastic{QColor(0x26, 0x22, 0x20), QColor(0x30, 0x2b, 0x29)};
    const auto shape = retroBody();
    parts::sunk(canvas, shape, 3.5, plastic);
    drawGrip(canvas, 7.5, 19.5, 0.45);
    const auto inner = modernLamp.adjusted(3.5, 1, -3.5, 1);
    parts::lamp(canvas, inner, shape, 0.24);
}

// Settings: a wide, quiet row that leads somewhere.

constexpr core::Size settingsSize{40, 32};
constexpr core::EdgeInsets settingsCaps{12, 14, 13, 14};

QPainterPath settingsBody() {
    return material::roundedRect({1, 1, settingsSize.width - 2, settingsSize.height - 3}, 6);
}

// The pad to hold: a round rubber dome in a ring.

constexpr core::Size padSize{48, 48};
constexpr QPointF padCenter{24, 23.5};

void drawPad(Canvas& canvas, bool isDown) {
    const auto ring = parts::disc(padCenter, 21.5);
    const auto dome = parts::disc(padCenter, 17);
    material::castShadow(canvas, ring, 1.4, 0.7);
    material::body(canvas, ring, color("Grey 30%"), color("Background/Normal"));
    material::rimLight(canvas, ring, canvas.lineWidth(0.7), 0.25);
    material::rimShade(canvas, ring, canvas.lineWidth(0.7), 0.35);
    const auto gap = parts::disc(padCenter, 18.5);
    canvas.fill(gap, mixed(color("Background/Darkest"), Qt::black, 0.55));
    material::hollowLight(canvas, gap, canvas.lineWidth(0.6), 0.12);
    const auto light = color("Kestrel/Aqua");
    if (isDown) {
        // The light of the ring comes out of the gap around the dome.
        const auto room = canvas.mask(ring);
        for (const double reach : {5.0, 2.0}) {
            auto halo = light;
            halo.setAlphaF(0.5F);
            canvas.paint(canvas.softened(canvas.mask(gap), reach) * room, halo);
        }
        canvas.fill(gap, mixed(light, Qt::white, 0.1));
        const auto low = parts::disc(padCenter, 16.6);
        parts::sunk(canvas, low, 6, {color("Background/Darkest"), color("Grey 20%")});
        canvas.fill(parts::disc(padCenter + QPointF(0, 0.5), 4), mixed(light, Qt::white, 0.25));
        return;
    }
    material::castShadow(canvas, dome, 1.2, 0.8);
    material::body(canvas, dome, mixed(color("Grey 30%"), color("Grey 40%"), 0.3),
                   color("Background/Normal"));
    material::rimLight(canvas, dome, canvas.lineWidth(0.7), 0.28);
    const auto eye = parts::disc(padCenter, 4);
    parts::sunk(canvas, eye, 1.2);
}

// The die: draws new values.

constexpr core::Size dieSize{36, 36};

void drawDie(Canvas& canvas, bool isDown) {
    const auto shape = material::roundedRect({1, 1, dieSize.width - 2, dieSize.height - 3}, 5);
    if (isDown) {
        parts::sunk(canvas, shape, 3.5);
    } else {
        parts::raised(canvas, shape, parts::grey(), 1.4);
    }
    canvas.painter().save();
    canvas.painter().translate(dieSize.width / 2, dieSize.height / 2 + (isDown ? 0.5 : -0.5));
    canvas.painter().rotate(isDown ? 28 : -12);
    const auto body = material::roundedRect({-8, -8, 16, 16}, 3.5);
    const auto ink = color(isDown ? "Kestrel/Aqua" : "Grey 85%");
    canvas.fill(body.translated(0, 0.9), QColor(0, 0, 0, 90));
    canvas.fill(body, ink);
    const auto hole = color(isDown ? "Background/Darkest" : "Grey 20%");
    for (const auto& [x, y] : std::array<QPointF, 5>{QPointF(-4, -4), QPointF(4, -4), QPointF(0, 0),
                                                     QPointF(-4, 4), QPointF(4, 4)}) {
        canvas.fill(parts::disc({x, y}, 1.5), hole);
    }
    canvas.painter().restore();
}

} // namespace

void addPluginButtons(std::vector<Drawing>& drawings) {
    const auto add = [&](const Drawing& drawing) {
        drawings.push_back(parts::inPluginKit(drawing));
    };
    add(parts::sliced("modern-button", modernSize, modernCaps,
                      [](Canvas& canvas) { parts::raised(canvas, modernBody(), parts::grey()); }));
    add(parts::sliced("modern-button-on", modernSize, modernCaps,
                      [](Canvas& canvas) { parts::lit(canvas, modernBody(), modernLamp); }));
    add(parts::sliced("modern-button-down", modernSize, modernCaps,
                      [](Canvas& canvas) { parts::sunk(canvas, modernBody(), 3.5); }));
    add(parts::sliced("modern-button-on-down", modernSize, modernCaps, [](Canvas& canvas) {
        parts::lit(canvas, modernBody(), modernLamp.translated(0, 0.5), 0.55);
    }));
    add(parts::sliced("retro-button", modernSize, modernCaps, drawRetro));
    add(parts::sliced("retro-button-down", modernSize, modernCaps, drawRetroPressed));
    add(parts::sliced("settings-button", settingsSize, settingsCaps, [](Canvas& canvas) {
        parts::raised(canvas, settingsBody(), parts::quiet(), 0.9);
    }));
    add(parts::sliced("settings-button-down", settingsSize, settingsCaps,
                      [](Canvas& canvas) { parts::sunk(canvas, settingsBody(), 3); }));
    add(parts::fixed("hold-pad", padSize, [](Canvas& canvas) { drawPad(canvas, false); }));
    add(parts::fixed("hold-pad-down", padSize, [](Canvas& canvas) { drawPad(canvas, true); }));
    add(parts::fixed("die-button", dieSize, [](Canvas& canvas) { drawDie(canvas, false); }));
    add(parts::fixed("die-button-down", dieSize, [](Canvas& canvas) { drawDie(canvas, true); }));
}

} // namespace artwork
