#include "gallery/shaders/visual_stage.hpp"

#include <QPainter>

namespace gallery {
namespace {

constexpr QColor ground(0x15, 0x11, 0x1f); // of the program's window
constexpr double radius = 6;
constexpr int cornerRoom = 2; // a rectangle that is so much smaller lies within the round corners

} // namespace

VisualStage::VisualStage(int height) {
    setFixedHeight(height);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, ground); // which visuals fade into
    setPalette(palette);
}

void VisualStage::show(QWidget* view) {
    delete view_;
    view_ = view;
    view_->setParent(this);
    place();
    view_->show();
}

void VisualStage::place() {
    view_->setGeometry(rect().adjusted(cornerRoom, cornerRoom, -cornerRoom, -cornerRoom));
}

void VisualStage::resizeEvent(QResizeEvent* /*event*/) {
    if (view_ != nullptr) {
        place();
    }
}

void VisualStage::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()), radius, radius);
}

} // namespace gallery
