#include "fernhorn/buttons/press_button.hpp"
#include "fernhorn/header/header_parts.hpp"
#include "fernhorn/model/parameter_gesture.hpp"
#include "gallery/fernhorn/fernhorn_pages.hpp"
#include "gallery/fernhorn/host_panel.hpp"
#include "gallery/parts.hpp"
#include "platform/controls/button.hpp"
#include "plugin/window/plugin_window.hpp"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QTimer>

#include <array>

namespace gallery {

namespace {

using larkvox::PluginWindow;
using larkvox::VocoderSettings;
using Which = larkvox::VocoderParameter;

constexpr int gap = 16;
constexpr int pageMargins = 64;
constexpr int pageWidth = PluginWindow::windowWidth + gap + HostPanel::panelWidth + pageMargins;

/// A plug-in in a host: its window, and what the host hears of it.
struct Demonstration {
    std::shared_ptr<VocoderSettings> settings;
    PluginWindow* window;
    HostPanel* host;
};

/// The host has set a sound before the window opened, so that there is something to see.
void setSound(const VocoderSettings& settings) {
    const auto set = [&settings](Which which, float value) {
        settings.parameter(which)->auParameter()->setValue(value);
    };
    for (const auto& [which, value] : {std::pair{Which::formant, 300.0F},
                                       {Which::cutoff, 1200.0F},
                                       {Which::drive, 4.0F},
                                       {Which::blend, 64.0F},
                                       {Which::attack, 8.0F},
                                       {Which::release, 240.0F},
                                       {Which::tilt, 1.5F},
                                       {Which::source, 1.0F},
                                       {Which::unison, 3.0F},
                                       {Which::width, 72.0F},
                                       {Which::velocity, 40.0F},
                                       {Which::drift, 15.0F},
                                       {Which::depth, 35.0F},
                                       {Which::smooth, 80.0F},
                                       {Which::sync, 1.0F}}) {
        set(which, value);
    }
    // Two formants of a voice.
    constexpr std::array<float, larkvox::bandCount> shape{-3, 0, 4, 6, 2, -2, -1, 3, 5, 1, -3, -6};
    for (std::size_t band = 0; band < shape.size(); ++band) {
        settings.band(band)->auParameter()->setValue(shape.at(band));
    }
    core::MainQueue::shared().drain();
}

Demonstration addDemonstration(QWidget& view,
                               std::optional<fernhorn::UpdateAvailableDetails> update = {}) {
    auto settings = VocoderSettings::make(core::MainQueue::shared());
    setSound(*settings);
    auto* const window = new PluginWindow(settings, std::move(update));
    auto* const host = new HostPanel(settings);
    auto* const row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(window);
    row->addWidget(host);
    static_cast<QBoxLayout*>(view.layout())->addLayout(row);
    return {std::move(settings), window, host};
}

/// Somebody has turned a knob and chosen a mode, so that the host's list has a beginning.
void touchSome(const Demonstration& demonstration) {
    const auto& settings = *demonstration.settings;
    {
        fernhorn::ParameterGesture drag(settings.parameter(Which::drive));
        for (float value = 4; value <= 7; value += 0.25F) {
            drag.change(value);
        }
    }
    {
        fernhorn::ParameterGesture press(settings.parameter(Which::mode),
                                         fernhorn::GestureStyle::press());
        press.change(2);
    }
    core::MainQueue::shared().drain();
    demonstration.host->events().refresh();
}

void pressAll(QWidget& window) {
    for (auto* const button : window.findChildren<fernhorn::PressButton*>()) {
        if (button->isVisible()) {
            const QPointF middle = QRectF(button->rect()).center();
            QMouseEvent press(QEvent::MouseButtonPress, middle, button->mapToGlobal(middle),
                              Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(button, &press);
        }
    }
    for (auto* const button : window.findChildren<platform::Button*>()) {
        button->setDown(true);
    }
}

} // namespace

Page pluginWindowPage() {
    return {.identifier = QStringLiteral("plugin-window"),
            .group = QStringLiteral("Fernhorn"),
            .title = QStringLiteral("Plug-in window"),
            .summary = QStringLiteral("A vocoder's window, made of the kit and bound to its "
                                      "parameters, and beside it what the host hears."),
            .build = [](QWidget& view) { touchSome(addDemonstration(view)); },
            .width = pageWidth};
}

Page pluginTabsPage() {
    return {.identifier = QStringLiteral("plugin-window-tabs"),
            .group = QStringLiteral("Fernhorn"),
            .title = QStringLiteral("Plug-in window: other tabs"),
            .summary = QStringLiteral("The pages behind the second and the third tab."),
            .build =
                [](QWidget& view) {
                    for (const float tab : {1.0F, 2.0F}) {
                        const auto shown = addDemonstration(view);
                        shown.settings->parameter(Which::page)
                            ->setValue(tab, fernhorn::ParameterEditor::ui,
                                       fernhorn::ParameterEditorState::change);
                        core::MainQueue::shared().drain();
                        shown.host->events().refresh();
                    }
                },
            .width = pageWidth};
}

Page pluginStatesPage() {
    return {.identifier = QStringLiteral("plugin-window-states"),
            .group = QStringLiteral("Fernhorn"),
            .title = QStringLiteral("Plug-in window: states"),
            .summary = QStringLiteral("The same under automation, with every button held and an "
                                      "update to be had; and disabled."),
            .build =
                [](QWidget& view) {
                    const auto held = addDemonstration(
                        view, fernhorn::UpdateAvailableDetails{QStringLiteral("1.2.0")});
                    held.host->player().play(150);
                    core::MainQueue::shared().drain();
                    // Buttons let go when they are hidden, so not before they are shown.
                    QTimer::singleShot(0, held.window, [held] {
                        pressAll(*held.window);
                        core::MainQueue::shared().drain();
                        held.host->events().refresh();
                    });
                    addDemonstration(view).window->setEnabled(false);
                },
            .width = pageWidth};
}

} // namespace gallery
