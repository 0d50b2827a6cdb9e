#pragma once

#include "platform/controls/abstract_button.hpp"

#include <QFont>
#include <QMarginsF>

#include <memory>

namespace platform {

/// What a button style paints.
struct ButtonConfiguration {
    QString label;
    bool isPressed = false;
    bool isEnabled = true;
    bool isHovered = false; ///< the pointer is over it, and it is enabled
};

/// How buttons look: immutable, shared by any number of them. Main thread.
class ButtonStyle {
  public:
    virtual ~ButtonStyle() = default;
    [[nodiscard]] virtual QFont font() const = 0;
    /// The height of the body in points; its width is that of the label and its padding.
    [[nodiscard]] virtual double height() const = 0;
    /// Room around the label within the body.
    [[nodiscard]] virtual QMarginsF labelPadding() const { return {}; }
    /// Room around the body in the layout; negative: the body reaches out of its place.
    [[nodiscard]] virtual QMarginsF padding() const { return {}; }
    virtual void paint(QPainter& painter, const QRectF& body,
                       const ButtonConfiguration& configuration) const = 0;
};

/// A push button painted by a style, pressed as all buttons are; keyboard focus shows as a ring. A
/// disabled one gives way under the pointer, and does nothing. Put it into a layout as a
/// `PaddedItem` with the style's padding. Main thread.
class Button final : public AbstractButton {
    Q_OBJECT

  public:
    Button(const QString& label, std::shared_ptr<const ButtonStyle> style,
           QWidget* parent = nullptr);

    /// Gives the label a width of its own, in points; 0 is that of its text.
    void setLabelWidth(double width);
    [[nodiscard]] const ButtonStyle& buttonStyle() const { return *style_; }
    /// For styles that say whether the button is on.
    void setButtonStyle(std::shared_ptr<const ButtonStyle> style);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    [[nodiscard]] bool yieldsWhileDisabled() const override { return true; }
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    std::shared_ptr<const ButtonStyle> style_;
    double labelWidth_ = 0;
};

} // namespace platform
