#pragma once

#include "fernhorn/controls/dial.hpp"

#include <cstdint>

namespace fernhorn {

enum class ModernDialColor : std::uint8_t { grey };

/// The large dial.
class ChaosDial final : public Dial {
    Q_OBJECT

  public:
    /// See `Dial`.
    ChaosDial(std::shared_ptr<AudioParameter> param, ModernDialColor color,
              const LabelDisplayOptions& labelDisplayOptions,
              std::shared_ptr<const LabelFormatter> formatter = nullptr,
              std::function<void()> onEditingEnded = {}, QWidget* parent = nullptr);

    [[nodiscard]] ModernDialColor color() const { return color_; }

  private:
    const ModernDialColor color_;
};

} // namespace fernhorn
