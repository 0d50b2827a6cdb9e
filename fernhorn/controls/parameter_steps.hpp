#pragma once

#include <memory>

namespace fernhorn {

class AudioParameter;

/// What a key, or a screen reader, may ask of a knob.
enum class ParameterStep { up, down, pageUp, pageDown, toLowest, toHighest, toDefault };

/// The share of the travel that one step, or one notch of a wheel, is: a fiftieth, or from one
/// value to the next of an indexed parameter.
[[nodiscard]] float stepTravel(const AudioParameter& parameter);

/// How far a step upwards from its value takes the parameter, or the last step below the end.
[[nodiscard]] float stepSize(const AudioParameter& parameter);

/// Makes one step: a touch, the change and the release. An indexed parameter knows no fine steps.
/// Main thread.
void stepParameter(const std::shared_ptr<AudioParameter>& parameter, ParameterStep step,
                   bool isFine = false);

/// The same for a value that is given.
void editParameter(const std::shared_ptr<AudioParameter>& parameter, float value);

} // namespace fernhorn
