#pragma once

#include <string_view>

namespace core {

/// Stops the program because of a broken build or a programming error: writes
/// "FILE:LINE: Fatal error: MESSAGE" to the standard error stream and aborts.
/// `file` and `line` name the caller unless told otherwise. Any thread.
[[noreturn]] void fatal(std::string_view message, const char* file = __builtin_FILE(),
                        int line = __builtin_LINE());

} // namespace core
