#include "platform/controls/kit_style.hpp"

#include "platform/controls/internal/menu_look.hpp"

#include <QChildEvent>
#include <QMenu>
#include <QStyleOptionMenuItem>

namespace platform {
namespace {

constexpr const char* adoptedProperty = "_adoptsKitStyle";

/// Gives the style to what a widget makes later. One for all of them.
class Adopter final : public QObject {
  public:
    static Adopter& shared() {
        static Adopter adopter;
        return adopter;
    }

    bool eventFilter(QObject* /*object*/, QEvent* event) override {
        // Not when it is added: then it is no more than a widget yet.
        if (event->type() == QEvent::ChildPolished) {
            if (auto* const child =
                    qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child())) {
                adoptKitStyle(*child);
            }
        }
        return false;
    }
};

bool isMenu(const QWidget* widget) {
    return qobject_cast<const QMenu*>(widget) != nullptr;
}

} // namespace

KitStyle::KitStyle() : QProxyStyle(QStringLiteral("fusion")) {}

KitStyle& KitStyle::shared() {
    static KitStyle style;
    return style;
}

void adoptKitStyle(QWidget& widget) {
    if (widget.property(adoptedProperty).toBool()) {
        return;
    }
    widget.setProperty(adoptedProperty, true);
    widget.setStyle(&KitStyle::shared());
    widget.installEventFilter(&Adopter::shared());
    for (QObject* const child : widget.children()) {
        if (auto* const below = qobject_cast<QWidget*>(child)) {
            adoptKitStyle(*below);
        }
    }
}

int KitStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                          const QWidget* widget) const {
    if (isMenu(widget)) {
        if (const auto answer = menuMetric(metric, *widget)) {
            return *answer;
        }
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int KitStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                        QStyleHintReturn* data) const {
    if (isMenu(widget)) {
        switch (hint) {
        case SH_Menu_Scrollable:
        case SH_Menu_SupportsSections:
        case SH_Menu_KeyboardSearch: // type-ahead; titles have no marked keys
        case SH_Menu_MouseTracking:
        case SH_Menu_SloppySubMenus:
            return 1;
        case SH_MenuBar_AltKeyNavigation: // Alt shows alternates
        case SH_Menu_AllowActiveAndDisabled:
        case SH_Menu_FillScreenWithScroll:
        case SH_Menu_FlashTriggeredItem:
            return 0;
        default:
            break;
        }
    }
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QSize KitStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                 const QWidget* widget) const {
    if (type == CT_MenuItem && isMenu(widget)) {
        if (const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            return menuItemSize(*item, size);
        }
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

void KitStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                             QPainter* painter, const QWidget* widget) const {
    if (isMenu(widget) && (element == PE_PanelMenu || element == PE_FrameMenu)) {
        if (element == PE_PanelMenu) {
            paintMenuPanel(*painter, *widget);
        }
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void KitStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const {
    if (isMenu(widget)) {
        const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (element == CE_MenuItem && item != nullptr) {
            paintMenuItem(*painter, *item);
            return;
        }
        if (element == CE_MenuScroller) {
            paintMenuScroller(*painter, *option);
            return;
        }
        if (element == CE_MenuEmptyArea) {
            return; // the panel is there
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

} // namespace platform
