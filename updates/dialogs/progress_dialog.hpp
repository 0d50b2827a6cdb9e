#pragma once

#include "updates/dialogs/update_dialog.hpp"

class QLabel;

namespace updates {

class UpdateProgressBar;

/// Something takes its time: looking for an update, getting it, checking and unpacking it. In the
/// end it is ready, and the same dialog asks for the last word. Main thread.
class ProgressDialog final : public UpdateDialog {
    Q_OBJECT

  public:
    explicit ProgressDialog(const DialogContext& context, QWidget* parent = nullptr);

    [[nodiscard]] static bool isFor(const UpdateScene& scene);
    bool show(const UpdateScene& scene) override;

    /// "1.2 MB of 40 MB, 800 kB/s", in the user's way of writing numbers.
    [[nodiscard]] static QString progressText(const DownloadProgress& progress);

  private:
    enum class Choice { cancel, relaunch, none };
    void offer(Choice choice);
    void measure(double share, const QString& text);

    UpdateProgressBar* bar_;
    QLabel* detail_;
    std::optional<Choice> offered_;
};

} // namespace updates
