#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/controls/styled_button.hpp"

namespace gallery {

Page styledButtonPage() {
    return {QStringLiteral("styled-button"), QStringLiteral("Driftwood buttons"),
            QStringLiteral("StyledButton"),
            QStringLiteral("The push button, and the base of most others: bezel, image and title "
                           "from one shared style."),
            [](QWidget& view) {
                ControlPage page;
                page.make = [] {
                    auto* const button = new driftwood::StyledButton(QStringLiteral("Preview"));
                    button->setFixedWidth(70);
                    return button;
                };
                page.style = &driftwood::StyledButtonCell::style();
                page.hint = QStringLiteral("Click it, or press Tab and Space");
                buildControlPage(view, page);
            }};
}

} // namespace gallery
