#pragma once

#include <QFont>
#include <QMargins>
#include <QPalette>
#include <QSize>
#include <QStyle>

#include <optional>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;
class QWidget;

namespace platform {

// How menus look, in points. Colours come from the palette of what is painted, so that a menu of
// the toolkit's takes those of its program.

inline constexpr int menuRadius = 6;
inline constexpr int menuPadding = 5; ///< between the rim and the items
inline constexpr int menuItemHeight = 24;

[[nodiscard]] QPalette menuPalette();
[[nodiscard]] QFont menuFont();
/// What a menu needs around its panel for the shadow.
[[nodiscard]] QMargins menuShadowMargins();
/// Where the titles of a menu begin, from the leading edge of the panel.
[[nodiscard]] int menuTitleStart(const QWidget& menu);

[[nodiscard]] std::optional<int> menuMetric(QStyle::PixelMetric metric, const QWidget& menu);
/// `text` is the size of the title.
[[nodiscard]] QSize menuItemSize(const QStyleOptionMenuItem& item, QSize text);

void paintMenuPanel(QPainter& painter, const QWidget& menu);
void paintMenuItem(QPainter& painter, const QStyleOptionMenuItem& item);
void paintMenuScroller(QPainter& painter, const QStyleOption& scroller);

} // namespace platform
