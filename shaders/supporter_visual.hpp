#pragma once

#include "shaders/quad_renderer.hpp"
#include "shaders/shader_view_controller.hpp"

#include <QString>

#include <optional>

namespace kestrel {

/// Six values, one for each switch or event, as std140 lays them out: two vectors of four.
struct SupporterList {
    std::array<float, 6> values;
    std::array<float, 2> padding{};
};

/// The std140 block of "supporterFragmentShader".
struct SupporterUniforms {
    QuadRenderer::ViewSize resolution; ///< pixels
    float time;                        ///< seconds
    float scale;                       ///< pixels in a point
    SupporterList switchOnState;
    SupporterList switchDownState;
    SupporterList switchHistory;
    SupporterList switchHistoryTime; ///< seconds, on the clock of `time`; before its fold negative,
                                     ///< 0 for none
};

/// Draws the supporter visual, which follows six switches: how far each is on and pressed, and when
/// the last six of them were switched on. Main thread.
class SupporterShaderRenderer final : public UniformRenderer<SupporterUniforms> {
  public:
    static constexpr std::size_t switchCount = 6;
    using SwitchList = std::array<float, switchCount>;
    static constexpr int animationBufferSize = 24; ///< bytes of each of the four lists
    static_assert(sizeof(SwitchList) == animationBufferSize);

    /// Throws as `QuadRenderer` does.
    SupporterShaderRenderer(platform::GpuView& view, const QString& name,
                            const core::Clock& clock = core::Clock::system());

    SwitchList switchOnState{};   ///< 1 on, 0 off
    SwitchList switchDownState{}; ///< how far each is pressed, 0 … 1

    /// The switches of the latest events, the newest first; -1 where there was none.
    [[nodiscard]] const SwitchList& switchHistory() const { return switchHistory_; }
    /// When those events were, in seconds of the animation's time; 0 where there was none.
    [[nodiscard]] SwitchList switchHistoryTime() const;
    /// Notes that a switch was switched on now. The oldest event is forgotten.
    void recordSwitchEvent(int index);

    [[nodiscard]] const QString& name() const { return name_; }
    /// Pixels in a point on the main screen, 1.0 without one.
    [[nodiscard]] float scale() const { return scale_; }

    [[nodiscard]] Uniforms uniforms() const override;

  private:
    QString name_;
    float scale_;
    SwitchList switchHistory_{-1, -1, -1, -1, -1, -1};
    std::array<double, switchCount> switchHistoryTime_{}; // double: ages stay exact after weeks
};

/// Shows the supporter visual in a container view and tells it about six switches, counted from 0.
/// Everything but `setInitialButtonStates` does nothing while there is no renderer. An index that
/// is none of a switch stops the program. Main thread.
class SupporterShaderViewController final : public RendererHost<SupporterShaderRenderer> {
    Q_OBJECT

  public:
    /// The container owns the controller.
    SupporterShaderViewController(QWidget* view, const QString& rendererName,
                                  const core::Clock& clock = core::Clock::system());

    /// Sets all switches without an event. While there is no renderer the states are kept and put
    /// into each one that appears, until they are set while there is one.
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
