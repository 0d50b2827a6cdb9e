#include "platform/updates/dialogs/dialog_controls.hpp"

#include "platform/ui/focus_ring.hpp"
#include "platform/ui/system_font.hpp"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

#include <algorithm>

namespace platform {
namespace {

constexpr int boxSize = 16;
constexpr int boxGap = 8; // to the text

} // namespace

DialogCheckBox::DialogCheckBox(const QString& text, QWidget* parent) : QCheckBox(text, parent) {
    setFont(systemFont(13, QFont::Normal));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DialogCheckBox::sizeHint() const {
    const QFontMetrics metrics(font());
    return {boxSize + boxGap + metrics.horizontalAdvance(text()) + 2 * ringReach,
            std::max(boxSize, metrics.height()) + 2 * ringReach};
}

void DialogCheckBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect inside = rect().adjusted(ringReach, ringReach, -ringReach, -ringReach);
    const QRect place = QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter,
                                            {boxSize, boxSize}, inside);
    const QRectF box = QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor light = palette().color(QPalette::Highlight);
    painter.setPen(QPen(isChecked() ? light.lighter(120) : QColor(255, 255, 255, 60), 1));
    painter.setBrush(isChecked() ? light : palette().color(QPalette::Base));
    if (isDown()) {
        painter.setBrush(painter.brush().color().darker(130));
    }
    painter.drawRoundedRect(box, 3, 3);
    if (isChecked()) {
        QPainterPath tick(box.topLeft() + QPointF(3.5, 8));
        tick.lineTo(box.topLeft() + QPointF(6.5, 11));
        tick.lineTo(box.topLeft() + QPointF(11.5, 4.5));
        painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(tick);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(
        QStyle::visualRect(layoutDirection(), inside, inside.adjusted(boxSize + boxGap, 0, 0, 0)),
        static_cast<int>(Qt::AlignVCenter | Qt::TextSingleLine), text());
    if (hasFocus()) {
        paintFocusRing(painter, QRectF(rect()), 4, palette());
    }
}

void DialogScrollBar::paintEvent(QPaintEvent* /*event*/) {
    if (maximum() <= minimum()) {
        return;
    }
    const int whole = maximum() - minimum() + pageStep();
    const double length = std::max(24.0, static_cast<double>(height() - 8) * pageStep() / whole);
    const double top =
        4 + (height() - 8 - length) * (value() - minimum()) / (maximum() - minimum());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, isSliderDown() ? 110 : 62));
    painter.drawRoundedRect(QRectF((width() - 5) / 2.0, top, 5, length), 2.5, 2.5);
}

} // namespace platform
