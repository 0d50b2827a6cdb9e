#pragma once

#include "platform/controls/press_input.hpp"

#include <QAbstractButton>

namespace platform {

/// What the toolkit-like buttons of the house share: the press of all buttons (see `PressInput`),
/// and that a focus ring shows only where the keyboard came by a key. Main thread.
class AbstractButton : public QAbstractButton {
    Q_OBJECT

  protected:
    using QAbstractButton::QAbstractButton;

    [[nodiscard]] bool showsFocusRing() const { return showsFocus_ && hasFocus(); }
    /// Whether a disabled button looks pressed under the pointer, though it does nothing.
    [[nodiscard]] virtual bool yieldsWhileDisabled() const { return false; }

    bool event(QEvent* event) override;

  private:
    PressInput input_;
    bool showsFocus_ = false;
};

} // namespace platform
