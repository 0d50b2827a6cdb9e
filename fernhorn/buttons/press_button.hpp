#pragma once

#include "fernhorn/buttons/button_face.hpp"
#include "platform/controls/line_text.hpp"
#include "platform/controls/press_input.hpp"

#include <QAccessible>
#include <QSizeF>
#include <QWidget>

namespace fernhorn {

using platform::PressStep;

/// What the kit's image buttons share: the press of all buttons (see `platform::PressInput`), the
/// images and the caption, the focus ring, and what screen readers are told. It stays pressed
/// wherever the pointer goes. Clicks leave the keyboard where it is; Tab brings it. Main thread; on
/// another one the program stops.
class PressButton : public QWidget {
    Q_OBJECT

  public:
    /// What is drawn, and where presses count. In points.
    [[nodiscard]] QSizeF buttonSize() const { return buttonSize_; }
    [[nodiscard]] bool isPressed() const { return input_.press().isTracking(); }
    [[nodiscard]] virtual bool isOn() const { return false; }
    [[nodiscard]] const ButtonFace& face() const { return face_; }

    /// Does what a click does, pressed for the moment that it takes to see it. Not when disabled.
    void performClick();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] virtual QAccessible::Role accessibleRole() const { return QAccessible::Button; }
    /// What a screen reader says after the name.
    [[nodiscard]] virtual QString spokenDescription() const { return accessibleDescription(); }
    /// The interface for assistive technology; owned by the caller.
    [[nodiscard]] QAccessibleInterface* makeAccessible();

  protected:
    PressButton(ButtonFace face, QSizeF buttonSize, QWidget* parent);

    /// A press has begun or ended, or left the button. Last in the handling of an event: it may
    /// destroy the button.
    virtual void pressDidStep(PressStep step) = 0;
    /// Whether the option key (Alt) goes with a click; with Control or Meta, keys never press.
    [[nodiscard]] virtual bool takesOptionKey() const { return false; }
    virtual void paintContent(QPainter& painter, const ButtonState& state);
    /// How round the focus ring is, in points.
    [[nodiscard]] virtual double focusRadius() const { return 5; }
    /// A key that presses nothing; false leaves it to the views behind.
    virtual bool handleKey(const QKeyEvent& /*event*/) { return false; }

    /// Begins and ends a press at once.
    void clickAtOnce();
    /// Tells screen readers that the button is on or off by now.
    void announceOn();

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void follow(PressStep step);

    ButtonFace face_;
    QSizeF buttonSize_;
    platform::PressInput input_;
    platform::LineText captionLayout_;
    bool showsFocus_ = false;
};

} // namespace fernhorn
