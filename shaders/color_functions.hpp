#pragma once

// Internal to shaders/.

#include "platform/gpu/shader.hpp"

namespace kestrel {

// The library's colour functions for the processor. Each does what its namesake among the compiled
// functions does. Any thread.

void colorMatrix(platform::LightRow& light, const platform::Shader::Arguments& rows);
void outsideSRGB(platform::LightRow& light, const platform::Shader::Arguments& none);
void outsideP3(platform::LightRow& light, const platform::Shader::Arguments& none);

} // namespace kestrel
