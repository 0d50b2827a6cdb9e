#pragma once

#include "core/observable.hpp"

#include <functional>
#include <optional>
#include <vector>

namespace driftwood {

/// What the icons at a slider's ends do.
enum class SliderIconClickBehaviour {
    maxMin,   ///< set the minimum and the maximum
    increment ///< step by `incrementBy`
};

/// One number of several edited objects at once: a common value, or none while they disagree
/// ("mixed"). Becomes single-valued with the first change and never mixed again by itself. Main
/// thread.
class DriftSliderModel {
  public:
    using Callback = std::function<void(double)>;

    /// Starts at the value that all `startingValues` have in common; mixed where they differ or are
    /// none. The other arguments are the public members of the same names.
    DriftSliderModel(std::vector<double> startingValues, double defaultValue, double minimumValue,
                     double maximumValue, double incrementBy,
                     SliderIconClickBehaviour iconClickBehaviour);

    Callback onSlideStarted;  ///< a drag has begun
    Callback onSlideOngoing;  ///< a drag has changed the value
    Callback onSlideComplete; ///< a change is finished: the end of a drag, an icon, a reset, a key

    double incrementBy;
    double minimumValue; ///< a minimum above the maximum stops the program where the range is used
    double maximumValue;
    const std::vector<double> startingValues; ///< of the edited objects, when the slider was set up
    const double defaultValue;
    const SliderIconClickBehaviour iconClickBehaviour;

    /// The common value; none while mixed. Observers are told of changes only.
    core::Observable<std::optional<double>> value;

    /// The place of a value within the range, 0 to 1; 0 for what is no number.
    [[nodiscard]] double normalised(double of) const;
    /// The place of the value; none while mixed.
    [[nodiscard]] std::optional<double> percent() const;
    /// Sets the value at a place, kept within the range; none makes it mixed.
    void setPercent(std::optional<double> percent);
    /// Sets the value, kept within the range; what is no number is ignored.
    void setValue(double newValue);
    [[nodiscard]] double clamped(double of) const;

    void leftIconClicked();
    void rightIconClicked();
    void resetToDefaultValue();

    /// A step from a key, a wheel or a screen reader, in units of `incrementBy`, and so complete by
    /// itself. From the default value where the objects disagree.
    void step(double increments);
    /// A value from there, kept within the range; complete by itself, too.
    void finish(double newValue);

  private:
    void checkRange() const;
    void iconClicked(double direction, double end);
    void complete();
};

} // namespace driftwood
