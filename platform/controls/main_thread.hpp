#pragma once

namespace platform {

/// Stops the program, in every build, when it is called on another thread than the application's
/// main thread: the message names `operation`, the caller unless told otherwise. Without an
/// application object there is nothing to compare with. Any thread.
void checkMainThread(const char* operation = __builtin_FUNCTION());

} // namespace platform
