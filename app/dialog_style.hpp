#pragma once

#include "updates/dialogs/dialog_style.hpp"

namespace larkvox {

/// The updater's dialogs in the look of the welcome window. Main thread.
[[nodiscard]] updates::DialogStyle dialogStyle();

} // namespace larkvox
