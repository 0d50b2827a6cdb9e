#pragma once

#include <QByteArray>
#include <QObject>

#include <string>

class QSocketNotifier;
class QWidget;

namespace platform {

class SoleStart;

/// What the desktop gave this start of the program so that its window may take the keyboard. Empty
/// without one. Before the application object, which takes it away. One thread.
[[nodiscard]] std::string startupToken();

/// Shows a window in front of all others and gives it the keyboard, because the user asked for it
/// with another start of the program, whose token this is. Main thread.
void bringForward(QWidget& window, const QByteArray& token);

/// Brings the program's window forward whenever the program is started once more. `start` and
/// `window` outlive it. Main thread.
class LaterStarts final : public QObject {
    Q_OBJECT

  public:
    LaterStarts(SoleStart& start, QWidget& window);

    /// From now on another start is a first one: this program is going to be replaced.
    void release();

  private:
    SoleStart& start_;
    QSocketNotifier* notifier_ = nullptr; // null where no start can call
};

} // namespace platform
