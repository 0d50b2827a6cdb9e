#pragma once

#include "platform/ui/workspace.hpp"

#include <QTextBrowser>

namespace updates {

/// Shows safe rich text and nothing else: whatever the text names, nothing is loaded, neither from
/// the network nor from the disk. Links open with the user's browser. Main thread.
class ReleaseNotesView final : public QTextBrowser {
    Q_OBJECT

  public:
    explicit ReleaseNotesView(platform::Workspace& workspace, QWidget* parent = nullptr);

    /// `html` as `safeHtml` makes it.
    void showNotes(const QString& html);

    QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return {}; }

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    bool showsFocus_ = false;
};

} // namespace updates
