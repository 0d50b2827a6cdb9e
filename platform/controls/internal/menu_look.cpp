#include "platform/controls/internal/menu_look.hpp"

#include "platform/assets/system_font.hpp"
#include "platform/controls/menu.hpp"
#include "platform/controls/soft_shadow.hpp"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionMenuItem>

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

constexpr int edge = 10;        // from the item's edge to what stands in it
constexpr int stateColumn = 16; // a check mark and the room behind it
constexpr int iconSize = 16;    // of an item's image
constexpr int iconGap = 8;      // behind it
constexpr int shortcutGap = 28; // before a shortcut
constexpr int arrowColumn = 18; // for the arrow of a submenu
constexpr int separatorHeight = 9;
constexpr int headerHeight = 24;
constexpr double itemRadius = 4;
constexpr double shadowStrength = 0.55;

QColor mixed(const QColor& a, const QColor& b, float share) {
    const float rest = 1 - share;
    return QColor::fromRgbF(a.redF() * rest + b.redF() * share,
                            a.greenF() * rest + b.greenF() * share,
                            a.blueF() * rest + b.blueF() * share);
}

QFont headerFont(const QFont& font) {
    QFont header = font;
    header.setPixelSize(std::max(9, font.pixelSize() > 0 ? font.pixelSize() - 2 : 10));
    header.setWeight(QFont::DemiBold);
    return header;
}

/// The parts of an item, from the leading edge.
struct Columns {
    int state = 0;
    int icon = 0;
    [[nodiscard]] int title() const { return edge + state + icon; }
};

Columns columnsOf(const QWidget& menu) {
    Columns columns;
    for (const QAction* const action : menu.actions()) {
        const auto* const item = qobject_cast<const MenuItem*>(action);
        if (action->isVisible() && !action->isSeparator()) {
            if (item != nullptr ? item->hasStateColumn() : action->isCheckable()) {
                columns.state = stateColumn;
            }
            if (!action->icon().isNull()) {
                columns.icon = iconSize + iconGap;
            }
        }
        if (columns.state != 0 && columns.icon != 0) {
            break;
        }
    }
    return columns;
}

void paintState(QPainter& painter, const QRectF& place, const QStyleOptionMenuItem& option,
                const MenuItem* item, const QColor& ink) {
    const bool isMixed = item != nullptr && item->state() == StateValue::mixed;
    if (item != nullptr) {
        if (const QIcon image = item->stateImage(); !image.isNull()) {
            image.paint(&painter, place.toRect());
            return;
        }
    }
    if (!isMixed && !option.checked) {
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF middle = place.center();
    if (isMixed) {
        painter.drawLine(middle - QPointF(3.5, 0), middle + QPointF(3.5, 0));
    } else if (option.checkType == QStyleOptionMenuItem::Exclusive) {
        painter.setBrush(ink);
        painter.drawEllipse(middle, 1.75, 1.75);
    } else {
        painter.drawPolyline(QPolygonF({middle + QPointF(-3.75, 0.25), middle + QPointF(-1.25, 3),
                                        middle + QPointF(3.75, -3.25)}));
    }
}

void paintChevron(QPainter& painter, QPointF middle, QPointF along, const QColor& ink) {
    const QPointF across(-along.y(), along.x());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF(
        {middle - along * 0.5 - across, middle + along * 0.5, middle - along * 0.5 + across}));
}

void paintSeparator(QPainter& painter, const QStyleOptionMenuItem& option) {
    const QPalette& palette = option.palette;
    if (option.text.isEmpty()) {
        const qreal scale = painter.device()->devicePixelRatioF();
        const double middle = std::floor(QRectF(option.rect).center().y() * scale) / scale;
        painter.fillRect(
            QRectF(option.rect.left() + edge - 4, middle, option.rect.width() - 2 * (edge - 4), 1),
            mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.20F));
        return;
    }
    painter.setFont(headerFont(option.font));
    painter.setPen(palette.color(QPalette::PlaceholderText));
    QRect place = option.rect.adjusted(edge, 0, -edge, -3);
    painter.drawText(place,
                     static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft)) |
                         Qt::AlignBottom | Qt::TextSingleLine | Qt::TextHideMnemonic,
                     option.text);
}

} // namespace

QPalette menuPalette() {
    static const QPalette shared = [] {
        const QColor ground(0x26, 0x23, 0x2d);
        const QColor text(0xd8, 0xd6, 0xdc);
        QPalette palette(ground, ground);
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::PlaceholderText, QColor(0x98, 0x96, 0x9d));
        palette.setColor(QPalette::Highlight, QColor(0x77, 0x61, 0xdd));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(role, text);
            palette.setColor(QPalette::Disabled, role, QColor(0x6e, 0x6c, 0x74));
        }
        return palette;
    }();
    return shared;
}

QFont menuFont() {
    static const QFont font = systemFont(13, QFont::Medium, FontDesign::rounded);
    return font;
}

QMargins menuShadowMargins() {
    return {12, 8, 12, 18};
}

int menuTitleStart(const QWidget& menu) {
    return menuPadding + columnsOf(menu).title();
}

std::optional<int> menuMetric(QStyle::PixelMetric metric, const QWidget& menu) {
    switch (metric) {
    case QStyle::PM_MenuHMargin:
    case QStyle::PM_MenuVMargin:
        return menuPadding;
    case QStyle::PM_MenuPanelWidth:
    case QStyle::PM_MenuDesktopFrameWidth:
    case QStyle::PM_MenuTearoffHeight:
        return 0;
    case QStyle::PM_MenuScrollerHeight:
        return 18;
    case QStyle::PM_SmallIconSize:
        return iconSize;
    case QStyle::PM_SubMenuOverlap:
        // From the item; the panels lie on each other by 2, whatever their shadows need.
        return menuPadding - 2 - menu.contentsMargins().left();
    default:
        return std::nullopt;
    }
}

