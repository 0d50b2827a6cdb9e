#pragma once

#include "fernhorn/controls/parameter_button.hpp"

namespace fernhorn {

/// A rocker that shows an arrow to the left while the parameter has one value and to the right
/// otherwise. Whatever that value is, a click switches between 0 and 1.
class LeftRightArrowButton final : public ParameterButton {
    Q_OBJECT

  public:
    LeftRightArrowButton(const std::shared_ptr<AudioParameter>& param, float leftValue,
                         QSizeF buttonSize, QWidget* parent = nullptr);

    [[nodiscard]] float leftValue() const { return leftValue_; }
    /// Which way it points: neither of them is on or off.
    [[nodiscard]] QString spokenDescription() const override;

  private:
    float leftValue_;
};

} // namespace fernhorn
