#pragma once

#include "platform/updates/dialogs/update_dialog.hpp"

#include <QObject>
#include <QPointer>

namespace platform {

class UpdateSession;

/// Shows the scenes of an update, one dialog at a time. What the user commands comes to the front;
/// what comes by itself takes the keyboard from nobody. Main thread.
class UpdateWindows final : public QObject {
    Q_OBJECT

  public:
    /// Both outlive it.
    UpdateWindows(UpdateSession& session, Workspace& workspace);
    ~UpdateWindows() override;

    [[nodiscard]] UpdateDialog* dialog() const { return dialog_; } ///< null: nothing is shown

  private:
    void show(const UpdateScene& scene);
    void comeForward();
    [[nodiscard]] DialogContext context();

    UpdateSession& session_;
    Workspace& workspace_;
    QPointer<UpdateDialog> dialog_;
};

} // namespace platform
