#pragma once

#include "fernhorn/model/parameter_gesture.hpp"

#include <memory>
#include <optional>

namespace fernhorn {

/// How much finer everything moves while Shift is held.
inline constexpr float fineShare = 0.1F;

/// A parameter being moved over its travel: the touch that is open and the value before it is
/// rounded. It may be destroyed by whoever hears of what it does. Main thread.
class ContinuousEdit {
  public:
    /// `parameter` must not be null.
    explicit ContinuousEdit(std::shared_ptr<AudioParameter> parameter);
    ContinuousEdit(const ContinuousEdit&) = delete;
    ContinuousEdit& operator=(const ContinuousEdit&) = delete;

    [[nodiscard]] const std::shared_ptr<AudioParameter>& parameter() const { return parameter_; }
    [[nodiscard]] bool isOpen() const { return gesture_.has_value(); }
    /// Where the edit stands; absent when none is open.
    [[nodiscard]] std::optional<float> continuousValue() const { return continuousValue_; }

    /// Opens the touch. Does nothing when it is open. False: whoever heard of it has ended the edit
    /// or destroyed this.
    [[nodiscard]] bool begin();
    /// Moves by a share of the whole travel, up to its ends. The way counts from the unrounded
    /// value, so that an indexed parameter takes the next value after the way of a whole step.
    void moveBy(float travel);
    /// Goes to a value; the range is kept.
    void changeTo(float value);
    /// Closes the touch. Does nothing when none is open.
    void end();

  private:
    std::shared_ptr<AudioParameter> parameter_;
    std::optional<ParameterGesture> gesture_;
    std::optional<float> continuousValue_;
    std::shared_ptr<const bool> opening_; // while the touch is being sent
};

} // namespace fernhorn
