#pragma once

#include "core/subscription.hpp"

#include <functional>

class QWindow;

namespace platform {

/// Tells when a window is wholly covered by others, and when it no longer is. Only where the window
/// system says so by a way of its own, as X servers do on which nothing composites the windows;
/// elsewhere, and under the toolkit's other platforms, the window's exposure tells all there is.
/// Main thread.
core::Subscription observeWindowCover(const QWindow& window,
                                      std::function<void(bool isCovered)> callback);

} // namespace platform
