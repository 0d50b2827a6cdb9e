#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/pop_up.hpp"
#include "driftwood/controls/pop_up_cycling_button.hpp"

#include <QLabel>

namespace gallery {
namespace {

/// Stands for a pop-up button.
class Items final : public platform::Control, public driftwood::ItemCycling {
  public:
    explicit Items(QLabel& label) : label_(label) {}
    void selectNextItem(platform::Control&) override { choose(1); }
    void selectPreviousItem(platform::Control&) override { choose(-1); }

  private:
    void choose(int step) {
        constexpr const char* names[] = {"Sine", "Triangle", "Square", "Noise"};
        chosen_ = (chosen_ + step + 4) % 4;
        label_.setText(QStringLiteral("Chose %1").arg(QString::fromLatin1(names[chosen_])));
    }

    QLabel& label_;
    int chosen_ = 0;
};

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
                    const auto items = std::make_shared<Items>(report);
                    button.setAssociatedObject("items", items);
                    static_cast<driftwood::PopUpCyclingButton&>(button).setPopUpButton(*items);
                };
                buildControlPage(view, page);
            }};
}

} // namespace gallery
