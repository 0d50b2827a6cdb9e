#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/pop_up_cycling_button.hpp"
#include "platform/controls/pop_up_button.hpp"

#include <QLabel>

namespace gallery {
namespace {

/// A pop-up button that reports its choice; it is not seen.
std::shared_ptr<platform::PopUpButton> makePopUp(QLabel& report) {
    const auto popUp = std::make_shared<platform::PopUpButton>();
    for (const char* const name : {"Sine", "Triangle", "Square", "Noise"}) {
        popUp->addItem(QString::fromLatin1(name));
    }
    popUp->setAction(
        [&report, of = popUp.get()](platform::ActionTarget&, platform::Control&) {
            report.setText(QStringLiteral("Chose %1").arg(of->title()));
        },
        *popUp);
    return popUp;
}

} // namespace

Page popUpCyclingButtonPage() {
    return {QStringLiteral("pop-up-cycling-button"), QStringLiteral("Driftwood buttons"),
            QStringLiteral("PopUpCyclingButton"),
            QStringLiteral("Steps through the items of a pop-up button: forward with a click, "
                           "backward with Shift."),
            [](QWidget& view) {
                ControlPage page;
                page.make = [] {
                    auto* const button =
                        new driftwood::PopUpCyclingButton(QStringLiteral("Waveform"));
                    button->setImage(driftwood::resourceBundle().assets().image(
                                         QStringLiteral("organiser-icon-disclose-open")),
                                     platform::ImagePosition::imageTrailing);
                    button->cell().setImageScaling(platform::ImageScaling::none);
                    return button;
                };
                page.states = {platform::StateValue::off};
                page.hint = QStringLiteral("Click it, or click it with Shift");
                page.enliven = [](platform::CellButton& button, QLabel& report) {
                    const auto popUp = makePopUp(report);
                    button.setAssociatedObject("items", popUp);
                    static_cast<driftwood::PopUpCyclingButton&>(button).setPopUpButton(*popUp);
                };
                buildControlPage(view, page);
            }};
}

} // namespace gallery
