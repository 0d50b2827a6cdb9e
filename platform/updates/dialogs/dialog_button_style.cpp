#include "platform/updates/dialogs/dialog_button_style.hpp"

#include "platform/ui/system_font.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace platform {
namespace {

constexpr double radius = 4;
constexpr double margin = 16; // between label and edge
constexpr double leastWidth = 96;

QLinearGradient falling(const QRectF& body, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient(body.topLeft(), body.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

} // namespace

QFont DialogButtonStyle::font() const {
    return systemFont(12, QFont::Bold, FontDesign::rounded);
}

void DialogButtonStyle::paint(QPainter& painter, const QRectF& body,
                              const ButtonConfiguration& configuration) const {
    const QPalette palette = QApplication::palette();
    const bool isProminent = prominence_ == Prominence::prominent && configuration.isEnabled;
    const QColor base = palette.color(isProminent ? QPalette::Highlight : QPalette::Button);
    const bool isPressed = configuration.isPressed;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // A dark rim, the face, and light from above that a pressed face does not get.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 150));
    painter.drawRoundedRect(body, radius, radius);
    const QRectF face = body.adjusted(1, 1, -1, -1);
    painter.setBrush(isPressed ? falling(face, base.darker(170), base.darker(145))
                               : falling(face, base.lighter(isProminent ? 108 : 138),
                                         base.darker(isProminent ? 118 : 100)));
    painter.drawRoundedRect(face, radius - 1, radius - 1);
    if (!isPressed) {
        painter.setPen(QPen(QColor(255, 255, 255, isProminent ? 70 : 34), 1));
        painter.drawLine(QPointF(face.left() + radius, face.top() + 0.5),
                         QPointF(face.right() - radius, face.top() + 0.5));
    }
    QColor ink = isProminent ? QColor(Qt::white) : palette.color(QPalette::ButtonText);
    if (!configuration.isEnabled || isPressed) {
        ink.setAlphaF(isProminent ? 0.75F : 0.55F);
    }
    painter.setPen(ink);
    painter.setFont(font());
    painter.drawText(body, Qt::AlignCenter | Qt::TextSingleLine, configuration.label);
    painter.restore();
}

Button* makeDialogButton(const QString& label, DialogButtonStyle::Prominence prominence,
                         QWidget* parent) {
    const auto style = std::make_shared<DialogButtonStyle>(prominence);
    auto* const button = new Button(label, style, parent);
    button->setLabelWidth(
        std::max(leastWidth, QFontMetricsF(style->font()).horizontalAdvance(label) + 2 * margin));
    return button;
}

} // namespace platform
