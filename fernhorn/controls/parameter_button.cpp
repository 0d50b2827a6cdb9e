#include "fernhorn/controls/parameter_button.hpp"

#include "core/fatal.hpp"

#include <QPointer>

#include <utility>

namespace fernhorn {

QString nameOf(const std::shared_ptr<AudioParameter>& param) {
    return param != nullptr ? QString::fromStdString(param->name()) : QString();
}

ParameterButton::ParameterButton(std::shared_ptr<AudioParameter> param, ParameterButtonParts parts,
                                 QWidget* parent)
    : PressButton(std::move(parts.face), parts.buttonSize, parent),
      press_(std::move(param), parts.edit),
      isOnAt_(std::move(parts.isOn)),
      isShownOn_(isOnAt_ && isOnAt_(press_.parameter()->value())) {
    setAccessibleName(parts.spokenName);
    if (isOnAt_) {
        value_ = press_.parameter()->observeValue([this](float value) { valueDidChange(value); });
    }
}

void ParameterButton::pressDidStep(PressStep step) {
    const QPointer<ParameterButton> self(this);
    press_.follow(step);
    if (self != nullptr && step == PressStep::clicked) {
        expectUserChange();
    }
}

void ParameterButton::expectUserChange() {
    isUserChangeExpected_ =
        isOnAt_ && isOnAt_(press_.parameter()->valueWithPendingEdits()) != isShownOn_;
}

void ParameterButton::valueDidChange(float value) {
    const bool isOn = isOnAt_(value);
    if (isOn == isShownOn_) {
        return;
    }
    isShownOn_ = isOn;
    update();
    if (std::exchange(isUserChangeExpected_, false)) {
        announceOn();
    }
}

} // namespace fernhorn
