#pragma once

namespace platform {

/// Whether the desktop puts windows together so that parts of them may be transparent: then a
/// window can have round corners and a shadow of its own. Asked anew each time. Main thread.
[[nodiscard]] bool desktopComposites();

} // namespace platform
