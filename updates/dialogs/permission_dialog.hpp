#pragma once

#include "updates/dialogs/update_dialog.hpp"

namespace updates {

/// May the program look for updates by itself? Closing it is no answer: it asks again another time.
/// Main thread.
class PermissionDialog final : public UpdateDialog {
    Q_OBJECT

  public:
    explicit PermissionDialog(const DialogContext& context, QWidget* parent = nullptr);
    bool show(const UpdateScene& scene) override;
};

} // namespace updates
