#include "platform/ui/view_controller.hpp"

#include "platform/ui/cover_watcher.hpp"

#include <QEvent>
#include <QWindow>

namespace platform {

ViewController::ViewController(QWidget* view) : QObject(view), view_(view) {
    view->installEventFilter(this);
}

QWidget* ViewController::window() const {
    return hasAppeared_ && view_ != nullptr ? view_->window() : nullptr;
}

bool ViewController::eventFilter(QObject* object, QEvent* event) {
    if (object == view_) {
        // Spontaneous ones come from the window system, when the window is minimised and back.
        if (event->type() == QEvent::Show && !event->spontaneous()) {
            appear();
        } else if (event->type() == QEvent::Hide && !event->spontaneous()) {
            disappear();
        }
    }
    if (object == followedWindow_ || object == followedHandle_) {
        switch (event->type()) {
        case QEvent::WindowStateChange:
        case QEvent::Expose:
            checkSight();
            break;
        case QEvent::WinIdChange:
        case QEvent::Show:
            followWindow();
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(object, event);
}

void ViewController::appear() {
    if (hasAppeared_) {
        return;
    }
    hasAppeared_ = true;
    isInSight_ = true;
    followWindow();
    viewWillAppear();
    // After the event, when the view really is part of a shown window.
    QMetaObject::invokeMethod(
        this,
        [this, appearance = ++appearances_] {
            if (hasAppeared_ && appearance == appearances_) {
                viewDidAppear();
            }
        },
        Qt::QueuedConnection);
}

void ViewController::disappear() {
    if (hasAppeared_) {
        hasAppeared_ = false;
        viewDidDisappear();
    }
}

void ViewController::followWindow() {
    if (followedWindow_ != nullptr) {
        followedWindow_->removeEventFilter(this);
    }
    if (followedHandle_ != nullptr) {
        followedHandle_->removeEventFilter(this);
    }
    followedWindow_ = window();
    followedHandle_ = followedWindow_ != nullptr ? followedWindow_->windowHandle() : nullptr;
    for (QObject* const followed :
         {static_cast<QObject*>(followedWindow_.data()), followedHandle_.data()}) {
        if (followed != nullptr && followed != view_) {
            followed->installEventFilter(this);
        }
    }
    view_->installEventFilter(this);
    isCovered_ = false;
    cover_ = {};
    if (followedHandle_ != nullptr) {
        cover_ = observeWindowCover(*followedWindow_->windowHandle(), [this](bool isCovered) {
            isCovered_ = isCovered;
            checkSight();
        });
    }
}

void ViewController::checkSight() {
    const QWidget* const shown = window();
    if (shown == nullptr || shown->windowHandle() == nullptr) {
        return;
    }
    const bool isInSight =
        !shown->isMinimized() && shown->windowHandle()->isExposed() && !isCovered_;
    if (isInSight_ != isInSight) {
        isInSight_ = isInSight;
        isInSight ? windowDidReturnToSight() : windowDidHideFromSight();
    }
}

} // namespace platform
