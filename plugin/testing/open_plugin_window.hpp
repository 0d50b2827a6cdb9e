#pragma once

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "platform/testing/window_testing.hpp"
#include "plugin/window/plugin_window.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace larkvox::testing {

/// The plug-in's window over settings of its own.
class OpenPluginWindow : public ::testing::Test {
  protected:
    OpenPluginWindow() {
        driftwood::installKitAssets();
        fernhorn::resourceBundle().assets().registerFonts();
        window = std::make_unique<PluginWindow>(settings);
        platform::testing::showActive(*window);
        queue.drain();
    }

    template<class Widget>
    std::vector<Widget*> shown() const {
        std::vector<Widget*> found;
        for (auto* const widget : window->findChildren<Widget*>()) {
            if (widget->isVisible()) {
                found.push_back(widget);
            }
        }
        return found;
    }

    core::MainQueue queue;
    std::shared_ptr<VocoderSettings> settings = VocoderSettings::make(queue);
    std::unique_ptr<PluginWindow> window;
};

} // namespace larkvox::testing
