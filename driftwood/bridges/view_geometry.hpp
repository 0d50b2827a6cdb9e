#pragma once

class QWidget;

namespace platform {
class ImageAsset;
}

namespace driftwood {

/// The width of one device pixel in the view's window, in points; 1 while it has no window.
/// Main thread.
[[nodiscard]] double singlePixelLineWidth(const QWidget& view);

/// Width by height. Any thread.
[[nodiscard]] double aspectRatio(const platform::ImageAsset& image);

} // namespace driftwood
