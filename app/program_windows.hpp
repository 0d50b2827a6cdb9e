#pragma once

#include "platform/ui/about_panel.hpp"

#include <QUrl>

namespace larkvox {

/// The about panel in the look of the welcome window, with the about visual where there is a GPU.
/// Main thread.
[[nodiscard]] platform::AboutPanelLook aboutPanelLook();

/// Tells the user that nothing on the computer opens a page, with its address to copy. One message
/// at a time: the next one takes the place of the one before. Main thread.
void showUnopenedPage(const QUrl& page);

} // namespace larkvox
