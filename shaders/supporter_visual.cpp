#include "shaders/supporter_shader_view_controller.hpp"

#include "core/fatal.hpp"

namespace kestrel {
namespace {

using SwitchList = SupporterShaderRenderer::SwitchList;

float& at(SwitchList& list, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= list.size()) {
        core::fatal("Index out of range");
    }
    return list[static_cast<std::size_t>(index)];
}

} // namespace

SupporterShaderViewController::SupporterShaderViewController(QWidget* view,
                                                             const QString& rendererName,
                                                             const core::Clock& clock)
    : RendererHost(view, clock), rendererName_(rendererName) {}

std::unique_ptr<QuadRenderer> SupporterShaderViewController::makeRenderer(platform::GpuView& view) {
    auto made = std::make_unique<SupporterShaderRenderer>(view, rendererName_, clock());
    if (switchOnStateToSetOnAppear_) {
        made->switchOnState = *switchOnStateToSetOnAppear_; // kept for the next appearance
    }
    return made;
}

void SupporterShaderViewController::setInitialButtonStates(bool on1, bool on2, bool on3, bool on4,
                                                           bool on5, bool on6) {
    const auto level = [](bool isOn) { return isOn ? 1.0F : 0.0F; };
    const SwitchList states{level(on1), level(on2), level(on3), level(on4), level(on5), level(on6)};
    if (renderer() != nullptr) {
        renderer()->switchOnState = states;
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
