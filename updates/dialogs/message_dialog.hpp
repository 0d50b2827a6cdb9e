#pragma once

#include "updates/dialogs/update_dialog.hpp"

namespace updates {

/// Says how a check or an update ended: up to date, no, or why not. Main thread.
class MessageDialog final : public UpdateDialog {
    Q_OBJECT

  public:
    explicit MessageDialog(const DialogContext& context, QWidget* parent = nullptr);
    bool show(const UpdateScene& scene) override;

  private:
    bool isFilled_ = false;
};

} // namespace updates
