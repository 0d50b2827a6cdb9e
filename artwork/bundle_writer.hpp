#pragma once

#include "artwork/drawing.hpp"

#include <QImage>

namespace artwork {

/// Draws at a scale; template images come out black with alpha.
[[nodiscard]] QImage bake(const Drawing& drawing, int scale);

/// Writes the images and the manifest of one bundle below `folder`, leaves alone what is the same
/// already and removes images that no drawing makes any more. Returns what went wrong, or nothing.
[[nodiscard]] QString writeBundle(const QString& bundle, const std::vector<Drawing>& drawings,
                                  const QString& folder);

} // namespace artwork
