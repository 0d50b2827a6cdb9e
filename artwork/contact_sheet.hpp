#pragma once

#include "artwork/drawing.hpp"

#include <QImage>

namespace artwork {

/// All drawings with their names at every scale on the dark ground, resizable ones also drawn
/// wide with a label, for the eye.
[[nodiscard]] QImage contactSheet(const std::vector<Drawing>& drawings, const QString& fonts);

} // namespace artwork
