#pragma once

#include "core/geometry.hpp"

namespace platform {

/// Where a button's image stands beside its title. The values count.
enum class ImagePosition {
    noImage = 0,
    imageOnly = 1,
    imageLeft = 2,
    imageRight = 3,
    imageBelow = 4,
    imageAbove = 5,
    imageOverlaps = 6,
    imageLeading = 7,
    imageTrailing = 8
};

/// How an image fills its place. The values count, and so do those beyond them: they are fatal.
enum class ImageScaling {
    proportionallyDown = 0,
    axesIndependently = 1,
    none = 2,
    proportionallyUpOrDown = 3
};

/// What a button shows, in points.
struct ButtonParts {
    core::Size image; ///< empty without an image
    core::Size title; ///< one line; empty without a title
    ImagePosition position = ImagePosition::noImage;
    bool isRightToLeft = false;
    double margin = 0; ///< at both sides of what is shown

    [[nodiscard]] bool showsImage() const {
        return position != ImagePosition::noImage && image.width > 0;
    }
    [[nodiscard]] bool showsTitle() const {
        return position != ImagePosition::imageOnly && title.width > 0;
    }
};

/// Between image and title, in points.
inline constexpr double imageTitleGap = 4;

/// The smallest rectangle with whole edges around it.
[[nodiscard]] core::Rect integral(const core::Rect& rect);

/// The one rule by which cells inset a rectangle: it moves by the left and the *bottom* inset,
/// shrinks by both of each direction, and then grows to whole edges. It is not symmetric: the
/// artwork is laid out against exactly this.
[[nodiscard]] core::Rect insetForCell(const core::Rect& rect, const core::EdgeInsets& insets);

/// Moved up or down to the middle of the bounds, to a whole y, and grown to whole edges.
[[nodiscard]] core::Rect centeredVertically(const core::Rect& rect, const core::Rect& bounds);

/// Where a button without a style has its image: at its side of the bounds, at its own size as far
/// as that fits; in the middle for the positions without a side.
[[nodiscard]] core::Rect defaultImageRect(const core::Rect& bounds, const ButtonParts& parts);

/// Where it has the line of its title: what the image leaves free, and one line high.
[[nodiscard]] core::Rect defaultTitleRect(const core::Rect& bounds, const ButtonParts& parts);

/// What its parts need, without a bezel around them.
[[nodiscard]] core::Size naturalSize(const ButtonParts& parts);

/// Where the pixels of an image go for its place and scaling; a scaling without a name is fatal.
/// Only `axesIndependently` resizes.
[[nodiscard]] core::Rect scaledImageRect(const core::Rect& frame, const core::Size& image,
                                         ImageScaling scaling);

} // namespace platform
