#include "driftwood/text/simple_text_view_popover.hpp"

#include "driftwood/bridges/bundle_asset_source.hpp"
#include "platform/controls/accessible_role.hpp"
#include "platform/controls/desktop_composition.hpp"

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPropertyAnimation>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace driftwood {
namespace {

constexpr int pinned = 12;         // from the bubble's edges to its text
constexpr int shadowReach = 10;    // around the bubble
constexpr double widestText = 320; // then it goes on in another line
constexpr int fadeTime = 120;      // ms

core::Rect toCore(const QRect& rect) {
    return platform::toRect(QRectF(rect));
}

QPainterPath bubble(const PopoverPlacement& at) {
    const QRectF body = platform::toQRectF(at.body);
    QPainterPath path;
    path.addRoundedRect(body, popoverCorner, popoverCorner);
    const QPointF tip(at.tip.x, at.tip.y);
    constexpr double half = popoverArrowWidth * 0.5;
    const bool isAcross = at.edge == RectEdge::minY || at.edge == RectEdge::maxY;
    // The foot lies a little within the bubble, so that both are one.
    const double base = at.edge == RectEdge::maxY   ? body.top() + 1
                        : at.edge == RectEdge::minY ? body.bottom() - 1
                        : at.edge == RectEdge::maxX ? body.left() + 1
                                                    : body.right() - 1;
    QPainterPath arrow(tip);
    arrow.lineTo(isAcross ? QPointF(tip.x() + half, base) : QPointF(base, tip.y() + half));
    arrow.lineTo(isAcross ? QPointF(tip.x() - half, base) : QPointF(base, tip.y() - half));
    arrow.closeSubpath();
    return path.united(arrow);
}

/// What of a view can be seen of a rectangle in it, in the coordinates of the desktop.
QRect visiblePart(const QWidget& view, QRect rect) {
    const QWidget* at = &view;
    for (; !at->isWindow(); at = at->parentWidget()) {
        rect = rect.intersected(at->rect()).translated(at->pos());
    }
    return rect.intersected(at->rect()).translated(at->mapToGlobal(QPoint()));
}

} // namespace

SimpleTextViewPopover::SimpleTextViewPopover()
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
                           Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput),
      contentTextField_(new platform::TextField(this)),
      follower_(*this, style(), [](QWidget& widget, BaseStyle&) {
          static_cast<SimpleTextViewPopover&>(widget).followStyle();
      }) {
    platform::setAccessibleRole(*this, QAccessible::AlertMessage);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
    setFocusPolicy(Qt::NoFocus);
    contentTextField_->setSelectable(false);
    followStyle();
}

void SimpleTextViewPopover::followStyle() {
    QPalette palette = contentTextField_->palette();
    palette.setColor(QPalette::ButtonText, toQColor(style().textColor()));
    contentTextField_->setPalette(palette);
    contentTextField_->textCell().setFont(toQFont(style().font()));
    sizeToFit();
}

void SimpleTextViewPopover::sizeToFit() {
    const QScreen* const screen =
        positioningView_ != nullptr ? positioningView_->screen() : this->screen();
    const double room = screen != nullptr ? screen->availableSize().width() - 4.0 * pinned : 0;
    contentTextField_->setPreferredMaxLayoutWidth(0);
    core::Size size = contentTextField_->intrinsicContentSize();
    if (const double widest = std::max(1.0, std::min(widestText, room)); size.width > widest) {
        contentTextField_->setPreferredMaxLayoutWidth(widest);
        size = contentTextField_->intrinsicContentSize();
    }
    const core::Size& padding = style().padding();
    contentSize_ = {size.width + 2 * padding.width, size.height + 2 * padding.height};
    setAccessibleName(contentTextField_->stringValue());
    if (isShown()) {
        place();
    } else if (isPictured_) {
        arrange(placePopover({{0, -popoverArrowLength}, {contentSize_.width, 0}}, contentSize_,
                             {{0, -1000}, {contentSize_.width, 2000}}, RectEdge::maxY));
    }
}

void SimpleTextViewPopover::showRelativeToRect(const QRect& rect, QWidget& view,
                                               RectEdge preferredEdge) {
    if (positioningView_ != &view) {
        follow(&view);
    }
    positioningView_ = &view;
    positioningRect_ = rect;
    preferredEdge_ = preferredEdge;
    sizeToFit();
}

void SimpleTextViewPopover::close() {
    follow(nullptr);
    positioningView_ = nullptr;
    hide();
}

void SimpleTextViewPopover::picture(QWidget& in) {
    setParent(&in, Qt::Widget);
    isPictured_ = true;
    sizeToFit();
}

