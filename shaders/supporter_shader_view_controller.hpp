#pragma once

#include "shaders/shader_view_controller.hpp"
#include "shaders/supporter_shader_renderer.hpp"

#include <QString>

#include <optional>

namespace kestrel {

/// Shows the supporter visual in a container view and tells it about six switches, counted from 0.
/// Everything but `setInitialButtonStates` does nothing while there is no renderer. An index that
/// is none of a switch stops the program.
class SupporterShaderViewController final : public RendererHost<SupporterShaderRenderer> {
    Q_OBJECT

  public:
    /// The container owns the controller.
    SupporterShaderViewController(QWidget* view, const QString& rendererName,
                                  const core::Clock& clock = core::Clock::system());

    /// Sets all switches without an event. While there is no renderer the states are kept, and put
    /// into each one that appears from then on.
    void setInitialButtonStates(bool on1, bool on2, bool on3, bool on4, bool on5, bool on6);

    /// A switch that is off turns on, which is an event.
    void switchOn(int index);
    /// A switch that is on turns off, which is none.
    void switchOff(int index);
    void switchDown(int index) { setSwitchDown(index, 1); } ///< pressed
    void switchUp(int index) { setSwitchDown(index, 0); }   ///< let go

    [[nodiscard]] const QString& rendererName() const { return rendererName_; }
    [[nodiscard]] const std::optional<SupporterShaderRenderer::SwitchList>&
    switchOnStateToSetOnAppear() const {
        return switchOnStateToSetOnAppear_;
    }

  protected:
    std::unique_ptr<QuadRenderer> makeRenderer(platform::GpuView& view) override;

  private:
    void setSwitchDown(int index, float level);

    QString rendererName_;
    std::optional<SupporterShaderRenderer::SwitchList> switchOnStateToSetOnAppear_;
};

} // namespace kestrel
