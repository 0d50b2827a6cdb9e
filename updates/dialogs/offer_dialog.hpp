#pragma once

#include "updates/dialogs/update_dialog.hpp"

namespace updates {

class ReleaseNotesView;

/// There is a new version: what it is called, what is new in it, and what to do about it. Main
/// thread.
class OfferDialog final : public UpdateDialog {
    Q_OBJECT

  public:
    explicit OfferDialog(const DialogContext& context, QWidget* parent = nullptr);
    bool show(const UpdateScene& scene) override;

  private:
    ReleaseNotesView* notes_;
    QString shownNotes_;
};

} // namespace updates
