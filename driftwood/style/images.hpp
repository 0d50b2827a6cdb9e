#pragma once

#include "driftwood/style/asset_source.hpp"

namespace driftwood {

/// The most used of the kit's images; each is fetched once, when it is first used, and is null when
/// the kit's bundle does not have it. Main thread.
struct DWImages {
    static const Image& dwkButton();
    static const Image& dwkButtonDown();
    static const Image& dwkCheckbox();
    static const Image& dwkCheckboxOn();
    static const Image& dwkCheckboxDown();
    static const Image& dwkCheckboxOnDown();
    static const Image& dwkCheckerboard();
    static const Image& dwkCheckerboardSmall();
    static const Image& dwkTextfield();
    static const Image& dwkTextfieldError();
    static const Image& dwkTextfieldFocus();
    static const Image& cursorTrackingslider();
    static const Image& fennickLogoBig(); ///< the image "window-fennick"
};

/// Cells and declarative views have the same kind of image here.
using DWImagesAK = DWImages;

} // namespace driftwood
