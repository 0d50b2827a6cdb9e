#pragma once

#include "fernhorn/controls/parameter_button.hpp"

#include <optional>

namespace fernhorn {

/// A flat button that switches a parameter between 0 and 1. It is on at exactly 1.
class ToggleButton final : public ParameterButton {
    Q_OBJECT

  public:
    /// `nameOverride` is shown as it is written, the parameter's name in capitals. The font size is
    /// in points.
    ToggleButton(const std::shared_ptr<AudioParameter>& param,
                 const std::optional<QString>& nameOverride, double buttonFontSize,
                 const QColor& buttonTextColor, QSizeF buttonSize, QWidget* parent = nullptr);

    [[nodiscard]] const std::optional<QString>& nameOverride() const { return nameOverride_; }
    [[nodiscard]] double buttonFontSize() const { return buttonFontSize_; }
    [[nodiscard]] QColor buttonTextColor() const { return face().caption.color; }
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::CheckBox;
    }

  private:
    std::optional<QString> nameOverride_;
    double buttonFontSize_;
};

} // namespace fernhorn
