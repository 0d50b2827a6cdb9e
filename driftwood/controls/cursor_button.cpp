#include "driftwood/controls/cursor_button.hpp"

#include "core/fatal.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"

#include <QGuiApplication>
#include <QPixmap>

namespace driftwood {
namespace {

const platform::ImageAsset& cycleCursorImage() {
    const auto* const image = resourceBundle().assets().image(QStringLiteral("cursor-cycle"));
    if (image == nullptr) {
        core::fatal("unable to find image named cursor-cycle");
    }
    return *image;
}

} // namespace

CursorButton::CursorButton(std::unique_ptr<platform::ButtonCell> cell, QWidget* parent)
    : CellButton(std::move(cell), parent), cursorImage_(&cycleCursorImage()) {}

CursorButton::~CursorButton() {
    popCursor();
}

void CursorButton::setCursorImage(const platform::ImageAsset& image) {
    cursorImage_ = &image;
    cursor_.reset();
}

void CursorButton::setCursorHotSpot(QPoint hotSpot) {
    cursorHotSpot_ = hotSpot;
    cursor_.reset();
}

const QCursor& CursorButton::buttonCursor() const {
    if (!cursor_) {
        const qreal scale = devicePixelRatioF();
        QPixmap pixmap = QPixmap::fromImage(cursorImage_->image(scale));
        pixmap.setDevicePixelRatio(scale);
        cursor_.emplace(pixmap, cursorHotSpot_.x(), cursorHotSpot_.y());
    }
    return *cursor_;
}

void CursorButton::pushCursor() {
    if (!isPushed_) {
        isPushed_ = true;
        QGuiApplication::setOverrideCursor(buttonCursor());
    }
}

void CursorButton::popCursor() {
    if (isPushed_) {
        isPushed_ = false;
        QGuiApplication::restoreOverrideCursor();
    }
}

bool CursorButton::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::Enter:
        pushCursor();
        break;
    case QEvent::Leave:
    case QEvent::Hide:
        popCursor();
        break;
    default:
        break;
    }
    return CellButton::event(event);
}

} // namespace driftwood
