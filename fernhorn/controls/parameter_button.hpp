#pragma once

#include "core/subscription.hpp"
#include "fernhorn/controls/parameter_press.hpp"
#include "fernhorn/controls/press_button.hpp"

#include <functional>
#include <memory>

namespace fernhorn {

/// What makes a parameter's button the one it is.
struct ParameterButtonParts {
    PressEdit edit;
    std::function<bool(float value)> isOn; ///< empty: it shows no state
    ButtonFace face;
    QSizeF buttonSize;
    QString spokenName; ///< for screen readers: as it is written, not in capitals
};

/// A button bound to a parameter. Each press is one touch and one release for the host, however it
/// ends. It shows the parameter's value, whoever changes it; screen readers are told of what the
/// user has changed with it, not of automation.
class ParameterButton : public PressButton {
    Q_OBJECT

  public:
    [[nodiscard]] const std::shared_ptr<AudioParameter>& param() const {
        return press_.parameter();
    }
    [[nodiscard]] bool isOn() const override { return isShownOn_; }

  protected:
    /// `param` must not be null.
    ParameterButton(std::shared_ptr<AudioParameter> param, ParameterButtonParts parts,
                    QWidget* parent);

    void pressDidStep(PressStep step) override;
    /// The click's edit is on its way: what it changes here is the user's doing.
    virtual void expectUserChange();

  private:
    void valueDidChange(float value);

    ParameterPress press_;
    std::function<bool(float)> isOnAt_;
    bool isShownOn_;
    bool isUserChangeExpected_ = false;
    core::Subscription value_;
};

/// What the parameter is called.
[[nodiscard]] QString nameOf(const std::shared_ptr<AudioParameter>& param);

} // namespace fernhorn
