#pragma once

#include "gallery/fernhorn/host/event_log.hpp"

#include <QBasicTimer>
#include <QFont>
#include <QWidget>

#include <functional>
#include <memory>

namespace gallery {

/// Shows an event log as it grows. While it is hidden the log keeps its bounds by itself.
class EventStrip final : public QWidget {
  public:
    static constexpr int rowHeight = 20; // points

    /// How a host writes the value of an event.
    using TextOf = std::function<QString(const platform::AUParameterAutomationEvent&)>;

    /// Shows so many of the newest lines. `log` must not be null.
    EventStrip(std::unique_ptr<EventLog> log, int rows, TextOf textOf);

    [[nodiscard]] QSize sizeHint() const override;

    /// Shows what has come by now, without waiting for the next look.
    void refresh();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    static constexpr int lookInterval = 33; // ms

    void paintLine(QPainter& painter, const QRectF& row, const EventLog::Line& line) const;

    std::unique_ptr<EventLog> log_;
    int rows_;
    TextOf textOf_;
    QFont font_;
    QFont smallFont_;
    QBasicTimer look_;
};

} // namespace gallery
