#include "fernhorn/controls/press_button.hpp"
#include "fernhorn/header/header_tabs.hpp"
#include "fernhorn/model/parameter_gesture.hpp"
#include "gallery/fernhorn/fernhorn_pages.hpp"
#include "gallery/fernhorn/host_panel.hpp"
#include "gallery/fernhorn/plugin_window.hpp"
#include "gallery/parts.hpp"
#include "platform/ui/button.hpp"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QTimer>

#include <array>

namespace gallery {

namespace {

using Which = VocoderParameter;

constexpr int gap = 16;
constexpr int pageMargins = 64;
constexpr int pageWidth = PluginWindow::windowWidth + gap + HostPanel::panelWidth + pageMargins;

/// A plug-in in a host: its window, and what the host hears of it.
struct Demonstration {
    std::shared_ptr<VocoderSettings> settings;
    PluginWindow* window;
    HostPanel* host;
};

Demonstration addDemonstration(QWidget& view,
                               std::optional<fernhorn::UpdateAvailableDetails> update = {}) {
    auto settings = VocoderSettings::make(core::MainQueue::shared());
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
