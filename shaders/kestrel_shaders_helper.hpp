#pragma once

#include "platform/gpu/shader.hpp"

namespace kestrel {

/// Ready-made colour shaders of this library's bundle, for `platform::ShaderEffect` and
/// `platform::GpuView`. They work on linear, premultiplied light with the primaries of sRGB. Throw
/// `platform::GpuError` when the bundle has no shader library. Main thread.
struct KestrelShadersHelper {
    KestrelShadersHelper() = delete;

    /// Multiplies the light by a matrix: each row gives one component of the result from the four
    /// of the light. The fourth column adds to what is covered.
    [[nodiscard]] static platform::Shader colorMatrixShader(const platform::Float4& r,
                                                            const platform::Float4& g,
                                                            const platform::Float4& b,
                                                            const platform::Float4& a);

    /// Marks colours outside of sRGB in orange.
    [[nodiscard]] static platform::Shader outsideSRGBShader();
    /// Marks colours outside of Display P3 in red.
    [[nodiscard]] static platform::Shader outsideP3Shader();
};

} // namespace kestrel
