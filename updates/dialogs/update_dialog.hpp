#pragma once

#include "platform/ui/workspace.hpp"
#include "updates/dialogs/dialog_style.hpp"
#include "updates/session/update_scene.hpp"

#include <QDialog>
#include <QUrl>

#include <functional>

class QBoxLayout;
class QLabel;

namespace updates {

/// What the dialogs of an updater have in common. A value.
struct DialogContext {
    DialogStyle style;
    QString product;                ///< the program's name
    QUrl website;                   ///< where a person gets the program by hand
    platform::Workspace* workspace; ///< opens links; outlives the dialogs
    bool checksByItself = false;

    // What the user may decide; all are set.
    std::function<void()> checkAgain;
    std::function<void()> skip;
    std::function<void()> install;
    std::function<void()> relaunch;
    std::function<void()> dismiss; ///< later, cancel, close
    std::function<void(bool)> setChecksByItself;
};

/// One dialog of the updater: the program's icon, what is the matter, what there is to see, and
/// buttons. No button is pressed by Return unless it has the focus, and none that installs or gives
/// leave has it to begin with. Escape, and closing the window, dismiss. It is never larger than the
/// screen. Main thread.
class UpdateDialog : public QDialog {
    Q_OBJECT

  public:
    explicit UpdateDialog(const DialogContext& context, QWidget* parent = nullptr);

    /// Shows a scene of the dialog's kind; false when the scene is another's.
    virtual bool show(const UpdateScene& scene) = 0;
    using QDialog::show;

    void reject() override;
    /// Closes it without another word: the user has decided.
    void end();

  protected:
    void closeEvent(QCloseEvent* event) override;

    enum class Prominence { quiet, prominent };

    void say(const QString& title, const QString& text);
    /// Where a dialog puts what else it shows, below the text.
    [[nodiscard]] QBoxLayout& content() const { return *content_; }
    /// Buttons are added from left to right. One that stands apart is at the far left.
    enum class Place { row, apart };
    platform::Button* addButton(const QString& label, Prominence prominence,
                                const std::function<void()>& action, Place place = Place::row);
    /// Throws the buttons away.
    void clearButtons();
    [[nodiscard]] const DialogContext& context() const { return context_; }

  private:
    const DialogContext context_;
    QLabel* title_;
    QLabel* text_;
    QBoxLayout* content_;
    QBoxLayout* apart_;
    QBoxLayout* row_;
    bool isClosing_ = false;
    bool isOver_ = false;
};

/// The dialog for a scene; null for `scene::Nothing`.
[[nodiscard]] UpdateDialog* makeUpdateDialog(const UpdateScene& scene, const DialogContext& context,
                                             QWidget* parent = nullptr);

} // namespace updates
