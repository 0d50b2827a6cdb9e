#include "driftwood/style/window_style.hpp"

#include "driftwood/style/styles.hpp"

namespace driftwood {

WindowStyle::WindowStyle()
    : font_(Styles::BaseStyles::normalFont()), textColor_(Styles::CanvasInfo::textColor()) {
    setBackgroundColor(Styles::Window::background());
}

PopoverStyle::PopoverStyle() {
    setPadding({12, 12});
}

} // namespace driftwood
