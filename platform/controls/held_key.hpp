#pragma once

#include <QKeyEvent>

namespace platform {

/// Tells the presses of keys from what a held key repeats. On X11 Qt sometimes takes a repeat for a
/// release and another press: in the same millisecond, which no finger can do. A part of the widget
/// that gets the keys. Main thread.
class HeldKey {
  public:
    /// To be asked once for each press and release of a key, in their order.
    [[nodiscard]] bool isRepeat(const QKeyEvent& event) {
        if (event.isAutoRepeat()) {
            return true;
        }
        if (event.type() == QEvent::KeyRelease) {
            released_ = event.key();
            releasedAt_ = event.timestamp();
            return false;
        }
        return event.key() == released_ && event.timestamp() == releasedAt_ && releasedAt_ != 0;
    }

  private:
    int released_ = 0;
    quint64 releasedAt_ = 0; // ms
};

} // namespace platform
