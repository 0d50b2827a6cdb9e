#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/tool_button.hpp"

#include <QLabel>

namespace gallery {

Page toolButtonPage() {
    return {QStringLiteral("tool-button"), QStringLiteral("Driftwood buttons"),
            QStringLiteral("ToolButton"),
            QStringLiteral("A tool that sends a second action when it is held, or clicked with the "
                           "secondary button."),
            [](QWidget& view) {
                ControlPage page;
                page.make = [] {
                    auto* const button = new driftwood::ToolButton(QString());
                    button->setImage(driftwood::resourceBundle().assets().image(
                                         QStringLiteral("organiser-icon-star")),
                                     platform::ImagePosition::imageOnly);
                    button->cell().setImageScaling(platform::ImageScaling::none);
                    button->setFixedWidth(32);
                    button->setShowMoreIcon(true);
                    button->setAccessibleName(QStringLiteral("Star tool"));
                    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
                    return button;
                };
                page.style = &driftwood::ToolButtonCell::style();
                page.hint =
                    QStringLiteral("Click it, hold it, or click it with the secondary button");
                page.enliven = [](platform::CellButton& button, QLabel& report) {
                    auto& tool = static_cast<driftwood::ToolButton&>(button);
                    tool.setSecondaryAction(
                        [&report](platform::ActionTarget&, platform::Control&) {
                            report.setText(QStringLiteral("Sent its secondary action"));
                        },
                        tool);
                };
                buildControlPage(view, page);
            }};
}

} // namespace gallery
