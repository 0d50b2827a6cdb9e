#pragma once

#include "core/geometry.hpp"

#include <QString>
#include <functional>
#include <vector>

namespace artwork {

class Canvas;

/// What the middle of an image, inside its cap insets, does when the image is drawn larger.
enum class Resizing { none, stretch, tile };

/// One image of a bundle and the code that draws it.
struct Drawing {
    QString bundle;
    QString name;    ///< may contain slashes
    core::Size size; ///< points
    core::EdgeInsets capInsets = {};
    Resizing resizing = Resizing::none;
    bool isTemplate = false; ///< only the alpha counts, the colour is chosen where it is drawn
    std::vector<int> scales = {1, 2, 3};
    std::function<void(Canvas&)> draw;
};

} // namespace artwork
