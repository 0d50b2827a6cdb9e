#pragma once

#include "fernhorn/controls/parameter_button.hpp"

#include <optional>

namespace fernhorn {

/// A narrow key with a lamp that switches a parameter between 0 and 1. It is on at exactly 1.
class ChaosToggleButtonNarrow final : public ParameterButton {
    Q_OBJECT

  public:
    /// `buttonText` is shown as it is written.
    ChaosToggleButtonNarrow(const std::shared_ptr<AudioParameter>& param,
                            const std::optional<QString>& buttonText, QSizeF buttonSize,
                            QWidget* parent = nullptr);

    [[nodiscard]] const std::optional<QString>& buttonText() const { return buttonText_; }
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::CheckBox;
    }

  private:
    std::optional<QString> buttonText_;
};

} // namespace fernhorn
