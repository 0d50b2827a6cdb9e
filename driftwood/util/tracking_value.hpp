#pragma once

#include <cstdint>

namespace driftwood {

/// The value of a slider without a track: one increment for each event that moves it, whatever the
/// size of the movement. Main thread.
struct TrackingValue {
    double incrementBy = 0.01;
    double minimumValue =
        0; ///< a maximum below it, or a bound that is no number, stops the program
    double maximumValue = 1;
    bool valueWasEdited = false;   ///< by a step, since a drag began
    double minimumPanVelocity = 5; ///< points per second; slower pans do not count

    [[nodiscard]] double doubleValue() const { return currentValue_; }
    void setDoubleValue(double value); ///< kept within the range; what is no number is ignored

    /// Towards 0. Outside of 32 and 64 bits, infinity and what is no number stop the program.
    [[nodiscard]] std::int32_t intValue() const;
    [[nodiscard]] std::int64_t integerValue() const;

    /// One increment up for an amount above 0, down for one below. False for 0: nothing happens.
    bool step(double amount);
    /// The same for a pan: false when it is too slow to count.
    bool pan(double velocity);

  private:
    double currentValue_ = 0;
};

} // namespace driftwood
