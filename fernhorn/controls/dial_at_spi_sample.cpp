// A window of dials for the test over the accessibility bus; one of them is played by automation.

#include "fernhorn/controls/chaos_dial.hpp"
#include "fernhorn/controls/tiny_dial.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "platform/ui/main_queue_driver.hpp"

#include <QApplication>
#include <QTimer>
#include <QVBoxLayout>

int main(int argc, char** argv) {
    using namespace fernhorn;
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("dial_at_spi_sample"));
    resourceBundle().assets().registerFonts();
    const platform::MainQueueDriver driver;

    const auto makeParameter = [](const char* name) {
        return std::make_shared<AudioParameter>(
            0, name, name, platform::AudioUnitParameterUnit::hertz, ValueRange{0, 1000}, 440.0F,
            ValueIncrement::linear());
    };
    const LabelDisplayOptions options{{1, 1, 1, 1}, 11, 13, 13, true, false, 52};
    const auto played = makeParameter("Played");
    QWidget window;
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(new ChaosDial(makeParameter("Cutoff"), ModernDialColor::grey, options));
    column->addWidget(new TinyDial(played, options));
    auto* const disabled = new TinyDial(makeParameter("Out of reach"), options);
    disabled->setEnabled(false);
    column->addWidget(disabled);

    QTimer automation;
    QObject::connect(&automation, &QTimer::timeout, [&played, next = 0.0F]() mutable {
        next = next < 900 ? next + 1 : 0;
        played->setValue(next, ParameterEditor::parameterObserver, ParameterEditorState::change);
    });
    automation.start(5);
    window.show();
    return QApplication::exec();
}
