#pragma once

#include "artwork/drawing.hpp"
#include "artwork/material.hpp"

/// What the families of controls share: the bodies they are made of, the lamp that says "on", and
/// the glyphs. A control at rest stands out of the ground, a pressed one has sunk into it.
namespace artwork::parts {

/// The colours of a matte body, lit from above.
struct Tone {
    QColor above;
    QColor below;
};

[[nodiscard]] Tone grey();    ///< most controls
[[nodiscard]] Tone quiet();   ///< controls that stay in the background
[[nodiscard]] Tone dark();    ///< pressed
[[nodiscard]] Tone accent();  ///< switched on
[[nodiscard]] Tone ivory();   ///< what the hand takes hold of
[[nodiscard]] QColor light(); ///< the light of a lamp

/// A body standing `height` points above the ground.
void raised(Canvas& canvas, const QPainterPath& shape, const Tone& tone, double height = 1.2);
/// A body pressed into the ground, so dark that grey text stays legible on it.
void sunk(Canvas& canvas, const QPainterPath& shape, double depth = 2.5, const Tone& tone = dark());
/// A body that is switched on: lit from within, its rim in the highlight, and a bright lamp.
/// `share` of the light is left while it is pressed.
void lit(Canvas& canvas, const QPainterPath& shape, const QRectF& bar, double share = 1);
/// A hollow to write into, with a bright lower edge.
void well(Canvas& canvas, const QPainterPath& shape);
/// A rim of whole pixels just inside the edge.
void rim(Canvas& canvas, const QPainterPath& shape, double width, const QColor& color);
/// A level bar with round ends that glows, and the same bar unlit.
void lamp(Canvas& canvas, const QRectF& bar, const QPainterPath& within, double glow = 0.5,
          const QColor& color = light());
void unlitLamp(Canvas& canvas, const QRectF& bar);
/// A line with a soft shadow below it, so that it lies on its body.
void glyph(Canvas& canvas, const QPainterPath& path, const QColor& color, double width);

enum class Direction { up, down, left, right };
/// An open arrow, twice as wide as it is deep.
[[nodiscard]] QPainterPath chevron(QPointF center, double width, Direction direction);
[[nodiscard]] QPainterPath disc(QPointF center, double radius);

/// An image of the control kit that is sliced: its caps keep their size, the rest stretches.
[[nodiscard]] Drawing sliced(const char* name, core::Size size, core::EdgeInsets caps,
                             std::function<void(Canvas&)> draw);
/// An image of the control kit that is drawn at its own size.
[[nodiscard]] Drawing fixed(const char* name, core::Size size, std::function<void(Canvas&)> draw);
/// The same image in the bundle of the plug-in kit.
[[nodiscard]] Drawing inPluginKit(Drawing drawing);

} // namespace artwork::parts
