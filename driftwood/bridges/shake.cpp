#include "driftwood/bridges/shake.hpp"

#include <QPainter>
#include <QPointer>
#include <QVariantAnimation>
#include <QWidget>

#include <cmath>

namespace driftwood {

ShakeGraphicsEffect::ShakeGraphicsEffect(const ShakeEffect& effect, QObject* parent)
    : QGraphicsEffect(parent), effect_(effect) {}

void ShakeGraphicsEffect::setProgress(double animatableData) {
    effect_.animatableData = animatableData;
    update();
}

QRectF ShakeGraphicsEffect::boundingRectFor(const QRectF& rect) const {
    const double reach = std::ceil(std::abs(effect_.amount));
    return rect.adjusted(-reach, 0, reach, 0);
}

void ShakeGraphicsEffect::draw(QPainter* painter) {
    QPoint offset;
    const QPixmap picture = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
    const core::Point by = effect_.translation();
    painter->drawPixmap(QPointF(offset) + QPointF(by.x, by.y), picture);
}

void shake(QWidget& view, const ShakeEffect& effect, core::Seconds duration) {
    auto* const drawn = new ShakeGraphicsEffect(effect);
    view.setGraphicsEffect(drawn); // which owns it from now on
    auto* const animation = new QVariantAnimation(&view);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    animation->setDuration(static_cast<int>(std::lround(duration.count() * 1000)));
    QObject::connect(animation, &QVariantAnimation::valueChanged, drawn,
                     [drawn](const QVariant& value) { drawn->setProgress(value.toDouble()); });
    QObject::connect(animation, &QVariantAnimation::finished, &view,
                     [&view, mine = QPointer<ShakeGraphicsEffect>(drawn)] {
                         if (mine != nullptr) {
                             view.setGraphicsEffect(nullptr);
                         }
                     });
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

} // namespace driftwood
