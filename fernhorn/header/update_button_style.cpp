#include "fernhorn/header/update_button_style.hpp"

#include "fernhorn/controls/button_face.hpp"
#include "fernhorn/fonts/fern_font.hpp"

#include <QFontMetricsF>
#include <QPainter>

namespace fernhorn {

QFont UpdateButtonStyle::font() const {
    return CustomFontModifier{FernFont::dosisMedium, labelSize}.resolved();
}

double UpdateButtonStyle::height() const {
    const QMarginsF padding = labelPadding();
    return QFontMetricsF(font()).height() + padding.top() + padding.bottom();
}

void UpdateButtonStyle::paint(QPainter& painter, const QRectF& body,
                              const platform::ButtonConfiguration& configuration) const {
    constexpr double radius = 4;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(painter.opacity() * (configuration.isPressed ? 0.8 : 1));
    painter.setPen(Qt::NoPen);
    painter.setBrush(kitColor("updateBackground"));
    painter.drawRoundedRect(body, radius, radius);
    painter.setPen(kitColor("background"));
    painter.setFont(font());
    const QRectF place = body.marginsRemoved(labelPadding());
    painter.drawText(place.translated(0, -capitalsLift(font())),
                     Qt::AlignCenter | Qt::TextSingleLine, configuration.label);
    painter.restore();
}

} // namespace fernhorn