void SimpleTextViewPopover::follow(QWidget* view) {
    for (const QPointer<QWidget>& widget : followed_) {
        if (widget != nullptr) {
            widget->removeEventFilter(this);
        }
    }
    followed_.clear();
    for (QWidget* at = view; at != nullptr; at = at->isWindow() ? nullptr : at->parentWidget()) {
        at->installEventFilter(this);
        followed_.emplace_back(at);
    }
}

bool SimpleTextViewPopover::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::ParentChange:
        follow(positioningView_);
        place();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::WindowStateChange:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        // Of all that hear of the window, the window itself is enough.
        if ((event->type() != QEvent::WindowActivate &&
             event->type() != QEvent::WindowDeactivate) ||
            static_cast<QWidget*>(object)->isWindow()) {
            place();
        }
        break;
    case QEvent::Destroy:
        close();
        break;
    default:
        break;
    }
    return false;
}

void SimpleTextViewPopover::place() {
    QWidget* const view = positioningView_;
    if (view == nullptr) {
        return;
    }
    QWidget* const window = view->window();
    const QRect anchor = visiblePart(*view, positioningRect_);
    if (anchor.isEmpty() || !view->isVisible() || window->isMinimized() ||
        !window->isActiveWindow()) {
        hide();
        return;
    }
    const QRect room = view->screen()->availableGeometry();
    arrange(placePopover(toCore(anchor), contentSize_, toCore(room), preferredEdge_));
    if (!isVisible()) {
        winId(); // a window by now
        windowHandle()->setTransientParent(window->windowHandle());
        const bool fades = animates_ && platform::desktopComposites();
        if (fades) {
            setWindowOpacity(0);
        }
        show();
        if (fades) {
            auto* const fade = new QPropertyAnimation(this, "windowOpacity", this);
            fade->setDuration(fadeTime);
            fade->setEndValue(1.0);
            fade->start(QAbstractAnimation::DeleteWhenStopped);
        }
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void SimpleTextViewPopover::arrange(const PopoverPlacement& placement) {
    const bool hasShadow = isPictured_ || platform::desktopComposites();
    const QRectF shape = bubble(placement).boundingRect();
    const int margin = hasShadow ? shadowReach : 0;
    const QRect frame = shape.toAlignedRect().adjusted(-margin, -margin, margin, margin);
    placement_ = placement;
    placement_.body.origin.x -= frame.x();
    placement_.body.origin.y -= frame.y();
    placement_.tip.x -= frame.x();
    placement_.tip.y -= frame.y();
    if (isPictured_) {
        resize(frame.size());
    } else {
        setGeometry(frame);
    }
    const QRect body = platform::toQRectF(placement_.body).toRect();
    contentTextField_->setGeometry(body.adjusted(pinned, pinned, -pinned, -pinned));
    if (hasShadow) {
        clearMask();
    } else {
        setMask(bubble(placement_).toFillPolygon().toPolygon());
    }
    update();
}

void SimpleTextViewPopover::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath shape = bubble(placement_);
    if (isPictured_ || platform::desktopComposites()) {
        painter.setBrush(Qt::NoBrush);
        for (int reach = shadowReach; reach > 0; reach -= 2) { // soft by layers
            painter.setPen(
                QPen(QColor(0, 0, 0, 14), 2.0 * reach, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawPath(shape.translated(0, 1));
        }
    }
    const QColor ground = toQColor(style().backgroundColor());
    painter.setPen(QPen(ground.lighter(190), 1));
    painter.setBrush(ground.lighter(130));
    painter.drawPath(shape);
}

SimpleTextViewPopover& SimpleTextViewPopoverController::popover() {
    if (popover_ == nullptr) {
        popover_ = std::make_unique<SimpleTextViewPopover>();
    }
    return *popover_;
}

void SimpleTextViewPopoverController::showMessage(const std::optional<QString>& message,
                                                  QWidget& relativeTo, RectEdge edge) {
    const bool wasVisible = popover().isVisible();
    popover().contentTextField().setStringValue(message.value_or(QString()));
    popover().showRelativeToRect(relativeTo.rect(), relativeTo, edge);
    if (wasVisible) { // opening it is told by itself
        QAccessibleEvent alert(&popover(), QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void SimpleTextViewPopoverController::closePopover(QObject* /*sender*/) {
    if (popover_ != nullptr) {
        popover_->close();
    }
}

void SimpleTextViewPopoverController::update(const std::optional<QString>& message, bool isFocused,
                                             QWidget& field) {
    if (!isFocused || !message) {
        if (isShown()) {
            closePopover();
        }
    } else if (!isShown()) {
        showMessage(message, field, RectEdge::maxY);
    } else if (popover().contentTextField().stringValue() != *message) {
        popover().contentTextField().setStringValue(*message);
        popover().sizeToFit();
        QAccessibleEvent alert(&popover(), QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

} // namespace driftwood
