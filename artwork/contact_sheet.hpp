#pragma once

#include "artwork/drawing.hpp"

#include <QImage>

namespace artwork {

/// What a contact sheet shows.
struct SheetOptions {
    std::vector<int> scales = {1, 2, 3};
    QString ground = "background"; ///< a colour's name
};

/// All drawings with their names at the given scales on one ground; resizable ones are also drawn
/// wide with a label, patterns over an area, for the eye.
[[nodiscard]] QImage contactSheet(const std::vector<Drawing>& drawings, const QString& fonts,
                                  const SheetOptions& options);

} // namespace artwork
