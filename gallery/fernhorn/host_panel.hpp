#pragma once

#include "gallery/fernhorn/event_strip.hpp"
#include "gallery/fernhorn/host/automation_player.hpp"
#include "platform/controls/control.hpp"
#include "plugin/settings/vocoder_settings.hpp"

#include <QWidget>

namespace gallery {

/// The host's side of the example: what the parameter tree tells it, and a switch that plays
/// automation into the tree. The player's thread ends with the panel.
class HostPanel final : public QWidget, public platform::ActionTarget {
  public:
    static constexpr int panelWidth = 264; // points

    explicit HostPanel(std::shared_ptr<larkvox::VocoderSettings> settings);
    ~HostPanel() override;

    [[nodiscard]] EventStrip& events() const { return *events_; }
    [[nodiscard]] AutomationPlayer& player() { return player_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    /// As the plug-in's own window writes it.
    [[nodiscard]] QString textOf(const platform::AUParameterAutomationEvent& event) const;

    const std::shared_ptr<larkvox::VocoderSettings> settings_; ///< outlives the host's thread
    AutomationPlayer player_;
    EventStrip* events_;
};

} // namespace gallery
