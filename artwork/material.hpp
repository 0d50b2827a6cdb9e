#pragma once

#include "artwork/canvas.hpp"

/// What things are made of. The light comes from the upper left; a thing casts one soft shadow,
/// catches a thin rim of light on the edges that face it, and is matte otherwise.
namespace artwork::material {

/// A rectangle with circular corners.
[[nodiscard]] QPainterPath roundedRect(const QRectF& rect, double radius);
/// A rectangle whose sides flow into its corners without a seam, as on an application icon.
[[nodiscard]] QPainterPath softSquare(const QRectF& rect);

/// The shadow a thing casts when it stands `height` points above the ground. Drawn first.
void castShadow(Canvas& canvas, const QPainterPath& shape, double height, double opacity);

/// Matte filling, a little lighter above than below.
void body(Canvas& canvas, const QPainterPath& shape, const QColor& above, const QColor& below);

/// The thin light on the edges that face the light; `width` in points.
void rimLight(Canvas& canvas, const QPainterPath& shape, double width, double opacity);

/// The dark side: the edges that face away from the light.
void rimShade(Canvas& canvas, const QPainterPath& shape, double width, double opacity);

/// The shadow that the upper left edge of a hollow `depth` points deep throws into it.
void hollowShadow(Canvas& canvas, const QPainterPath& shape, double depth, double opacity);

/// The thin light on the lower right edge of a hollow, which faces the light.
void hollowLight(Canvas& canvas, const QPainterPath& shape, double width, double opacity);

/// A line just inside the edge, for the seam between two materials.
void seam(Canvas& canvas, const QPainterPath& shape, double width, const QColor& color);

} // namespace artwork::material
