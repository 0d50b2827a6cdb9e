#pragma once

#include "driftwood/style/base_style.hpp"

class QWidget;

namespace driftwood {

/// Repaints the widget once for every change of the style, and lays it out anew when its size may
/// have changed. Keep the subscription in the widget. Main thread.
[[nodiscard]] core::Subscription followStyle(QWidget& widget, BaseStyle& style);

} // namespace driftwood
