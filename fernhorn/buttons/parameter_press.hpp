#pragma once

#include "fernhorn/model/parameter_gesture.hpp"
#include "platform/controls/press_tracker.hpp"

#include <memory>
#include <optional>

namespace fernhorn {

using platform::PressStep;

/// What a press writes into its parameter. A value.
class PressEdit {
  public:
    /// A click writes `value`.
    static constexpr PressEdit select(float value) { return {Kind::select, value}; }
    /// The same in a single edit without a touch.
    static constexpr PressEdit selectAtOnce(float value) { return {Kind::selectAtOnce, value}; }
    /// A click writes 1 if the parameter is 0, and 0 if it is anything else.
    static constexpr PressEdit toggle() { return {Kind::toggle, 0}; }
    /// The parameter is 1 for as long as the press lasts, and 0 afterwards.
    static constexpr PressEdit hold() { return {Kind::hold, 0}; }

    /// None: a press is no gesture.
    [[nodiscard]] std::optional<GestureStyle> gestureStyle() const;
    /// What the press writes when it has begun.
    [[nodiscard]] std::optional<float> valueAtBegin() const;
    /// What a click writes, given the parameter's value at that moment.
    [[nodiscard]] std::optional<float> valueAtClick(float current) const;

  private:
    enum class Kind : std::uint8_t { select, selectAtOnce, toggle, hold };
    constexpr PressEdit(Kind kind, float value) : kind_(kind), value_(value) {}

    Kind kind_;
    float value_;
};

/// Edits a parameter as the presses of a button go. The touch that a press has opened is closed
/// with it, and with this object at the latest, also when something that is told of the edit takes
/// the button away. Knows values, not widgets. Main thread.
class ParameterPress {
  public:
    /// `parameter` must not be null.
    ParameterPress(std::shared_ptr<AudioParameter> parameter, PressEdit edit);
    ParameterPress(const ParameterPress&) = delete;
    ParameterPress& operator=(const ParameterPress&) = delete;
    ~ParameterPress();

    [[nodiscard]] const std::shared_ptr<AudioParameter>& parameter() const { return parameter_; }

    /// Does what the step asks for. Observers are told meanwhile; they may destroy this object.
    void follow(PressStep step);

  private:
    /// Outlives the object while a step is being followed.
    struct Touch {
        unsigned presses = 0; ///< begun and ended ones: tells whether another has come in between
        std::optional<ParameterGesture> gesture;
    };

    void begin();
    void end(bool isClick);

    std::shared_ptr<AudioParameter> parameter_;
    PressEdit edit_;
    std::shared_ptr<Touch> touch_ = std::make_shared<Touch>();
};

} // namespace fernhorn
