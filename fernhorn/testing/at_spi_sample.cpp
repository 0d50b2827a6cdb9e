// A plug-in window for the test over the accessibility bus.

#include "fernhorn/controls/chaos_button.hpp"
#include "fernhorn/controls/mode_toggle_button.hpp"
#include "fernhorn/controls/parameter_hold_button.hpp"
#include "fernhorn/controls/toggle_button.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/header/plugin_header_view.hpp"
#include "platform/ui/accessible_role.hpp"
#include "platform/ui/main_queue_driver.hpp"

#include <QApplication>
#include <QVBoxLayout>

using namespace fernhorn;

namespace {

std::shared_ptr<AudioParameter> make(const char* name, std::vector<std::string> names = {}) {
    const float upper = names.empty() ? 1.0F : static_cast<float>(names.size() - 1);
    return std::make_shared<AudioParameter>(
        0, name, name, platform::AudioUnitParameterUnit::indexed, ValueRange{0, upper}, 0.0F,
        ValueIncrement::linear(), names.empty() ? std::nullopt : std::optional(std::move(names)));
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("fernhorn_sample"));
    const platform::MainQueueDriver driver;
    const auto page = make("Page", {"Bands", "Carrier"});
    const auto wave = make("Wave", {"Sine", "Saw"});
    const auto mute = make("Mute");
    const QSizeF size(80, 36);
    const auto* const pad = resourceBundle().assets().image(QStringLiteral("hold-pad"));

    QWidget window;
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(new PluginHeaderView({}, QStringLiteral("1.1.0"), page,
                                           UpdateAvailableDetails{QStringLiteral("1.2.0")},
                                           FernFont::rocket, nullptr));
    auto* const group = new QWidget;
    platform::setAccessibleRole(*group, QAccessible::Grouping);
    group->setAccessibleName(QStringLiteral("Waves"));
    auto* const row = new QHBoxLayout(group);
    for (const int i : {0, 1}) {
        row->addWidget(
            new ModeToggleButton(wave, i, ToggleButtonStyle::modern, 13, Qt::white, size));
    }
    column->addWidget(group);
    column->addWidget(new ToggleButton(mute, {}, 13, Qt::white, size));
    column->addWidget(new ParameterHoldButton(make("Stutter"), pad, pad));
    ChaosButton* automate = nullptr;
    automate = new ChaosButton(
        ChaosButtonColor::yellow, QStringLiteral("Automate"),
        [&] {
            const auto byHost = [](AudioParameter& parameter) {
                parameter.setValue(1 - parameter.value(), ParameterEditor::parameterObserver,
                                   ParameterEditorState::change);
            };
            byHost(*mute);
            byHost(*wave);
            byHost(*page);
            core::MainQueue::shared().post(
                [&] { automate->setAccessibleName(QStringLiteral("Automated")); });
        },
        size);
    column->addWidget(automate);
    window.show();
    return QApplication::exec();
}
