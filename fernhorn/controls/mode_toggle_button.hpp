#pragma once

#include "fernhorn/controls/index_button.hpp"
#include "fernhorn/controls/toggle_button_style.hpp"

namespace fernhorn {

/// A flat button that chooses one value of an indexed parameter and shows its name.
class ModeToggleButton final : public IndexButton {
    Q_OBJECT

  public:
    /// `valueIndex` has to be among the parameter's value strings, if it has any. The font size is
    /// in points.
    ModeToggleButton(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                     ToggleButtonStyle buttonStyle, double buttonFontSize,
                     const QColor& buttonTextColor, QSizeF buttonSize, QWidget* parent = nullptr);

    [[nodiscard]] ToggleButtonStyle buttonStyle() const { return buttonStyle_; }
    [[nodiscard]] double buttonFontSize() const { return buttonFontSize_; }
    [[nodiscard]] QColor buttonTextColor() const { return face().caption.color; }

  private:
    ToggleButtonStyle buttonStyle_;
    double buttonFontSize_;
};

} // namespace fernhorn
