#pragma once

#include "plugin/parameters/vocoder_parameters.hpp"

#include <cstdint>

namespace larkvox {

// What stands in the description for hosts and in both libraries alike: constants, for any thread.
inline constexpr const char* pluginUri = "https://www.fennick.example/plugins/larkvox";
inline constexpr const char* windowUri = "https://www.fennick.example/plugins/larkvox#window";

/// The audio ports; those of the parameters follow them.
enum AudioPort : std::uint32_t { modulator, carrier, left, right, firstControl };

/// How a host sees the parameters: all but those of the window alone, in the order of their
/// addresses.
inline constexpr std::uint32_t controlPortCount = vocoderParameterCount - 1;
static_assert(VocoderParameter::page == VocoderParameter{0});

[[nodiscard]] constexpr std::uint32_t portOf(std::size_t address) {
    return firstControl + static_cast<std::uint32_t>(address) - 1;
}
[[nodiscard]] constexpr std::size_t addressOfPort(std::uint32_t port) {
    return port - firstControl + 1;
}
[[nodiscard]] constexpr bool isControlPort(std::uint32_t port) {
    return port >= firstControl && port < firstControl + controlPortCount;
}

} // namespace larkvox
