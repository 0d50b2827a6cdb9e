#pragma once

class QWidget;

namespace gallery {

/// An ordinary view of controls, as a program has them: to try shaders on.
QWidget* makeControlPanel();

} // namespace gallery
