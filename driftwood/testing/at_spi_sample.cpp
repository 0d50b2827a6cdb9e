// A window of buttons for the test over the accessibility bus.

#include "driftwood/controls/corner_button.hpp"
#include "driftwood/controls/kestrel_push_button.hpp"
#include "driftwood/controls/styled_check_box.hpp"
#include "platform/controls/menu.hpp"
#include "platform/controls/pop_up_button.hpp"

#include <QApplication>
#include <QVBoxLayout>

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
    corner->setAlternateMenu(std::make_unique<platform::Menu>());
    QObject::connect(&corner->alternateMenu()->addItem(QStringLiteral("Duplicate")),
                     &QAction::triggered, corner,
                     [corner] { corner->setTitle(QStringLiteral("Duplicated")); });
    auto* const popUp = new platform::PopUpButton;
    popUp->setAccessibleName(QStringLiteral("Waveform"));
    popUp->addItem(QStringLiteral("Sine"));
    popUp->addItem(QStringLiteral("Square"));
    auto* const toggle = new driftwood::StyledButton(QStringLiteral("Solo"));
    toggle->setShowsState(true);
    toggle->setState(platform::StateValue::on);
    toggle->setSelected(true);
    column->addWidget(toggle);
    for (QWidget* const button :
         std::initializer_list<QWidget*>{push, box, disabled, corner, popUp}) {
        column->addWidget(button);
    }
    window.show();
    return QApplication::exec();
}