QSize menuItemSize(const QStyleOptionMenuItem& option, QSize text) {
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        if (option.text.isEmpty()) {
            return {1, separatorHeight}; // the toolkit leaves out what is empty
        }
        const QFontMetrics metrics(headerFont(option.font));
        return {2 * edge + metrics.horizontalAdvance(option.text), headerHeight};
    }
    int width = text.width();
    const auto* const item = qobject_cast<const MenuItem*>(option.styleObject);
    if (item != nullptr && item->counterpart() != nullptr) {
        width = std::max(width, option.fontMetrics.horizontalAdvance(item->counterpart()->title()));
    }
    Columns columns;
    if (option.menuHasCheckableItems || (item != nullptr && item->hasStateColumn())) {
        columns.state = stateColumn;
    }
    if (option.maxIconWidth > 0) {
        columns.icon = iconSize + iconGap;
    }
    width += columns.title() + edge;
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu) {
        width += arrowColumn;
    }
    if (option.text.contains(QLatin1Char('\t'))) {
        width += shortcutGap;
    }
    return {width, menuItemHeight};
}

void paintMenuPanel(QPainter& painter, const QWidget& menu) {
    const QPalette& palette = menu.palette();
    const QColor ground = palette.color(QPalette::Window);
    const QColor rim = mixed(ground, palette.color(QPalette::WindowText), 0.22F);
    const QMargins margins = menu.contentsMargins();
    const QRectF panel = QRectF(menu.rect().marginsRemoved(margins));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!margins.isNull()) {
        painter.drawImage(QPointF(), softShadow(panel.size().toSize(), margins,
                                                menu.devicePixelRatioF(), shadowStrength));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(rim);
    painter.drawRoundedRect(panel, menuRadius, menuRadius);
    painter.setBrush(ground);
    painter.drawRoundedRect(panel.adjusted(1, 1, -1, -1), menuRadius - 1, menuRadius - 1);
    painter.restore();
}

void paintMenuItem(QPainter& painter, const QStyleOptionMenuItem& option) {
    if (option.menuItemType == QStyleOptionMenuItem::EmptyArea) {
        return;
    }
    painter.save();
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        paintSeparator(painter, option);
        painter.restore();
        return;
    }
    const auto* const item = qobject_cast<const MenuItem*>(option.styleObject);
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool isActive = option.state.testFlag(QStyle::State_Selected) && isEnabled;
    const auto group = isEnabled ? QPalette::Active : QPalette::Disabled;
    QColor ink =
        option.palette.color(group, isActive ? QPalette::HighlightedText : QPalette::WindowText);
    QColor faint = isEnabled ? option.palette.color(QPalette::PlaceholderText) : ink;
    if (isActive) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(option.palette.color(QPalette::Highlight));
        painter.drawRoundedRect(option.rect, itemRadius, itemRadius);
        faint = ink;
        faint.setAlphaF(0.8F);
    }
    Columns columns;
    if (option.menuHasCheckableItems || (item != nullptr && item->hasStateColumn())) {
        columns.state = stateColumn;
    }
    if (option.maxIconWidth > 0) {
        columns.icon = iconSize + iconGap;
    }
    const auto visual = [&](const QRect& rect) {
        return QStyle::visualRect(option.direction, option.rect, rect);
    };
    const QRect& all = option.rect;
    if (columns.state != 0) {
        paintState(painter,
                   visual(QRect(all.left() + edge - 5, all.top(), stateColumn, all.height())),
                   option, item, ink);
    }
    if (!option.icon.isNull()) {
        const QRect place(all.left() + edge + columns.state,
                          all.top() + (all.height() - iconSize) / 2, iconSize, iconSize);
        option.icon.paint(&painter, visual(place), Qt::AlignCenter,
                          !isEnabled ? QIcon::Disabled
                          : isActive ? QIcon::Selected
                                     : QIcon::Normal);
    }
    const int trailing = option.menuItemType == QStyleOptionMenuItem::SubMenu ? arrowColumn : 0;
    const QRect title(all.left() + columns.title(), all.top(),
                      all.width() - columns.title() - edge - trailing, all.height());
    const auto drawLine = [&](const QString& text, Qt::AlignmentFlag side) {
        painter.drawText(visual(title),
                         static_cast<int>(QStyle::visualAlignment(option.direction, side)) |
                             Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextHideMnemonic |
                             Qt::TextDontClip,
                         text);
    };
    const auto tab = option.text.indexOf(QLatin1Char('\t'));
    painter.setFont(option.font);
    painter.setPen(ink);
    drawLine(tab < 0 ? option.text : option.text.left(tab), Qt::AlignLeft);
    if (tab >= 0) {
        painter.setPen(faint);
        drawLine(option.text.mid(tab + 1), Qt::AlignRight);
    }
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const QRectF place(
            visual(QRect(all.right() - arrowColumn, all.top(), arrowColumn, all.height())));
        const double side = option.direction == Qt::RightToLeft ? -4 : 4;
        paintChevron(painter, place.center(), {side, 0}, faint);
    }
    painter.restore();
}

void paintMenuScroller(QPainter& painter, const QStyleOption& scroller) {
    const bool isDown = scroller.state.testFlag(QStyle::State_DownArrow);
    painter.save();
    painter.fillRect(scroller.rect, scroller.palette.color(QPalette::Window));
    paintChevron(painter, QRectF(scroller.rect).center(), {0, isDown ? 4.0 : -4.0},
                 scroller.palette.color(QPalette::PlaceholderText));
    painter.restore();
}

} // namespace platform
