#pragma once

#include <QMargins>
#include <QObject>
#include <QRect>

class QPainter;
class QWidget;

namespace platform {

/// What stands in for the desktop's frame around a window that has none: corners of radius 10, a
/// rim of one pixel, and on X11 a soft shadow, for which the window is larger than what it shows.
/// Where the desktop does not put windows together the corners are cut and there is no shadow. Make
/// it before the window is first shown; the window owns it. Main thread.
class WindowFrame final : public QObject {
    Q_OBJECT

  public:
    explicit WindowFrame(QWidget& window);

    /// What the window has around its panel; none without a shadow.
    [[nodiscard]] QMargins margins() const { return margins_; }
    /// What the user takes for the window, in its coordinates.
    [[nodiscard]] QRect panel() const;
    /// Shadow, rim and ground, whose colour is the palette's for windows; what of it is in `area`.
    void paint(QPainter& painter, const QRect& area) const;
    /// The panel's part that is inside of its round corners and its rim.
    [[nodiscard]] QRect inside() const { return panel().marginsRemoved({3, 3, 3, 3}); }

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void tellDesktop() const;

    QWidget& window_;
    QMargins margins_;
    bool isComposited_;
};

} // namespace platform
