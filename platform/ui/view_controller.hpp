#pragma once

#include "core/subscription.hpp"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace platform {

/// Looks after one view: a widget that appears and disappears as part of a window. It is told
/// before the view is first on screen, after that, and after it has gone: shown and hidden by the
/// program, put into another parent, its window closed. A minimised window's view has not gone.
/// Derived classes call the inherited operation first. The view owns its controller. Main thread.
class ViewController : public QObject {
    Q_OBJECT

  public:
    /// The view's parent may still change; it should not be visible yet.
    explicit ViewController(QWidget* view);

    [[nodiscard]] QWidget* view() const { return view_; }
    /// The window that shows the view; null while it has not appeared.
    [[nodiscard]] QWidget* window() const;

    virtual void viewWillAppear() {}
    virtual void viewDidAppear() {}
    virtual void viewDidDisappear() {}

    /// The window was minimised, or covered where the window system tells, and the reverse. The
    /// view has appeared.
    virtual void windowDidHideFromSight() {}
    virtual void windowDidReturnToSight() {}

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void appear();
    void disappear();
    void followWindow();
    void checkSight();

    QPointer<QWidget> view_;
    QPointer<QWidget> followedWindow_;
    QPointer<QObject> followedHandle_;
    bool hasAppeared_ = false;
    int appearances_ = 0;
    bool isInSight_ = true;
    bool isCovered_ = false;
    core::Subscription cover_;
};

} // namespace platform
