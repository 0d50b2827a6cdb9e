#pragma once

class QApplication;

namespace platform {

enum class Appearance { darkAqua };

/// Gives all windows of the application an appearance: base style and palette. Main thread.
void setAppearance(QApplication& application, Appearance appearance);

} // namespace platform
