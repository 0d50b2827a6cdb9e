#pragma once

#include <string_view>

namespace updates {

/// Whether a text is a complete https address: with a host, without a user's name or password, and
/// without spaces, control characters and backslashes, which programs read differently. Any thread.
[[nodiscard]] bool isSecureAddress(std::string_view address);

} // namespace updates
