#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/controls/corner_button.hpp"
#include "platform/controls/menu.hpp"

#include <QLabel>

namespace gallery {
namespace {

std::unique_ptr<platform::Menu> makeMenu() {
    auto menu = std::make_unique<platform::Menu>();
    for (const char* const name : {"Duplicate", "Rename", "Show in Library"}) {
        menu->addItem(QString::fromLatin1(name));
    }
    return menu;
}

} // namespace

Page cornerButtonPage() {
    return {QStringLiteral("corner-button"), QStringLiteral("Driftwood buttons"),
            QStringLiteral("CornerButton"),
            QStringLiteral("A button in the corner of a panel; with a menu, a press opens that in "
                           "place of clicking."),
            [](QWidget& view) {
                ControlPage page;
                page.make = [] {
                    auto* const button = new driftwood::CornerButton(QStringLiteral("More"));
                    button->setFixedWidth(66);
                    return button;
                };
                page.style = &driftwood::CornerButtonCell::style();
                page.hint = QStringLiteral("Press it, or focus it and press the menu key");
                page.enliven = [](platform::CellButton& button, QLabel&) {
                    static_cast<driftwood::CornerButton&>(button).setAlternateMenu(makeMenu());
                };
                buildControlPage(view, page);
            }};
}

} // namespace gallery
