#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/dark_highlight_button.hpp"

namespace gallery {

Page darkHighlightButtonPage() {
    return {QStringLiteral("dark-highlight-button"), QStringLiteral("Driftwood buttons"),
            QStringLiteral("DarkHighlightButton"),
            QStringLiteral("An image that darkens while it is pressed; it has no style."),
            [](QWidget& view) {
                ControlPage page;
                page.make = [] {
                    auto* const button = new driftwood::DarkHighlightButton(QString());
                    button->setImage(driftwood::resourceBundle().assets().image(
                                         QStringLiteral("properties-table-add")),
                                     platform::ImagePosition::imageOnly);
                    button->setAccessibleName(QStringLiteral("Add"));
                    button->setCustomCursor(Qt::PointingHandCursor);
                    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
                    return button;
                };
                page.states = {platform::StateValue::off};
                page.hint = QStringLiteral("Press it");
                buildControlPage(view, page);
            }};
}

} // namespace gallery
