#pragma once

#include <QProxyStyle>

namespace platform {

/// Draws the toolkit's own widgets in the look of the house: menus here, more of them by and by. It
/// is given to single widgets and never to the application, which in a plug-in is the host's. Main
/// thread.
class KitStyle final : public QProxyStyle {
    Q_OBJECT

  public:
    /// The one of the library; lives until the program ends or the library is unloaded.
    [[nodiscard]] static KitStyle& shared();

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

  private:
    KitStyle();
};

/// Gives the style to a widget and to everything that it has or will make: a combo box's line edit,
/// list and container, a menu's submenus. Asking again is nothing new. Main thread.
void adoptKitStyle(QWidget& widget);

} // namespace platform
