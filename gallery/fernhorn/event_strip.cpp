#include "gallery/fernhorn/event_strip.hpp"

#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/fonts/fern_font.hpp"
#include "fernhorn/model/audio_parameter.hpp"
#include "gallery/parts.hpp"
#include "platform/controls/accessible_role.hpp"

#include <QPainter>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace gallery {

namespace {

using fernhorn::FernFont;
using Type = platform::AUParameterAutomationEventType;

constexpr int stripWidth = 232;
constexpr int footer = 24;

/// A touch is a lit disc, a release an empty ring, values a small bar.
void paintSign(QPainter& painter, QPointF center, Type type) {
    const QColor light = fernhorn::kitColor("updateBackground");
    switch (type) {
    case Type::touch:
        painter.setPen(Qt::NoPen);
        painter.setBrush(light);
        painter.drawEllipse(center, 4, 4);
        break;
    case Type::release:
        painter.setPen(QPen(light, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(center, 3.25, 3.25);
        break;
    case Type::value:
        painter.setPen(Qt::NoPen);
        painter.setBrush(fernhorn::kitColor("versionInfo"));
        painter.drawRoundedRect(QRectF(center.x() - 4, center.y() - 1, 8, 2), 1, 1);
        break;
    }
}

} // namespace

EventStrip::EventStrip(std::unique_ptr<EventLog> log, int rows, TextOf textOf)
    : log_(std::move(log)),
      rows_(rows),
      textOf_(std::move(textOf)),
      font_(fernhorn::CustomFontModifier{FernFont::dosisMedium, 13}.resolved()),
      smallFont_(fernhorn::CustomFontModifier{FernFont::dosisMedium, 11}.resolved()) {
    platform::setAccessibleRole(*this, QAccessible::Pane);
    setAccessibleName(QStringLiteral("Events of the parameter tree"));
    setFixedWidth(stripWidth);
    setLayoutDirection(Qt::LeftToRight); // a protocol
    log_->collect();
}

QSize EventStrip::sizeHint() const {
    return {stripWidth, rows_ * rowHeight + footer};
}

void EventStrip::refresh() {
    if (log_->collect()) {
        update();
    }
}

void EventStrip::showEvent(QShowEvent* /*event*/) {
    look_.start(lookInterval, this);
}

void EventStrip::hideEvent(QHideEvent* /*event*/) {
    look_.stop();
}

void EventStrip::timerEvent(QTimerEvent* event) {
    if (event->timerId() == look_.timerId()) {
        refresh();
    }
}

void EventStrip::paintLine(QPainter& painter, const QRectF& row, const EventLog::Line& line) const {
    const auto parameter = log_->tree().parameterWithAddress(line.event.address);
    const QRectF text = row.adjusted(18, 0, 0, 0);
    paintSign(painter, {row.left() + 5, row.center().y()}, line.event.eventType);
    painter.setFont(font_);
    painter.setPen(fernhorn::kitColor("buttonText"));
    const QString name = parameter ? QString::fromStdString(parameter->displayName()) : QString();
    QRectF written;
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, name, &written);
    if (line.count > 1) {
        painter.setFont(smallFont_);
        painter.setPen(fernhorn::kitColor("versionInfo"));
        painter.drawText(text.adjusted(written.width() + 8, 0, 0, 0),
                         Qt::AlignVCenter | Qt::AlignLeft, QStringLiteral("× %1").arg(line.count));
    }
    painter.setFont(font_);
    painter.setPen(fernhorn::kitColor("tabUnselected"));
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignRight, textOf_(line.event));
}

void EventStrip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto& lines = log_->lines();
    const auto shown = std::min(lines.size(), static_cast<std::size_t>(rows_));
    for (std::size_t i = 0; i < shown; ++i) {
        const QRectF row(0, static_cast<double>(i) * rowHeight, stripWidth, rowHeight);
        // Older lines withdraw.
        painter.setOpacity(1 - 0.65 * static_cast<double>(i) / rows_);
        paintLine(painter, row, lines[i]);
    }
    painter.setOpacity(1);
    painter.setFont(smallFont_);
    painter.setPen(fernhorn::kitColor("versionInfo"));
    auto count = log_->eventCount() == 1 ? QStringLiteral("1 event")
                                         : QStringLiteral("%L1 events").arg(log_->eventCount());
    if (log_->lostCount() > 0) {
        count += QStringLiteral(", %L1 not kept").arg(log_->lostCount());
    }
    painter.drawText(QRectF(0, rows_ * rowHeight, stripWidth, footer),
                     Qt::AlignBottom | Qt::AlignLeft, count);
}

} // namespace gallery
