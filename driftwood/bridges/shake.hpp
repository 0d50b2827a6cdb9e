#pragma once

#include "core/clock.hpp"
#include "driftwood/util/shake_effect.hpp"

#include <QGraphicsEffect>

namespace driftwood {

/// Draws a widget beside its place, as a shake says. Its place in the layout, and where it can be
/// clicked, stay.
class ShakeGraphicsEffect final : public QGraphicsEffect {
    Q_OBJECT

  public:
    explicit ShakeGraphicsEffect(const ShakeEffect& effect, QObject* parent = nullptr);

    void setProgress(double animatableData);
    [[nodiscard]] QRectF boundingRectFor(const QRectF& rect) const override;

  protected:
    void draw(QPainter* painter) override;

  private:
    ShakeEffect effect_;
};

/// Shakes a widget once from beginning to end. A shake that is under way, or another graphics
/// effect of the widget, gives way to it. Main thread.
void shake(QWidget& view, const ShakeEffect& effect, core::Seconds duration = core::Seconds(0.4));

} // namespace driftwood
