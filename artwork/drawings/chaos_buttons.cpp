#include "artwork/catalogue.hpp"
#include "artwork/palette.hpp"
#include "artwork/parts.hpp"

#include <QLinearGradient>

namespace artwork {

namespace {

using parts::Direction;
using parts::Tone;

/// How far a key has gone down: where the front of the key below its face is still to be seen.
enum class Travel { up, latched, down };

struct Material {
    Tone face;
    Tone pressed;
    QColor front; ///< the side that looks at the player
    double sheen; ///< of the edge that faces the light
};

Material graphite() {
    const auto violet = [](const char* grey, double amount) {
        return mixed(color(grey), color("Highlight/System"), amount);
    };
    return {.face = {violet("Grey 30%", 0.05), violet("Grey 20%", 0.04)},
            .pressed = {violet("Background/Darker", 0.03), violet("Background/Normal", 0.03)},
            .front = mixed(color("Background/Darkest"), Qt::black, 0.1),
            .sheen = 0.24};
}

Material amber() {
    const auto yellow = color("Kestrel/Yellow");
    return {.face = {mixed(yellow, Qt::white, 0.08), mixed(yellow, QColor(0xc0, 0x78, 0x10), 0.42)},
            .pressed = {mixed(yellow, QColor(0x78, 0x48, 0x08), 0.62),
                        mixed(yellow, QColor(0x90, 0x58, 0x08), 0.48)},
            .front = QColor(0x6e, 0x48, 0x0e),
            .sheen = 0.55};
}

/// Travels within its frame, a point free around it.
struct Key {
    core::Size size;
    double radius;
    double height; ///< of the front when the key is up, in points
    Material material;

