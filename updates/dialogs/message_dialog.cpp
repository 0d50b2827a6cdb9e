#include "platform/updates/dialogs/message_dialog.hpp"

#include "platform/ui/padded_item.hpp"
#include "platform/updates/dialogs/dialog_controls.hpp"
#include "platform/updates/dialogs/update_messages.hpp"

#include <QBoxLayout>

#include <utility>

namespace platform {

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
        auto* const box = new DialogCheckBox(tr("Check automatically once a day"));
        box->setChecked(context().checksByItself);
        connect(box, &QCheckBox::toggled, this, context().setChecksByItself);
        // The box stands in line with the text; its focus ring reaches out of its place.
        content().addItem(new PaddedItem(box, {-DialogCheckBox::ringReach, 0, 0, 0}));
        box->setParent(this);
        box->show();
    }
    addButton(tr("Close"), Prominence::quiet, context().dismiss)->setFocus();
    switch (message->remedy) {
    case Remedy::none:
        break;
    case Remedy::again:
        addButton(tr("Try Again"), Prominence::prominent, context().checkAgain);
        break;
    case Remedy::website:
        addButton(tr("Open Website"), Prominence::prominent, [this] {
            context().workspace->open(context().website);
            context().dismiss();
        });
        break;
    }
    return true;
}

} // namespace platform
