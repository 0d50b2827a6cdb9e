#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/controls/styled_check_box.hpp"

namespace gallery {

Page styledCheckBoxPage() {
    return {QStringLiteral("styled-check-box"), QStringLiteral("Driftwood buttons"),
            QStringLiteral("StyledCheckBox"),
            QStringLiteral(
                "A check box with three states; a click leads to on or off, never to mixed."),
            [](QWidget& view) {
                ControlPage page;
                page.make = [] { return new driftwood::StyledCheckBox(QStringLiteral("Loop")); };
                page.style = &driftwood::StyledCheckBoxCell::style();
                page.hint = QStringLiteral("Switch it to mixed, then click it: it turns on");
                buildControlPage(view, page);
            }};
}

} // namespace gallery
