#pragma once

#include <cstdint>

namespace fernhorn {

/// The colours of the buttons with a lamp.
enum class ChaosButtonColor : std::uint8_t { yellow };

} // namespace fernhorn
