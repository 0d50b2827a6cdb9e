#pragma once

#include "core/geometry.hpp"

#include <optional>
#include <span>
#include <vector>

namespace driftwood {

// Rows of segments: where they lie, and which one is selected, pressed and has the keyboard. Knows
// no widget. Main thread.

/// What a row does with room beyond what its segments need.
enum class SegmentDistribution {
    fit, ///< nothing: it is left at the trailing end
    fill ///< every segment gets an equal share of it
};

/// Where segments go: the place they have in points, what becomes of the room that is left, and the
/// direction in which they follow each other.
struct SegmentRowLayout {
    core::Rect bounds;
    SegmentDistribution distribution = SegmentDistribution::fit;
    bool isRightToLeft = false;
};

/// The frames of segments in their order, edge to edge on whole points. Where they do not fit they
/// all shrink by the same factor.
[[nodiscard]] std::vector<core::Rect> segmentFrames(std::span<const double> widths,
                                                    const SegmentRowLayout& layout);

/// The first frame that a point lies in; its upper and left edges belong to it.
[[nodiscard]] std::optional<int> segmentAt(std::span<const core::Rect> frames, core::Point point);

/// Where a key takes the keyboard within a row.
enum class SegmentMove { previous, next, first, last };

/// The states of a row's segments. Numbers that are no segment are none.
class SegmentRow {
  public:
    [[nodiscard]] int count() const { return count_; }
    /// Segments that are gone are neither selected nor pressed any more.
    void setCount(int count);

    [[nodiscard]] std::optional<int> selected() const { return selected_; }
    /// True when that is another one; its segment gets the keyboard, too.
    bool select(std::optional<int> segment);

    /// The segment that keys go to; none only in an empty row.
    [[nodiscard]] std::optional<int> key() const { return key_; }
    bool setKey(int segment);
    bool moveKey(SegmentMove move);

    /// The segment that a press has begun on, and whether it looks pressed.
    [[nodiscard]] std::optional<int> pressed() const { return pressed_; }
    void setPressed(std::optional<int> segment);

  private:
    [[nodiscard]] std::optional<int> existing(std::optional<int> segment) const;

    int count_ = 0;
    std::optional<int> selected_;
    std::optional<int> key_;
    std::optional<int> pressed_;
};

} // namespace driftwood
