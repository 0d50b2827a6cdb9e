#pragma once

#include "core/subscription.hpp"

#include <functional>

class QObject;

namespace platform {

/// Tells when windows of this program become key (get the keyboard) and resign it. The callbacks
/// get the window, whichever it is; a popup such as a menu takes the key from nobody. Main thread.
core::Subscription observeWindowBecomingKey(std::function<void(QObject*)> callback);
core::Subscription observeWindowResigningKey(std::function<void(QObject*)> callback);

} // namespace platform
