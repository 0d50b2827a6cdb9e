// A window of buttons for the test over the accessibility bus.

#include "driftwood/controls/corner_button.hpp"
#include "driftwood/controls/kestrel_push_button.hpp"
#include "driftwood/controls/styled_check_box.hpp"

#include <QApplication>
#include <QVBoxLayout>

namespace {

class Menu final : public driftwood::PopUpMenu {
  public:
    void popUp(QWidget& view, QPoint /*position*/, std::function<void()> closed) override {
        static_cast<driftwood::CornerButton&>(view).setTitle(QStringLiteral("Menu opened"));
        closed();
    }
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("at_spi_sample"));
    QWidget window;
    auto* const column = new QVBoxLayout(&window);
    auto* const push = new driftwood::KestrelPushButton(QStringLiteral("Press me"));
    push->setAction([push](platform::ActionTarget&,
                           platform::Control&) { push->setTitle(QStringLiteral("Was pressed")); },
                    *push);
    auto* const box = new driftwood::StyledCheckBox(QStringLiteral("Loop"));
    box->setState(platform::StateValue::mixed);
    auto* const disabled = new driftwood::StyledButton(QStringLiteral("Out of reach"));
    disabled->setEnabled(false);
    auto* const corner = new driftwood::CornerButton(QStringLiteral("More"));
    corner->setAlternateMenu(std::make_shared<Menu>());
    for (QWidget* const button : std::initializer_list<QWidget*>{push, box, disabled, corner}) {
        column->addWidget(button);
    }
    window.show();
    return QApplication::exec();
}
