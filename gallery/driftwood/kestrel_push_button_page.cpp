#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/controls/kestrel_push_button.hpp"

namespace gallery {

Page kestrelPushButtonPage() {
    return {QStringLiteral("kestrel-push-button"), QStringLiteral("Driftwood buttons"),
            QStringLiteral("KestrelPushButton"),
            QStringLiteral("The general push button: its bezel leaves room around it, and its "
                           "insets are its own."),
            [](QWidget& view) {
                ControlPage page;
                page.make = [] {
                    auto* const button = new driftwood::KestrelPushButton(QStringLiteral("Export"));
                    button->setFixedWidth(68);
                    return button;
                };
                page.style = &driftwood::KestrelPushButtonCell::style();
                page.hint =
                    QStringLiteral("The panel below is made of its kind, so it restyles itself");
                buildControlPage(view, page);
            }};
}

} // namespace gallery
