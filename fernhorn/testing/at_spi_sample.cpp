// A plug-in window for the test over the accessibility bus; one of its dials is played all the
// time.

#include "fernhorn/buttons/callback_buttons.hpp"
#include "fernhorn/buttons/parameter_buttons.hpp"
#include "fernhorn/dials/dial.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/header/plugin_header_view.hpp"
#include "platform/controls/accessible_role.hpp"
#include "platform/ui/main_queue_driver.hpp"

#include <QApplication>
#include <QTimer>
#include <QVBoxLayout>

using namespace fernhorn;

namespace {

std::shared_ptr<AudioParameter> make(const char* name, std::vector<std::string> names = {}) {
    const float upper = names.empty() ? 1.0F : static_cast<float>(names.size() - 1);
    return std::make_shared<AudioParameter>(
        0, name, name, platform::AudioUnitParameterUnit::indexed, ValueRange{0, upper}, 0.0F,
        ValueIncrement::linear(), names.empty() ? std::nullopt : std::optional(std::move(names)));
}

std::shared_ptr<AudioParameter> makeHertz(const char* name) {
    return std::make_shared<AudioParameter>(0, name, name, platform::AudioUnitParameterUnit::hertz,
                                            ValueRange{0, 1000}, 440.0F, ValueIncrement::linear());
}

void setByHost(AudioParameter& parameter, float value) {
    parameter.setValue(value, ParameterEditor::parameterObserver, ParameterEditorState::change);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("fernhorn_sample"));
    resourceBundle().assets().registerFonts();
    const platform::MainQueueDriver driver;
    const auto page = make("Page", {"Bands", "Carrier"});
    const auto wave = make("Wave", {"Sine", "Saw"});
    const auto mute = make("Mute");
    const auto played = makeHertz("Played");
    const QSizeF size(80, 36);
    const auto* const pad = resourceBundle().assets().image(QStringLiteral("hold-pad"));
    const LabelDisplayOptions options{{1, 1, 1, 1}, 11, 13, 13, true, false, 52};

    QWidget window;
    auto* const column = new QVBoxLayout(&window);
    // First, so that it is not near the lower end of the screen.
    column->addWidget(new ChaosDial(makeHertz("Cutoff"), ModernDialColor::grey, options));
    column->addWidget(new PluginHeaderView({}, QStringLiteral("1.1.0"), page,
                                           UpdateAvailableDetails{QStringLiteral("1.2.0")},
                                           FernFont::rocket, nullptr));
    column->addWidget(new TinyDial(played, options));
    auto* const disabled = new TinyDial(makeHertz("Out of reach"), options);
    disabled->setEnabled(false);
    column->addWidget(disabled);
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
    column->addWidget(new LeftRightArrowButton(make("Direction"), 1, {40, 28}));
    column->addWidget(new ParameterHoldButton(make("Stutter"), pad, pad));
    ChaosButton* automate = nullptr;
    automate = new ChaosButton(
        ChaosButtonColor::yellow, QStringLiteral("Automate"),
        [&] {
            for (const auto& parameter : {mute, wave, page}) {
                setByHost(*parameter, 1 - parameter->value());
            }
            core::MainQueue::shared().post(
                [&] { automate->setAccessibleName(QStringLiteral("Automated")); });
        },
        size);
    column->addWidget(automate);

    QTimer automation;
    QObject::connect(&automation, &QTimer::timeout, [&played, next = 0.0F]() mutable {
        next = next < 900 ? next + 1 : 0;
        setByHost(*played, next);
    });
    automation.start(5);
    window.show();
    return QApplication::exec();
}
