#include "platform/gpu/shader_library.hpp"

#include "platform/assets/bundle.hpp"
#include "platform/gpu/gpu_error.hpp"
#include "platform/gpu/qrhi_private.hpp"

#include <QFile>

namespace platform {

ShaderFunction::ShaderFunction(const QShader& shader)
    : shader_(std::make_shared<const QShader>(shader)) {}

ShaderLibrary::ShaderLibrary(const Bundle& bundle)
    : directory_(bundle.path(QStringLiteral("Shaders"))) {
    if (!directory_.exists()) {
        throw GpuError("no shader library in " + bundle.resourceDirectory().path().toStdString());
    }
}

std::optional<ShaderFunction> ShaderLibrary::function(const QString& name) const {
    QFile file(directory_.filePath(name + QStringLiteral(".qsb")));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QShader shader = QShader::fromSerialized(file.readAll());
    if (!shader.isValid()) {
        throw GpuError("broken shader function " + name.toStdString());
    }
    return ShaderFunction(shader);
}

} // namespace platform
