#pragma once

#include "updates/dialogs/update_dialog.hpp"

#include <QObject>
#include <QPointer>

namespace updates {

class UpdateSession;

/// Shows the scenes of an update, one dialog at a time. What the user commands comes to the front;
/// what comes by itself takes the keyboard from nobody. Main thread.
class UpdateWindows final : public QObject {
    Q_OBJECT

  public:
    /// Session and workspace outlive it.
    UpdateWindows(UpdateSession& session, DialogStyle style, platform::Workspace& workspace);
    ~UpdateWindows() override;

    [[nodiscard]] UpdateDialog* dialog() const { return dialog_; } ///< null: nothing is shown

  private:
    void show(const UpdateScene& scene);
    void comeForward();
    [[nodiscard]] DialogContext context();

    UpdateSession& session_;
    const DialogStyle style_;
    platform::Workspace& workspace_;
    QPointer<UpdateDialog> dialog_;
};

} // namespace updates