    [[nodiscard]] QPainterPath frame() const {
        return material::roundedRect({1, 1, size.width - 2, size.height - 2}, radius + 1);
    }
    [[nodiscard]] double visibleFront(Travel travel) const {
        switch (travel) {
        case Travel::up:
            return height;
        case Travel::latched:
            return height * 0.6;
        case Travel::down:
            break;
        }
        return 0;
    }
    /// A key that goes down moves towards the player, and no side of it changes its length.
    [[nodiscard]] QRectF face(Travel travel) const {
        const double sunk = height - visibleFront(travel);
        return {2, 2 + sunk, size.width - 4, size.height - 4 - height};
    }
};

void drawKey(Canvas& canvas, const Key& key, Travel travel) {
    const auto frame = key.frame();
    const auto pit = mixed(color("Background/Darkest"), Qt::black, 0.6);
    material::body(canvas, frame, pit, pit);
    material::hollowLight(canvas, frame, canvas.lineWidth(0.7), 0.14);

    const auto rect = key.face(travel);
    const auto face = material::roundedRect(rect, key.radius);
    const auto whole =
        material::roundedRect(rect.adjusted(0, 0, 0, key.visibleFront(travel)), key.radius);
    material::body(canvas, whole, key.material.front, key.material.front);
    material::rimLight(canvas, whole, canvas.lineWidth(0.5), 0.12);
    if (travel == Travel::down) {
        material::body(canvas, face, key.material.pressed.above, key.material.pressed.below);
        material::hollowShadow(canvas, face, 4, 0.55);
        material::rimShade(canvas, face, canvas.lineWidth(0.7), 0.25);
        return;
    }
    material::body(canvas, face, key.material.face.above, key.material.face.below);
    // The edge between face and front is worn round and catches a little light.
    material::hollowLight(canvas, face, canvas.lineWidth(0.5), key.material.sheen * 0.3);
    material::rimLight(canvas, face, canvas.lineWidth(0.7), key.material.sheen);
}

/// A slot in the lower part of the face; the caption stands above it.
void drawLamp(Canvas& canvas, const Key& key, Travel travel, double inset, bool isLit) {
    const auto rect = key.face(travel);
    const QRectF bar(rect.left() + inset, rect.bottom() - 5, rect.width() - 2 * inset, 2);
    const auto slot = bar.adjusted(-0.8, -0.8, 0.8, 0.8);
    canvas.fill(material::roundedRect(slot, slot.height() / 2), QColor(0, 0, 0, 120));
    material::hollowLight(canvas, material::roundedRect(slot, slot.height() / 2),
                          canvas.lineWidth(0.5), 0.1);
    if (isLit) {
        parts::lamp(canvas, bar, material::roundedRect(rect, key.radius),
                    travel == Travel::down ? 0.34 : 0.42, color("Kestrel/Yellow"));
        canvas.stroke(
            [&] {
                QPainterPath core;
                const double middle = canvas.snapped(bar.bottom()) - bar.height() / 2;
                core.moveTo(bar.left() + 1, middle);
                core.lineTo(bar.right() - 1, middle);
                return core;
            }(),
            QColor(255, 246, 214, 190), 0.7);
    } else {
        parts::unlitLamp(canvas, bar);
    }
}

Drawing toggle(const char* name, const Key& key, core::EdgeInsets caps, double inset, Travel travel,
               bool isOn) {
    return parts::inPluginKit(
        parts::sliced(name, key.size, caps, [key, inset, travel, isOn](Canvas& canvas) {
            drawKey(canvas, key, travel);
            drawLamp(canvas, key, travel, inset, isOn);
        }));
}

/// An engraved arrow: dark, with light on its lower edge.
void drawArrow(Canvas& canvas, QPointF center, Direction direction) {
    const double way = direction == Direction::left ? -1 : 1;
    const auto at = [&](double along, double across) {
        return center + QPointF(way * along, across);
    };
    QPainterPath arrow;
    arrow.moveTo(at(6.5, 0));
    arrow.lineTo(at(0, -5));
    arrow.lineTo(at(0, -1.4));
    arrow.lineTo(at(-6.5, -1.4));
    arrow.lineTo(at(-6.5, 1.4));
    arrow.lineTo(at(0, 1.4));
    arrow.lineTo(at(0, 5));
    arrow.closeSubpath();
    canvas.fill(arrow.translated(0, canvas.lineWidth(0.7)), QColor(255, 240, 190, 110));
    canvas.fill(arrow, color("ChaosYellowText"));
}

/// A rocker: the side that the arrow points to lies lower and turns away from the light or into it.
void drawRocker(Canvas& canvas, const Key& key, Travel travel, Direction direction) {
    drawKey(canvas, key, travel);
    const auto rect = key.face(travel);
    const bool isLeft = direction == Direction::left;
    QLinearGradient tilt(isLeft ? rect.topRight() : rect.topLeft(),
                         isLeft ? rect.topLeft() : rect.topRight());
    tilt.setColorAt(0, QColor(255, 255, 255, 36));
    tilt.setColorAt(0.4, QColor(255, 255, 255, 0));
    tilt.setColorAt(0.5, QColor(70, 36, 0, 34));
    tilt.setColorAt(1, QColor(70, 36, 0, 120));
    canvas.fill(material::roundedRect(rect, key.radius), tilt);
    drawArrow(canvas, rect.center() + QPointF(isLeft ? -3.0 : 3.0, 0), direction);
}

} // namespace

void addChaosButtons(std::vector<Drawing>& drawings) {
    const Key wide{{80, 36}, 4.5, 4, graphite()};
    constexpr core::EdgeInsets wideCaps{10, 27, 16, 27};
    constexpr double wideInset = 18;
    const Key narrow{{44, 36}, 4.5, 4, graphite()};
    constexpr core::EdgeInsets narrowCaps{10, 20, 16, 20};
    constexpr double narrowInset = 12;
    drawings.push_back(
        toggle("chaos-button-grey-off", wide, wideCaps, wideInset, Travel::up, false));
    drawings.push_back(
        toggle("chaos-button-grey-on-yellow", wide, wideCaps, wideInset, Travel::latched, true));
    drawings.push_back(
        toggle("chaos-button-grey-off-down", wide, wideCaps, wideInset, Travel::down, false));
    drawings.push_back(
        toggle("chaos-button-grey-on-yellow-down", wide, wideCaps, wideInset, Travel::down, true));
    drawings.push_back(
        toggle("chaos-button-narrow-grey-off", narrow, narrowCaps, narrowInset, Travel::up, false));
    drawings.push_back(toggle("chaos-button-narrow-grey-on-yellow", narrow, narrowCaps, narrowInset,
                              Travel::latched, true));
    drawings.push_back(toggle("chaos-button-narrow-grey-off-down", narrow, narrowCaps, narrowInset,
                              Travel::down, false));
    drawings.push_back(toggle("chaos-button-narrow-grey-on-yellow-down", narrow, narrowCaps,
                              narrowInset, Travel::down, true));

    const Key yellow{{80, 36}, 4.5, 4, amber()};
    const auto plain = [&](const char* name, Travel travel) {
        drawings.push_back(parts::inPluginKit(
            parts::sliced(name, yellow.size, wideCaps,
                          [yellow, travel](Canvas& canvas) { drawKey(canvas, yellow, travel); })));
    };
    plain("chaos-button-yellow", Travel::up);
    plain("chaos-button-yellow-down", Travel::down);

    const Key small{{40, 28}, 4.5, 3, amber()};
    const auto rocker = [&](const char* name, Travel travel, Direction direction) {
        drawings.push_back(parts::inPluginKit(
            parts::fixed(name, small.size, [small, travel, direction](Canvas& canvas) {
                drawRocker(canvas, small, travel, direction);
            })));
    };
    rocker("chaos-button-small-yellow-left", Travel::up, Direction::left);
    rocker("chaos-button-small-yellow-right", Travel::up, Direction::right);
    rocker("chaos-button-small-yellow-left-down", Travel::down, Direction::left);
    rocker("chaos-button-small-yellow-right-down", Travel::down, Direction::right);
}

} // namespace artwork
