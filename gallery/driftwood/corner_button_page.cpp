#include "gallery/driftwood/control_page.hpp"
#include "gallery/driftwood/driftwood_pages.hpp"

#include "driftwood/controls/corner_button.hpp"
#include <QLabel>
#include <QMenu>

namespace gallery {
namespace {

/// A menu of the toolkit's.
class SampleMenu final : public driftwood::PopUpMenu {
  public:
    void popUp(QWidget& view, QPoint position, std::function<void()> closed) override {
        auto* const menu = new QMenu(&view);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        for (const char* const name : {"Duplicate", "Rename", "Show in Library"}) {
            menu->addAction(QString::fromLatin1(name));
        }
        QObject::connect(menu, &QMenu::aboutToHide, &view, closed);
        menu->popup(view.mapToGlobal(position));
    }
};

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
                    button->setFixedWidth(72);
                    return button;
                };
                page.style = &driftwood::CornerButtonCell::style();
                page.hint = QStringLiteral("Press it, or focus it and press the menu key");
                page.enliven = [](platform::CellButton& button, QLabel&) {
                    static_cast<driftwood::CornerButton&>(button).setAlternateMenu(
                        std::make_shared<SampleMenu>());
                };
                buildControlPage(view, page);
            }};
}

} // namespace gallery
