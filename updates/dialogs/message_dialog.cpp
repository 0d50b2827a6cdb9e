#include "updates/dialogs/message_dialog.hpp"

#include "platform/controls/padded_item.hpp"
#include "updates/dialogs/update_messages.hpp"

#include <QBoxLayout>

#include <utility>

namespace updates {

MessageDialog::MessageDialog(const DialogContext& context, QWidget* parent)
    : UpdateDialog(context, parent) {}

bool MessageDialog::show(const UpdateScene& scene) {
    const auto message = messageOf(scene, context().product);
    if (!message || std::exchange(isFilled_, true)) {
        return false; // every end has a dialog of its own
    }
    say(message->title, message->text);
    const auto* const upToDate = std::get_if<scene::UpToDate>(&scene);
    if (upToDate != nullptr && upToDate->canCheckByItself) {
        const DialogStyle& style = context().style;
        auto* const box =
            new platform::Button(tr("Check automatically once a day"), style.checkBox, this);
        box->setCheckable(true);
        connect(box, &QAbstractButton::toggled, box, [box, style](bool isChecked) {
            box->setButtonStyle(isChecked ? style.checkedBox : style.checkBox);
        });
        box->setChecked(context().checksByItself);
        connect(box, &QAbstractButton::toggled, this, context().setChecksByItself);
        content().addItem(new platform::PaddedItem(box, style.checkBox->padding()));
    }
    addButton(tr("Close"), Prominence::quiet, context().dismiss)->setFocus();
    switch (message->remedy) {
    case Remedy::none:
        break;
    case Remedy::again:
        addButton(tr("Try Again"), Prominence::prominent, context().checkAgain)->setFocus();
        break;
    case Remedy::website:
        addButton(tr("Open Website"), Prominence::prominent, [this] {
            context().workspace->open(context().website);
            context().dismiss();
        })->setFocus();
        break;
    }
    return true;
}

} // namespace updates
