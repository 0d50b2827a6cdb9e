#pragma once

#include <QImage>
#include <QMargins>
#include <QSize>

namespace platform {

/// A soft shadow around a rectangle with round corners that stands in the middle of the margins,
/// for a window that draws its own: black, `strength` at most opaque, a little lower than the
/// rectangle. Sizes in points; kept until another one is asked for. Main thread.
[[nodiscard]] const QImage& softShadow(QSize rectangle, QMargins margins, qreal scale,
                                       double strength);

} // namespace platform
