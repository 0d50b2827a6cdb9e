#include "updates/dialogs/permission_dialog.hpp"

namespace updates {

PermissionDialog::PermissionDialog(const DialogContext& context, QWidget* parent)
    : UpdateDialog(context, parent) {
    say(tr("Check for updates automatically?"),
        //: %1 is the name of the program
        tr("%1 can look for a new version once a day and tell you. Nothing is installed without "
           "asking, and nothing about you or this computer is sent. You can also check at any time "
           "from the menu.")
            .arg(context.product));
    addButton(tr("Don’t Check"), Prominence::quiet, [this] {
        this->context().setChecksByItself(false);
    })->setFocus();
    addButton(tr("Check Automatically"), Prominence::prominent,
              [this] { this->context().setChecksByItself(true); });
}

bool PermissionDialog::show(const UpdateScene& scene) {
    return std::holds_alternative<scene::Permission>(scene);
}

} // namespace updates
