#pragma once

#include "driftwood/util/slider_geometry.hpp"

namespace driftwood {

/// A drag of a slider's knob: points go in, places come out. The slider may change its size, its
/// kind or its range meanwhile. Main thread.
class SliderDrag {
  public:
    [[nodiscard]] bool isDragging() const { return isDragging_; }

    /// The pointer goes down, and the knob is at a place: on the knob it takes hold of it where it
    /// is, beside it the knob comes.
    [[nodiscard]] double press(const SliderParts& parts, double place, const core::Point& point);
    [[nodiscard]] double move(const SliderParts& parts, const core::Point& point) const;
    /// True for the end of a drag: the first one.
    bool end();

  private:
    bool isDragging_ = false;
    double grip_ = 0; // from the pointer to the knob, as a part of the slider
};

} // namespace driftwood
