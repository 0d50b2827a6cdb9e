// A window of buttons for the test over the accessibility bus.

#include "driftwood/controls/corner_button.hpp"
#include "driftwood/controls/kestrel_push_button.hpp"
#include "driftwood/controls/styled_check_box.hpp"
#include "driftwood/controls/styled_combo_box.hpp"
#include "driftwood/controls/styled_segmented_control.hpp"
#include "driftwood/controls/styled_slider.hpp"
#include "driftwood/controls/tracking_slider.hpp"
#include "driftwood/declarative/drift_segmented_control.hpp"
#include "driftwood/declarative/drift_slider.hpp"
#include "platform/controls/menu.hpp"
#include "platform/controls/pop_up_button.hpp"

#include <QApplication>
#include <QVBoxLayout>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("at_spi_sample"));
    QWidget window;
    auto* const column = new QVBoxLayout(&window);
    auto* const push = new driftwood::KestrelPushButton(QStringLiteral("Press me"));
    push->setAction([push](platform::ActionTarget&,
                           platform::Control&) { push->setTitle(QStringLiteral("Was pressed")); },
                    *push);
    auto* const box = new driftwood::StyledCheckBox(QStringLiteral("Loop"));
    box->setState(platform::StateValue::mixed);
    auto* const disabled = new driftwood::StyledButton(QStringLiteral("Out of reach"));
    disabled->setEnabled(false);
    auto* const corner = new driftwood::CornerButton(QStringLiteral("More"));
    corner->setAlternateMenu(std::make_unique<platform::Menu>());
    QObject::connect(&corner->alternateMenu()->addItem(QStringLiteral("Duplicate")),
                     &QAction::triggered, corner,
                     [corner] { corner->setTitle(QStringLiteral("Duplicated")); });
    auto* const popUp = new platform::PopUpButton;
    popUp->setAccessibleName(QStringLiteral("Waveform"));
    popUp->addItem(QStringLiteral("Sine"));
    popUp->addItem(QStringLiteral("Square"));
    auto* const toggle = new driftwood::StyledButton(QStringLiteral("Solo"));
    toggle->setShowsState(true);
    toggle->setState(platform::StateValue::on);
    toggle->setSelected(true);
    column->addWidget(toggle);
    for (QWidget* const button :
         std::initializer_list<QWidget*>{push, box, disabled, corner, popUp}) {
        column->addWidget(button);
    }
    auto* const tabs = new driftwood::StyledSegmentedControl(
        {QStringLiteral("Oscillator"), QStringLiteral("Filter")});
    tabs->setAccessibleName(QStringLiteral("Section"));
    tabs->setSelectedSegment(0);
    auto* const slider = new driftwood::StyledSlider;
    slider->setAccessibleName(QStringLiteral("Gain"));
    slider->setRange(-60, 12);
    slider->setUnit(QStringLiteral("dB"));
    auto* const knob = new driftwood::TrackingSlider;
    knob->setAccessibleName(QStringLiteral("Detune"));
    auto* const combo = new driftwood::StyledComboBox;
    combo->setAccessibleName(QStringLiteral("Category"));
    combo->addItems({QStringLiteral("Bass"), QStringLiteral("Pad")});
    using Behaviour = driftwood::SliderIconClickBehaviour;
    auto* const drift = new driftwood::DriftSlider(
        std::make_shared<driftwood::DriftSliderModel>(std::vector<double>{1, 2}, 5, 0, 10, 1,
                                                      Behaviour::increment),
        nullptr, nullptr);
    drift->setValueName(QStringLiteral("Level"), QStringLiteral("%"));
    using Item = driftwood::DriftSegmentItem;
    auto* const voices = new driftwood::DriftSegmentedControl(
        std::make_shared<driftwood::DriftSegmentedControlModel>(
            driftwood::DriftSegmentedControlModel::Items{std::make_shared<const Item>(0, "Mono"),
                                                         std::make_shared<const Item>(1, "Poly")}));
    for (QWidget* const control :
         std::initializer_list<QWidget*>{tabs, slider, knob, combo, drift, voices}) {
        column->addWidget(control);
    }
    window.show();
    return QApplication::exec();
}
