#include "shaders/supporter_shader_renderer.hpp"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace kestrel {
namespace {

float mainScreenScale() {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? static_cast<float>(screen->devicePixelRatio()) : 1.0F;
}

} // namespace

SupporterShaderRenderer::SupporterShaderRenderer(platform::GpuView& view, const QString& name,
                                                 const core::Clock& clock)
    : UniformRenderer(view,
                      {.commandBufferLabel = name.toUtf8() + " Command Buffer",
                       .vertexFunctionName = QStringLiteral("supporterVertexShader"),
                       .fragmentFunctionName = QStringLiteral("supporterFragmentShader")},
                      clock),
      name_(name),
      scale_(mainScreenScale()) {}

SupporterShaderRenderer::SwitchList SupporterShaderRenderer::switchHistoryTime() const {
    SwitchList times{};
    std::ranges::transform(switchHistoryTime_, times.begin(),
                           [](double time) { return static_cast<float>(time); });
    return times;
}

void SupporterShaderRenderer::recordSwitchEvent(int index) {
    std::shift_right(switchHistory_.begin(), switchHistory_.end(), 1);
    std::shift_right(switchHistoryTime_.begin(), switchHistoryTime_.end(), 1);
    switchHistoryTime_.front() = elapsedTime();
    switchHistory_.front() = static_cast<float>(index);
}

SupporterUniforms SupporterShaderRenderer::uniforms() const {
    const double elapsed = elapsedTime();
    const double folded = wholePeriods(elapsed);
    SupporterUniforms values{.resolution = viewSize(),
                             .time = static_cast<float>(elapsed - folded),
                             .scale = scale_,
                             .switchOnState = {switchOnState},
                             .switchDownState = {switchDownState},
                             .switchHistory = {switchHistory_},
                             .switchHistoryTime = {}};
    std::ranges::transform(switchHistoryTime_, values.switchHistoryTime.values.begin(),
                           [folded](double time) { return static_cast<float>(time - folded); });
    return values;
}

} // namespace kestrel
