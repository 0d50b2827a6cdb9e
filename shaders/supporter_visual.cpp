#include "shaders/supporter_visual.hpp"

#include "core/fatal.hpp"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace kestrel {
namespace {

using SwitchList = SupporterShaderRenderer::SwitchList;

float mainScreenScale() {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? static_cast<float>(screen->devicePixelRatio()) : 1.0F;
}

float& at(SwitchList& list, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= list.size()) {
        core::fatal("Index out of range");
    }
    return list[static_cast<std::size_t>(index)];
}

} // namespace

SupporterShaderRenderer::SupporterShaderRenderer(platform::GpuView& view, const QString& name,
                                                 const core::Clock& clock)
    : UniformRenderer(view,
                      {.commandBufferLabel = name.toUtf8() + " Command Buffer",
                       .vertexFunctionName = QStringLiteral("supporterVertexShader"),
                       .fragmentFunctionName = QStringLiteral("supporterFragmentShader"),
                       .period = familyPeriod},
                      clock),
      name_(name),
      scale_(mainScreenScale()) {}

SwitchList SupporterShaderRenderer::switchHistoryTime() const {
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
    for (std::size_t i = 0; i < switchCount && switchHistory_[i] >= 0; ++i) {
        values.switchHistoryTime.values[i] = static_cast<float>(switchHistoryTime_[i] - folded);
    }
    return values;
}

SupporterShaderViewController::SupporterShaderViewController(QWidget* view,
                                                             const QString& rendererName,
                                                             const core::Clock& clock)
    : RendererHost(view, clock), rendererName_(rendererName) {}

std::unique_ptr<QuadRenderer> SupporterShaderViewController::makeRenderer(platform::GpuView& view) {
    auto made = std::make_unique<SupporterShaderRenderer>(view, rendererName_, clock());
    if (switchOnStateToSetOnAppear_) {
        made->switchOnState = *switchOnStateToSetOnAppear_; // kept for the next appearance, too
    }
    return made;
}

void SupporterShaderViewController::setInitialButtonStates(bool on1, bool on2, bool on3, bool on4,
                                                           bool on5, bool on6) {
    const auto level = [](bool isOn) { return isOn ? 1.0F : 0.0F; };
    const SwitchList states{level(on1), level(on2), level(on3), level(on4), level(on5), level(on6)};
    if (renderer() != nullptr) {
        renderer()->switchOnState = states;
        switchOnStateToSetOnAppear_.reset();
    } else {
        switchOnStateToSetOnAppear_ = states;
    }
}

void SupporterShaderViewController::switchOn(int index) {
    if (renderer() == nullptr) {
        return;
    }
    float& state = at(renderer()->switchOnState, index);
    if (state != 1.0F) {
        state = 1.0F;
        renderer()->recordSwitchEvent(index);
    }
}

void SupporterShaderViewController::switchOff(int index) {
    if (renderer() != nullptr) {
        at(renderer()->switchOnState, index) = 0.0F;
    }
}

void SupporterShaderViewController::setSwitchDown(int index, float level) {
    if (renderer() != nullptr) {
        at(renderer()->switchDownState, index) = level;
    }
}

} // namespace kestrel
