#pragma once

#include "core/geometry.hpp"

#include <optional>

// Plain values and arithmetic on them, for any thread.
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
/// Only `axesIndependently` changes its size; `none` puts it in the middle of the place, at whole
/// points from the place's own origin.
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

/// Moved up or down to the middle of the bounds, to a whole y, and grown to whole edges.
[[nodiscard]] core::Rect centeredVertically(const core::Rect& rect, const core::Rect& bounds);

/// Where a button without a style has its image: at its side of the bounds, at its own size as far
/// as that fits; in the middle for the positions without a side.
[[nodiscard]] core::Rect defaultImageRect(const core::Rect& bounds, const ButtonParts& parts);

/// Where it has the line of its title: what the image leaves free, and one line high.
[[nodiscard]] core::Rect defaultTitleRect(const core::Rect& bounds, const ButtonParts& parts);

/// What its parts need, without a bezel around them.
[[nodiscard]] core::Size naturalSize(const ButtonParts& parts);

/// How the size of a control follows from the image of its bezel.
enum class BezelRule {
    /// As tall as the image, and at least as wide unless its width is fixed: push buttons.
    tallAsImageOrFixedWidth,
    /// As tall as the image and at least as wide, also where its width is fixed: pop-up buttons and
    /// segments.
    tallAsImage,
    /// At least as large as the image; a fixed width is the whole one: fields, and bezels with room
    /// around them.
    atLeastImage
};

/// The size between the alignment insets. `natural` is what the content needs, and all there is
/// without an image (an empty one); a fixed width takes the place of the natural one.
[[nodiscard]] core::Size bezelSize(const core::Size& natural, const core::Size& image,
                                   const core::EdgeInsets& insets, std::optional<double> fixedWidth,
                                   BezelRule rule);

/// Where the pixels of an image go for its place and scaling; a scaling without a name is fatal.
/// Only `axesIndependently` resizes.
[[nodiscard]] core::Rect scaledImageRect(const core::Rect& frame, const core::Size& image,
                                         ImageScaling scaling);

} // namespace platform
