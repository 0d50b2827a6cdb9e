#include "gallery/shaders/visual_stage.hpp"

namespace gallery {
namespace {

constexpr QColor ground(0x15, 0x11, 0x1f); // of the program's window

} // namespace

VisualStage::VisualStage(int height) {
    setFixedHeight(height);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, ground);
    setPalette(palette);
    setAutoFillBackground(true);
}

void VisualStage::show(QWidget* view) {
    delete view_;
    view_ = view;
    view_->setParent(this);
    view_->setGeometry(rect());
    view_->show();
}

void VisualStage::resizeEvent(QResizeEvent* /*event*/) {
    if (view_ != nullptr) {
        view_->setGeometry(rect());
    }
}

} // namespace gallery
