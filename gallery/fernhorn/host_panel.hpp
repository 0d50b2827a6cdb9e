#pragma once

#include "gallery/fernhorn/event_strip.hpp"
#include "gallery/fernhorn/vocoder/automation_player.hpp"
#include "gallery/fernhorn/vocoder/vocoder_settings.hpp"
#include "platform/ui/cells/control.hpp"

#include <QWidget>

namespace gallery {

/// The host's side of the example: what the parameter tree tells it, and a switch that plays
/// automation into the tree. The player's thread ends with the panel.
class HostPanel final : public QWidget, public platform::ActionTarget {
  public:
    static constexpr int panelWidth = 264; // points

    explicit HostPanel(std::shared_ptr<VocoderSettings> settings);
    ~HostPanel() override;

    [[nodiscard]] EventStrip& events() const { return *events_; }
    [[nodiscard]] AutomationPlayer& player() { return player_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const std::shared_ptr<VocoderSettings> settings_; ///< outlives the host's thread
    AutomationPlayer player_;
    EventStrip* events_;
};

} // namespace gallery
