#pragma once

#include <QKeyEvent>
#include <QWidget>

#include <vector>

namespace fernhorn {

/// Stands for a host's window: counts the keys and presses that no control in it has wanted.
class EventHost final : public QWidget {
  public:
    int events = 0;
    std::vector<int> keys; ///< of those the keys, in order

  protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            keys.push_back(static_cast<QKeyEvent*>(event)->key());
        }
        events += event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress;
        return QWidget::event(event);
    }
};

} // namespace fernhorn
