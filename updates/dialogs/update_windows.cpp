#include "updates/dialogs/update_windows.hpp"

#include "updates/session/update_session.hpp"

#include <QApplication>

#include <utility>

namespace updates {

UpdateWindows::UpdateWindows(UpdateSession& session, DialogStyle style,
                             platform::Workspace& workspace)
    : session_(session), style_(std::move(style)), workspace_(workspace) {
    connect(&session, &UpdateSession::sceneChanged, this, &UpdateWindows::show);
    connect(&session, &UpdateSession::attentionWanted, this, &UpdateWindows::comeForward);
}

UpdateWindows::~UpdateWindows() {
    delete dialog_;
}

DialogContext UpdateWindows::context() {
    UpdateSession* const session = &session_;
    return {.style = style_,
            .product = session->configuration().identity.product,
            .website = session->configuration().identity.website,
            .workspace = &workspace_,
            .checksByItself = session->checksByItself(),
            .checkAgain = [session] { session->checkForUpdates(); },
            .skip = [session] { session->skip(); },
            .install = [session] { session->install(); },
            .relaunch = [session] { session->relaunch(); },
            .dismiss = [session] { session->dismiss(); },
            .setChecksByItself = [session](bool checks) { session->setChecksByItself(checks); }};
}

void UpdateWindows::show(const UpdateScene& scene) {
    if (dialog_ != nullptr && dialog_->show(scene)) {
        return;
    }
    // The next dialog stands where the last one stood, and has the keyboard if that one had it.
    UpdateDialog* const last = dialog_;
    dialog_ = makeUpdateDialog(scene, context());
    if (dialog_ != nullptr) {
        const bool isCommanded = std::holds_alternative<scene::Checking>(scene) ||
                                 (last != nullptr && last->isActiveWindow());
        dialog_->setAttribute(Qt::WA_ShowWithoutActivating, !isCommanded);
        if (last != nullptr) {
            dialog_->adjustSize();
            const QPoint centre = last->geometry().center();
            dialog_->move(last->pos() + centre - last->geometry().topLeft() -
                          dialog_->rect().center());
        }
        dialog_->show();
        if (isCommanded) {
            comeForward();
        }
    }
    if (last != nullptr) {
        last->end();
        last->deleteLater(); // it may be telling what the user decided
    }
}

void UpdateWindows::comeForward() {
    if (dialog_ != nullptr) {
        dialog_->setAttribute(Qt::WA_ShowWithoutActivating, false);
        dialog_->showNormal();
        dialog_->raise();
        dialog_->activateWindow();
    }
}

} // namespace updates
