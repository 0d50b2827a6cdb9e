#pragma once

#include "fernhorn/controls/dial.hpp"

#include <cstdint>

namespace fernhorn {

enum class SmallDialColor : std::uint8_t { blue, yellow, red, purple };

/// The dial with a lit ring around it.
class MediumDial final : public Dial {
    Q_OBJECT

  public:
    /// See `Dial`.
    MediumDial(std::shared_ptr<AudioParameter> param, SmallDialColor color,
               const LabelDisplayOptions& labelDisplayOptions,
               std::shared_ptr<const LabelFormatter> formatter = nullptr,
               std::function<void()> onEditingEnded = {}, QWidget* parent = nullptr);

    [[nodiscard]] SmallDialColor color() const { return color_; }

  private:
    const SmallDialColor color_;
};

} // namespace fernhorn
