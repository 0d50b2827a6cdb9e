#pragma once

#include "core/geometry.hpp"
#include "fernhorn/controls/continuous_edit.hpp"

#include <memory>
#include <optional>

namespace fernhorn {

/// What turns a drag of a knob into values.
struct KnobFeel {
    double knobMinDrag;        ///< points that the pointer travels before a drag starts
    float knobDragScaleFactor; ///< share of the whole travel for each point upwards
};

/// One press of a knob: a drag, or a click that resets the parameter. It knows points, not widgets.
/// It may be destroyed by whoever hears of what it does. Main thread.
class KnobDrag {
  public:
    KnobDrag(std::shared_ptr<AudioParameter> parameter, KnobFeel feel);

    /// The button goes down; `clickCount` is 2 for the second press of a double click. Another
    /// button meanwhile changes nothing.
    void press(core::Point at, int clickCount, bool isAltHeld);
    /// The pointer moves. Once it is far enough from the press the drag begins, which moves nothing
    /// yet; then each movement counts from the one before, so that `isFine` may change at any time.
    void move(core::Point at, bool isFine);
    /// The button goes up. A press that did not travel and was the second of a double click, or had
    /// Alt held, sets the parameter's default value.
    void release(core::Point at);
    /// The pointer was taken away: a drag ends, a click does not happen.
    void cancel();

    [[nodiscard]] bool isPressed() const { return press_.has_value(); }
    [[nodiscard]] bool isDragging() const { return lastDragValue_.has_value(); }
    /// The pointer's height at the last event of the drag; absent between drags.
    [[nodiscard]] std::optional<double> lastDragValue() const { return lastDragValue_; }
    /// The unrounded value being dragged; absent between drags.
    [[nodiscard]] std::optional<float> continuousDragValue() const {
        return edit_.continuousValue();
    }

  private:
    struct Press {
        core::Point at;
        bool resets;
        double travel = 0; // the farthest it has been away
    };

    void note(core::Point at);

    KnobFeel feel_;
    ContinuousEdit edit_;
    std::optional<Press> press_;
    std::optional<double> lastDragValue_;
};

} // namespace fernhorn
