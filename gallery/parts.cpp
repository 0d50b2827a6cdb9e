#include "gallery/parts.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "platform/assets/system_font.hpp"

#include <QPainter>
#include <QVBoxLayout>

namespace gallery {

QColor kitColor(const char* name) {
    return driftwood::resourceBundle().assets().color(QString::fromLatin1(name));
}

QLabel* makeLabel(const QString& text, double size, const char* color, QFont::Weight weight) {
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setFont(platform::systemFont(size, weight, platform::FontDesign::rounded));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, kitColor(color));
    label->setPalette(palette);
    return label;
}

Card::Card(const QString& heading) : column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(20, 16, 20, 20);
    column_->setSpacing(12);
    column_->addWidget(makeLabel(heading, 12, "Grey 60%", QFont::Medium));
}

void Card::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kitColor("Grey 20%"), 1));
    painter.setBrush(kitColor("Background/Normal"));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
}

} // namespace gallery
