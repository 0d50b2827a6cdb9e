#pragma once

#include "platform/gpu/shader_library.hpp"

#include <QString>

#include <array>
#include <cstddef>
#include <vector>

namespace platform {

using Float4 = std::array<float, 4>;

/// A row of pixels on the processor, component by component, so that a compiler can take several
/// pixels in one step: linear, premultiplied light with the primaries of sRGB, not clipped.
struct LightRow {
    static constexpr std::size_t size = 64;
    using Component = std::array<float, size>;

    alignas(64) Component red;
    alignas(64) Component green;
    alignas(64) Component blue;
    alignas(64) Component alpha;
};

/// A function that changes the colour of each pixel by itself, with its arguments. A plain value
/// for any thread: `GpuView` applies it as its last pass, `ShaderEffect` to widgets on the
/// processor, and both show the same.
struct Shader {
    static constexpr std::size_t maxArguments = 4;
    using Arguments = std::array<Float4, maxArguments>;
    using ProcessorFunction = void (*)(LightRow& light, const Arguments& arguments);

    /// Where the function is: a fragment function built on "platform/gpu/shader.glsl".
    ShaderLibrary library;
    QString functionName;
    std::vector<Float4> arguments; ///< at most `maxArguments`
    /// The same for the processor; null leaves widgets as they are.
    ProcessorFunction onProcessor = nullptr;

    /// The arguments as functions get them: those that were not given are 0.
    [[nodiscard]] Arguments paddedArguments() const;

    friend bool operator==(const Shader&, const Shader&) = default;
};

} // namespace platform
