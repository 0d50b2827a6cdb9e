#pragma once

#include "fernhorn/controls/chaos_button_color.hpp"
#include "fernhorn/controls/index_button.hpp"

namespace fernhorn {

/// A key with a lamp that chooses one value of an indexed parameter and shows its name.
class ChaosToggleButton final : public IndexButton {
    Q_OBJECT

  public:
    /// `valueIndex` has to be among the parameter's value strings, if it has any.
    ChaosToggleButton(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                      ChaosButtonColor color, QSizeF buttonSize, QWidget* parent = nullptr);

    [[nodiscard]] ChaosButtonColor color() const { return color_; }

  private:
    ChaosButtonColor color_;
};

} // namespace fernhorn
