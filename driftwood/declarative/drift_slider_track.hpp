#pragma once

#include "core/geometry.hpp"
#include "driftwood/declarative/drift_slider_model.hpp"

#include <array>
#include <functional>
#include <memory>
#include <optional>

namespace driftwood {

/// Where the parts of a multi-knob slider lie on its track, in points from the track's left edge.
/// Nothing is shown on tracks of 10 points or less.
namespace drift_slider {

inline constexpr double knobSize = 16;
inline constexpr double knobReach = knobSize / 2; ///< centres keep this far from both ends
inline constexpr double rowHeight = 24;
inline constexpr double knobYPosition = 12; ///< of the knobs' centres
inline constexpr std::size_t maxKnobs = 5;  ///< more starting values fill the track instead
inline constexpr double mixedKnobOpacity = 0.3;

/// What a track of a width shows.
struct TrackParts {
    double fillWidth = 0;
    double knobX = knobReach; ///< the main knob's centre
    double knobOpacity = 1;
    /// The centres of the knobs for the starting values beyond the first; shown at
    /// `mixedKnobOpacity`.
    std::array<std::optional<double>, maxKnobs - 1> extraKnobs{};
};

/// None for a track of 10 points or less. Stops the program on one narrower than 16 with a value.
[[nodiscard]] std::optional<TrackParts> trackParts(const DriftSliderModel& model, double width);

} // namespace drift_slider

/// A drag on the track of a multi-knob slider: points go in, the model is changed and told of
/// start, course and end, which pair up whatever happens in between. Main thread.
class DriftSliderDrag {
  public:
    /// The model is kept alive by the drag.
    explicit DriftSliderDrag(std::shared_ptr<DriftSliderModel> model) : model_(std::move(model)) {}

    [[nodiscard]] bool isDragging() const { return isDragging_; }

    /// The pointer at a point of a track of that width. The first one begins the drag: on the knob
    /// it takes hold of it, beside it the knob jumps there. `translation` is how far the pointer is
    /// from where it went down; `snaps` (Shift) rounds to steps.
    void move(core::Point pointer, double translation, double width, bool snaps);
    /// The pointer is released, or the drag is taken away: either way it is complete, once.
    void end();

  private:
    using Callback = DriftSliderModel::Callback;

    /// A start comes before anything else: with the first value where the objects disagreed.
    void tell(Callback DriftSliderModel::*callback);
    [[nodiscard]] double knobFromPointer(double x, double width) const;
    void begin(core::Point pointer, double width);
    void snapTo(double place);
    /// Edits the model in the course of the drag, and tells of it.
    void change(const std::function<void(DriftSliderModel& model)>& edit);

    std::shared_ptr<DriftSliderModel> model_;
    bool isDragging_ = false;
    double xDragOffset_ = 0;      // from the pointer to the knob's centre
    double xDistanceDragged_ = 0; // what a grab on the knob has to overcome first
    bool isStartTold_ = false;
    std::shared_ptr<bool> gesture_; // there from the drag's beginning to its end
    std::optional<double> told_;    // the last value of the drag
};

} // namespace driftwood
