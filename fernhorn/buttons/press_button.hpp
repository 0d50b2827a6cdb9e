#pragma once

#include "fernhorn/controls/button_face.hpp"
#include "fernhorn/controls/button_press.hpp"

#include <QAccessible>
#include <QSizeF>
#include <QWidget>

namespace fernhorn {

/// What the kit's image buttons share: one press by mouse, Space or Return, the images and the
/// caption, the focus ring, and what screen readers are told. Clicks leave the keyboard where it
/// is; Tab brings it. A press never outlasts the button's being there for the user: it is cancelled
/// when the keyboard or the window goes elsewhere, when the button is hidden or disabled, by
/// Escape, and when the mouse turns out to have been released unheard. Main thread.
class PressButton : public QWidget {
    Q_OBJECT

  public:
    /// What is drawn, and where presses count. In points.
    [[nodiscard]] QSizeF buttonSize() const { return buttonSize_; }
    [[nodiscard]] bool isPressed() const { return press_.isPressed(); }
    [[nodiscard]] virtual bool isOn() const { return false; }
    [[nodiscard]] const ButtonFace& face() const { return face_; }

    /// Does what a click does, pressed for the moment that it takes to see it. Not when disabled.
    void performClick();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] virtual QAccessible::Role accessibleRole() const { return QAccessible::Button; }
    /// What a screen reader says after the name.
    [[nodiscard]] virtual QString spokenDescription() const { return accessibleDescription(); }

  protected:
    PressButton(ButtonFace face, QSizeF buttonSize, QWidget* parent);

    /// A press has begun or ended. Last in the handling of an event: it may destroy the button.
    virtual void pressDidStep(PressStep step) = 0;
    /// Whether the option key (Alt) goes with a click; with Control or Meta, keys never press.
    [[nodiscard]] virtual bool takesOptionKey() const { return false; }
    virtual void paintContent(QPainter& painter, const ButtonState& state);
    /// A key that presses nothing; false leaves it to the views behind.
    virtual bool handleKey(const QKeyEvent& /*event*/) { return false; }

    /// Begins and ends a press at once.
    void clickAtOnce();
    /// Tells screen readers that the button is on or off by now.
    void announceOn();

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void follow(PressStep step);
    bool pressOrReleaseKey(const QKeyEvent& event);

    ButtonFace face_;
    QSizeF buttonSize_;
    ButtonPress press_;
    platform::TitleText captionLayout_;
    bool showsFocus_ = false;
};

} // namespace fernhorn
