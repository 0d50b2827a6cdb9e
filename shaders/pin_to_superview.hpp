#pragma once

#include "core/geometry.hpp"

class QWidget;

namespace kestrel {

/// Keeps `view` at fixed distances from the edges of its superview, whatever size that takes:
/// leading = superview's leading + left, trailing = superview's trailing − right, and likewise top
/// and bottom. Leading is the right edge in a right-to-left layout. Does nothing when `superview`
/// is null. It ends when the view gets another parent or another pin. Main
/// thread.
void pinToSuperview(QWidget& view, QWidget* superview, const core::EdgeInsets& insets = {});

} // namespace kestrel
