#include "shaders/renderer_error.hpp"

#include <QCoreApplication>

namespace kestrel {
namespace {

constexpr const char* noValidDeviceKey = "MetalRenderer.Error.description";
constexpr const char* noValidDeviceText = "No valid metal device";

} // namespace

QString RendererError::localizedDescription() const {
    //: Error message shown run on a machine without metal
    const QString text = QCoreApplication::translate("", "MetalRenderer.Error.description");
    // The key stands for itself where there is no catalogue.
    return text == QLatin1String(noValidDeviceKey) ? QString::fromLatin1(noValidDeviceText) : text;
}

const char* RendererError::what() const noexcept {
    return noValidDeviceText;
}

} // namespace kestrel
