#pragma once

#include <cstdint>

namespace fernhorn {

/// What a `ModeToggleButton` is made of.
enum class ToggleButtonStyle : std::uint8_t { modern, retro };

} // namespace fernhorn
