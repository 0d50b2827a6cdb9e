#include "platform/controls/cell.hpp"

#include "platform/controls/main_thread.hpp"

namespace platform {

void Cell::draw(const core::Rect& frame, const CellCanvas& canvas) const {
    checkMainThread();
    if (hasFrame()) {
        drawBezel(frame, canvas);
    }
    drawInterior(frame, canvas);
}

} // namespace platform
