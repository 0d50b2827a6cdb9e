#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/controls/styled_check_box.hpp"

namespace gallery {

Page favouriteCheckBoxPage() {
    return {QStringLiteral("favourite-check-box"), QStringLiteral("Driftwood buttons"),
            QStringLiteral("FavouriteCheckBox"),
            QStringLiteral("A star in place of a box; it fades while it is pressed."),
            [](QWidget& view) {
                ControlPage page;
                page.make = [] {
                    auto* const box = new driftwood::FavouriteCheckBox(QStringLiteral("Favourite"));
                    return box;
                };
                page.style = &driftwood::FavouriteCheckBoxCell::style();
                page.states = {platform::StateValue::off, platform::StateValue::on};
                page.press = [](platform::CellButton& button) {
                    button.setHighlighted(true);
                    button.setAlphaValue(0.5); // for as long as a press lasts
                };
                page.hint = QStringLiteral("Press it and hold");
                buildControlPage(view, page);
            }};
}

} // namespace gallery
