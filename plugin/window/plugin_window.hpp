#pragma once

#include "core/subscription.hpp"
#include "fernhorn/header/plugin_header_view.hpp"
#include "plugin/settings/vocoder_settings.hpp"

#include <QWidget>

#include <optional>

class QStackedLayout;

namespace fernhorn {
class PluginHeaderView;
}

namespace larkvox {

/// The window of the example plug-in, as a plug-in builder would make it: the header, and below it
/// the page that its tabs choose. A page is made when it is first shown. Main thread.
class PluginWindow final : public QWidget {
  public:
    static constexpr int windowWidth = 868;  // points
    static constexpr int windowHeight = 564; // points

    explicit PluginWindow(std::shared_ptr<VocoderSettings> settings,
                          std::optional<fernhorn::UpdateAvailableDetails> update = {});

    [[nodiscard]] fernhorn::PluginHeaderView& header() const { return *header_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void showPage(int index);
    QWidget* makeMenu();

    const std::shared_ptr<VocoderSettings> settings_;
    fernhorn::PluginHeaderView* header_;
    QStackedLayout* pages_;
    core::Subscription pageObserver_;
};

} // namespace larkvox
