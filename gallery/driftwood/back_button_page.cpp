#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/controls/back_button.hpp"

namespace gallery {

Page backButtonPage() {
    return {QStringLiteral("back-button"), QStringLiteral("Driftwood buttons"),
            QStringLiteral("BackButton"),
            QStringLiteral(
                "Points to where it leads. Faded to nothing, it is hidden and takes no clicks."),
            [](QWidget& view) {
                ControlPage page;
                page.make = [] {
                    auto* const button = new driftwood::BackButton(QStringLiteral("Library"));
                    button->setFixedWidth(80);
                    return button;
                };
                page.style = &driftwood::BackButtonCell::style();
                page.hint = QStringLiteral("Its alignment insets are 6, 5, 4 and 4 points");
                buildControlPage(view, page);
            }};
}

} // namespace gallery
