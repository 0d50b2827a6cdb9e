#pragma once

#include "core/clock.hpp"
#include "core/geometry.hpp"
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

/// What a key, or a screen reader, may ask of a knob.
enum class ParameterStep { up, down, pageUp, pageDown, toLowest, toHighest, toDefault };

/// The share of the travel that one step, or one notch of a wheel, is: a fiftieth, or from one
/// value to the next of an indexed parameter. Main thread.
[[nodiscard]] float stepTravel(const AudioParameter& parameter);

/// How far a step upwards from its value takes the parameter, or the last step below the end.
/// Main thread.
[[nodiscard]] float stepSize(const AudioParameter& parameter);

/// Makes one step: a touch, the change and the release. An indexed parameter knows no fine steps.
/// Main thread.
void stepParameter(const std::shared_ptr<AudioParameter>& parameter, ParameterStep step,
                   bool isFine = false);

/// The same for a value that is given. Main thread.
void editParameter(const std::shared_ptr<AudioParameter>& parameter, float value);

/// What turns a drag of a knob into values.
struct KnobFeel {
    double knobMinDrag;        ///< points that the pointer travels before a drag starts
    float knobDragScaleFactor; ///< share of the whole travel for each point upwards
};

/// What a click on a knob without a drag may do.
enum class KnobClick { resets, doesNothing };

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

/// The wheel or two fingers over a knob: what comes without a pause between is one burst, and one
/// touch. Parts of a notch add up. In a page that scrolls, a burst that has scrolled the page never
/// turns the knob that comes below the pointer. Main thread; times come from the caller.
class KnobWheel {
  public:
    /// What ends a burst.
    static constexpr core::Seconds pause{0.25};

    explicit KnobWheel(std::shared_ptr<AudioParameter> parameter);

    /// Where the pointer is.
    void pointerCame(core::Instant now);
    void pointerLeft();

    /// The wheel turns by a number of notches, upwards above 0. False: it is not meant for the
    /// knob, and the page below may have it.
    bool turn(core::Instant now, float notches, bool isFine, bool isInScrollingPage);

    /// When the burst is over unless more of it comes; absent when there is none.
    [[nodiscard]] std::optional<core::Instant> closesAt() const;
    /// Closes the touch when the burst is over.
    void closeWhenDue(core::Instant now);
    /// Closes the touch now.
    void close();

    [[nodiscard]] bool isOpen() const { return edit_.isOpen(); }

  private:
    [[nodiscard]] bool belongsToPage(core::Instant now) const;

    ContinuousEdit edit_;
    core::Instant lastTurn_{};
    std::optional<core::Instant> pointerSince_;
    std::optional<core::Instant> lastRefused_;
};

/// Keeps a pointer about where it is while it is dragged: gives the way that it has gone, whatever
/// edge of the screen is near, and tells when to put it back. It knows points, not pointers.
class PointerHold {
  public:
    /// How far the pointer may stray before it is put back, in points. The place that it is put
    /// back to is at least twice as far from the screen's edges, which would stop it.
    static constexpr double stray = 48;

    struct Move {
        core::Point position; ///< where the pointer would be had it never been put back
        bool putBack;         ///< to `home()`, now
    };

    /// The hold begins with the pointer at this place of a screen.
    void begin(core::Point at, const core::Rect& screen);
    void end() { home_.reset(); }
    [[nodiscard]] bool isHolding() const { return home_.has_value(); }
    [[nodiscard]] core::Point home() const { return home_.value_or(core::Point{}); }
    /// Where the pointer belongs after the hold.
    [[nodiscard]] core::Point beginning() const { return beginning_; }

    /// The pointer has moved, by hand or because it was put back.
    Move move(core::Point at);

  private:
    std::optional<core::Point> home_;
    core::Point beginning_;
    core::Point last_;     // where the pointer was seen
    core::Point position_; // where it would be
    bool isGoingHome_ = false;
};

} // namespace fernhorn
