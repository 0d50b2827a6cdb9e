#include "driftwood/bridges/view_geometry.hpp"

#include "platform/assets/asset_catalog.hpp"

#include <QWidget>
#include <QWindow>

namespace driftwood {

double singlePixelLineWidth(const QWidget& view) {
    const QWindow* const window = view.window()->windowHandle();
    return window != nullptr ? 1 / window->devicePixelRatio() : 1;
}

double aspectRatio(const platform::ImageAsset& image) {
    return image.size().width() / image.size().height();
}

} // namespace driftwood
