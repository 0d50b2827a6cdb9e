#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/cursor_button.hpp"

namespace gallery {

Page cursorButtonPage() {
    return {
        QStringLiteral("cursor-button"), QStringLiteral("Driftwood buttons"),
        QStringLiteral("CursorButton"),
        QStringLiteral("Brings its own pointer, and fades while it is pressed; it has no style."),
        [](QWidget& view) {
            ControlPage page;
            page.make = [] {
                auto* const button = new driftwood::CursorButton(QStringLiteral("Cycle"));
                button->setImage(driftwood::resourceBundle().assets().image(
                    QStringLiteral("organiser-icon-disclose")));
                button->cell().setImageScaling(platform::ImageScaling::none);
                button->cell().setImageFollowsReading(true);
                return button;
            };
            page.states = {platform::StateValue::off};
            page.hint = QStringLiteral("Move the pointer over it");
            buildControlPage(view, page);
        }};
}

} // namespace gallery
