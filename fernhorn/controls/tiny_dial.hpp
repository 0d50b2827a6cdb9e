#pragma once

#include "fernhorn/controls/dial.hpp"

#include <cstdint>

namespace fernhorn {

enum class TinyDialColor : std::uint8_t { grey };

/// The small dial.
class TinyDial final : public Dial {
    Q_OBJECT

  public:
    /// See `Dial`.
    TinyDial(std::shared_ptr<AudioParameter> param, const LabelDisplayOptions& labelDisplayOptions,
             std::shared_ptr<const LabelFormatter> formatter = nullptr,
             std::function<void()> onEditingEnded = {}, QWidget* parent = nullptr);

    [[nodiscard]] TinyDialColor color() const { return TinyDialColor::grey; }
};

} // namespace fernhorn
