#pragma once

#include "fernhorn/model/audio_parameter.hpp"

#include <memory>
#include <optional>

namespace fernhorn {

/// How a gesture opens and closes.
struct GestureStyle {
    /// Whether `isBeingInteractivelyEdited` is true for as long as the gesture lasts: for drags,
    /// which values from the audio unit's side must not disturb.
    bool marksParameter = true;
    /// The value the touch carries; the parameter's own unless given.
    std::optional<float> openingValue = {};
    /// The value to change to before the gesture ends, however it ends: for a button that must
    /// not stay pressed.
    std::optional<float> closingValue = {};

    static constexpr GestureStyle drag() { return {}; }
    static constexpr GestureStyle press() { return {.marksParameter = false}; }
    /// A button that is `resting` before and after, whatever it changes to while it is held.
    static constexpr GestureStyle momentary(float resting) {
        return {.marksParameter = false, .openingValue = resting, .closingValue = resting};
    }
};

/// One touch of a control: sends `beginInteractive` when it is made and `endInteractive` exactly
/// once, when it is ended or destroyed, so that a host never waits for a release. A control keeps
/// it (in an optional) from its first movement on and drops it on release, on losing the pointer
/// and with itself. Gestures that overlap on one parameter (a burst of the wheel over one control,
/// a drag of another) are one touch: the first sends the begin and the last the end, and the
/// parameter stays marked until the last that marks it has ended. Main thread.
class [[nodiscard]] ParameterGesture {
  public:
    /// `parameter` must not be null; the gesture keeps it alive.
    explicit ParameterGesture(std::shared_ptr<AudioParameter> parameter,
                              GestureStyle style = GestureStyle::drag());
    ParameterGesture(ParameterGesture&& other) noexcept;
    ParameterGesture& operator=(ParameterGesture&& other) noexcept;
    ~ParameterGesture() { end(); }

    /// A further movement. Does nothing after the end.
    void change(float value);

    /// Ends the gesture; does nothing the second time. The release carries the parameter's value
    /// with all edits, also those that the main queue has not delivered yet, so that a move and
    /// the release in one burst of events leave the parameter where the move has put it.
    void end();

    [[nodiscard]] bool isActive() const { return parameter_ != nullptr; }
    /// Null after the end.
    [[nodiscard]] const std::shared_ptr<AudioParameter>& parameter() const { return parameter_; }

  private:
    std::shared_ptr<AudioParameter> parameter_;
    GestureStyle style_;
};

} // namespace fernhorn
