#pragma once

#include "driftwood/util/corner_radii.hpp"

#include <QPainterPath>
#include <QRectF>

namespace driftwood {

/// A closed path around the rectangle, each corner rounded by its own radius. Radii that do not fit
/// beside each other on an edge are all reduced in proportion. Any thread.
[[nodiscard]] QPainterPath roundedPath(const QRectF& rect, const CornerRadii& cornerRounding);

} // namespace driftwood
