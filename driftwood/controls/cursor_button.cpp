#include "driftwood/controls/cursor_button.hpp"

#include "core/fatal.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"

namespace driftwood {
namespace {

const platform::ImageAsset& cycleCursorImage() {
    const auto* const image = resourceBundle().assets().image(QStringLiteral("cursor-cycle"));
    if (image == nullptr) {
        core::fatal("unable to find image named cursor-cycle");
    }
    return *image;
}

} // namespace

CursorButton::CursorButton(std::unique_ptr<platform::ButtonCell> cell, QWidget* parent)
    : CellButton(std::move(cell), parent), cursor_(*this, cycleCursorImage(), QPoint(3, 4)) {}

} // namespace driftwood
