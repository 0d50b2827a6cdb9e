// A plug-in with a window that screen readers look at; see unloading_host.cpp.

#include "fernhorn/buttons/parameter_buttons.hpp"
#include "fernhorn/dials/knob_control.hpp"
#include "platform/controls/accessible_role.hpp"
#include "platform/ui/main_queue_driver.hpp"

#include <QPainter>
#include <QVBoxLayout>

#include <malloc.h>

#include <algorithm>
#include <memory>
#include <thread>

using namespace fernhorn;

namespace {

std::shared_ptr<AudioParameter> makeCutoff() {
    return std::make_shared<AudioParameter>(0, "cutoff", "Cutoff",
                                            platform::AudioUnitParameterUnit::generic,
                                            ValueRange{0, 1}, 0.5F, ValueIncrement::linear());
}

} // namespace

extern "C" __attribute__((visibility("default"))) int openAndClose() {
    const platform::MainQueueDriver driver;
    const auto parameter = makeCutoff();
    QWidget window;
    platform::setAccessibleRole(window, QAccessible::Grouping);
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(
        new KnobControl(parameter, 6, 0.005F, 51, [](QPainter&, const QRectF&, int) {}));
    column->addWidget(new ToggleButton(parameter, {}, 12, Qt::white, {60, 27}));
    window.show();
    int known = 0;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        const auto* const spoken = QAccessible::queryAccessibleInterface(widget);
        known += spoken != nullptr && spoken->text(QAccessible::Name) == QStringLiteral("Cutoff");
    }
    return known;
}

/// What new threads allocate when they write their first values, in bytes; the least of some tries.
extern "C" __attribute__((visibility("default"))) std::size_t firstWritesOfThreads() {
    const auto parameter = makeCutoff();
    parameter->auParameter()->addParameterObserver([](auto, auto) {});
    std::size_t least = ~std::size_t{0};
    for (int i = 0; i < 5; ++i) {
        std::thread audio([&] {
            const std::size_t before = mallinfo2().uordblks;
            parameter->auParameter()->setValue(0.1F * static_cast<float>(i + 1));
            least = std::min(least, mallinfo2().uordblks - before);
        });
        audio.join();
    }
    return least;
}
