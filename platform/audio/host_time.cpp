#include "platform/audio/au_types.hpp"

#include <chrono>

namespace platform {

std::uint64_t AudioGetCurrentHostTime() noexcept {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
}

} // namespace platform
