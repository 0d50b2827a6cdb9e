#include "shaders/kestrel_shaders_helper.hpp"

#include "shaders/color_functions.hpp"
#include "shaders/resource_bundle_accessor.hpp"

namespace kestrel {

using platform::Float4;
using platform::Shader;
using platform::ShaderLibrary;

Shader KestrelShadersHelper::colorMatrixShader(const Float4& r, const Float4& g, const Float4& b,
                                               const Float4& a) {
    return {ShaderLibrary(resourceBundle()),
            QStringLiteral("colorMatrixShader"),
            {r, g, b, a},
            colorMatrix};
}

Shader KestrelShadersHelper::outsideSRGBShader() {
    return {ShaderLibrary(resourceBundle()), QStringLiteral("outsideSRGBShader"), {}, outsideSRGB};
}

Shader KestrelShadersHelper::outsideP3Shader() {
    return {ShaderLibrary(resourceBundle()), QStringLiteral("outsideP3Shader"), {}, outsideP3};
}

} // namespace kestrel
