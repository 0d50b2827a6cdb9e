#include "platform/controls/cell_control.hpp"

#include "platform/controls/accessible_factory.hpp"
#include "platform/controls/cell_control_accessible.hpp"
#include "platform/controls/focus_ring.hpp"
#include "platform/controls/main_thread.hpp"
#include "platform/controls/press_input.hpp"
#include "platform/controls/qt_input.hpp"

#include <QEvent>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

/// Draws through a picture of the same device pixels, so that what overlaps fades as one.
template<class Draw>
void drawAsGroup(QPainter& painter, const QRectF& rect, double opacity, Draw draw) {
    const QTransform toDevice = painter.deviceTransform();
    const QRect pixels = toDevice.mapRect(rect).toAlignedRect();
    const qreal scale = toDevice.m11();
    if (opacity <= 0 || pixels.isEmpty()) {
        return;
    }
    QImage group(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    group.fill(Qt::transparent);
    group.setDevicePixelRatio(scale);
    const QPointF place = toDevice.inverted().map(QPointF(pixels.topLeft()));
    {
        QPainter inner(&group);
        inner.setFont(painter.font());
        inner.translate(-place);
        draw(inner);
    }
    painter.setOpacity(painter.opacity() * opacity);
    painter.drawImage(place, group);
}

} // namespace

CellControl::CellControl(std::unique_ptr<Cell> cell, QWidget* parent)
    : QWidget(parent), cell_(std::move(cell)) {
    checkMainThread();
    installAccessible<CellControl>();
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true); // to notice that the mouse button is up without having been released
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

CellControl::~CellControl() {
    retire();
}

void CellControl::cellDidChange() {
    checkMainThread();
    updateGeometry();
    update();
}

void CellControl::setCell(std::unique_ptr<Cell> cell) {
    const CellState before = cell_->cellState();
    cell_ = std::move(cell);
    setCellState(before);
    cellDidChange();
}

void CellControl::setCellState(const CellState& state) {
    const CellState before = cell_->cellState();
    cell_->setCellState(state);
    update();
    cellStateDidChange(before);
}

void CellControl::setHighlighted(bool isHighlighted, HighlightOwner owner) {
    checkMainThread();
    const auto flag = static_cast<std::uint8_t>(owner);
    const bool was = highlightOwners_ != 0;
    highlightOwners_ = static_cast<std::uint8_t>(isHighlighted ? highlightOwners_ | flag
                                                               : highlightOwners_ & ~flag);
    const bool is = highlightOwners_ != 0;
    if (was != is) {
        CellState next = cell_->cellState();
        next.isHighlighted = is;
        setCellState(next);
        highlightDidChange(is);
    }
}

void CellControl::setAlphaValue(double alpha) {
    checkMainThread();
    const auto clamped = static_cast<float>(std::clamp(alpha, 0.0, 1.0));
    if (clamped != alphaValue_) {
        alphaValue_ = clamped;
        update();
    }
}

QSize CellControl::sizeHint() const {
    checkMainThread();
    ensurePolished();
    const core::Size size = intrinsicContentSize();
    const core::EdgeInsets insets = alignmentRectInsets();
    return {static_cast<int>(std::ceil(size.width + insets.left + insets.right)),
            static_cast<int>(std::ceil(size.height + insets.top + insets.bottom))};
}

bool CellControl::showsFocusRing() const {
    return isRingPictured_ || (hasFocus() && isActiveWindow());
}

void CellControl::setFocusRingPictured(bool isPictured) {
    isRingPictured_ = isPictured;
    update();
}

QColor CellControl::focusRingColor() const {
    return palette().color(QPalette::Active, QPalette::Highlight);
}

core::Rect CellControl::bounds() const {
    return {{0, 0}, {static_cast<double>(width()), static_cast<double>(height())}};
}

QAccessibleInterface* CellControl::makeAccessible() {
    return new CellControlAccessible(*this);
}

void CellControl::accessibleSelectionDidChange() {
    if (QAccessible::isActive()) {
        QAccessibleEvent event(this, QAccessible::Selection); // of a changed state nobody is told
        QAccessible::updateAccessibility(&event);
    }
}

bool CellControl::event(QEvent* event) {
    checkMainThread();
    const EventDispatch dispatch(toInputEvent(*event));
    return handleEvent(event); // may destroy the control
}

bool CellControl::handleEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        update(); // the focus ring
        break;
    case QEvent::EnabledChange: {
        CellState next = cell_->cellState();
        next.isEnabled = isEnabled();
        setCellState(next);
        break;
    }
    default:
        break;
    }
    const bool isTakenAway = endsTracking(*event, isTrackingKey());
    const bool isDealtWith = QWidget::event(event); // one of the events deletes the control
    if (isTakenAway) {
        cancelTracking(); // may destroy the control
    }
    return isDealtWith;
}

void CellControl::paint(QPainter& painter) const {
    const core::Rect frame = bounds();
    // Disabled, a cell fades its images itself: the colour is that of the active window.
    cell_->draw(frame, {painter, palette().color(QPalette::Active, QPalette::ButtonText),
                        layoutDirection() == Qt::RightToLeft});
    if (showsFocusRing()) {
        paintFocusRing(painter, toQRectF(cell_->focusRingMaskBounds(frame)), focusRingColor());
    }
}

void CellControl::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (alphaValue_ < 1) {
        drawAsGroup(painter, QRectF(rect()), alphaValue_,
                    [this](QPainter& inner) { paint(inner); });
    } else {
        paint(painter);
    }
}

} // namespace platform
