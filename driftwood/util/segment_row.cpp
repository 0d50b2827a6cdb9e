#include "driftwood/util/segment_row.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace driftwood {

std::vector<core::Rect> segmentFrames(std::span<const double> widths,
                                      const SegmentRowLayout& layout) {
    const core::Rect& bounds = layout.bounds;
    const double wanted = std::accumulate(widths.begin(), widths.end(), 0.0);
    const double spare = bounds.size.width - wanted;
    const double factor = spare < 0 && wanted > 0 ? bounds.size.width / wanted : 1;
    const double share = spare > 0 && layout.distribution == SegmentDistribution::fill
                             ? spare / static_cast<double>(widths.size())
                             : 0;
    std::vector<core::Rect> frames;
    frames.reserve(widths.size());
    double exact = 0; // edges are rounded one by one, so that no gap adds up
    for (const double width : widths) {
        const double from = std::round(exact);
        exact += width * factor + share;
        const double to = std::round(exact);
        const double x = layout.isRightToLeft ? bounds.maxX() - to : bounds.origin.x + from;
        frames.push_back({{x, bounds.origin.y}, {to - from, bounds.size.height}});
    }
    return frames;
}

std::optional<int> segmentAt(std::span<const core::Rect> frames, core::Point point) {
    const auto found = std::ranges::find_if(frames, [point](const core::Rect& frame) {
        return point.x >= frame.origin.x && point.x < frame.maxX() && point.y >= frame.origin.y &&
               point.y < frame.maxY();
    });
    return found != frames.end() ? std::optional(static_cast<int>(found - frames.begin()))
                                 : std::nullopt;
}

std::optional<int> SegmentRow::existing(std::optional<int> segment) const {
    return segment && *segment >= 0 && *segment < count_ ? segment : std::nullopt;
}

void SegmentRow::setCount(int count) {
    count_ = std::max(count, 0);
    selected_ = existing(selected_);
    pressed_ = existing(pressed_);
    key_ = count_ > 0 ? std::optional(std::clamp(key_.value_or(0), 0, count_ - 1)) : std::nullopt;
}

bool SegmentRow::select(std::optional<int> segment) {
    const auto wanted = existing(segment);
    const bool isOther = wanted != selected_;
    selected_ = wanted;
    key_ = wanted ? wanted : key_;
    return isOther;
}

bool SegmentRow::setKey(int segment) {
    const auto wanted = existing(segment);
    if (!wanted || wanted == key_) {
        return false;
    }
    key_ = wanted;
    return true;
}

bool SegmentRow::moveKey(SegmentMove move) {
    if (!key_) {
        return false;
    }
    switch (move) {
    case SegmentMove::previous:
        return setKey(*key_ - 1);
    case SegmentMove::next:
        return setKey(*key_ + 1);
    case SegmentMove::first:
        return setKey(0);
    case SegmentMove::last:
        break;
    }
    return setKey(count_ - 1);
}

void SegmentRow::setPressed(std::optional<int> segment) {
    pressed_ = existing(segment);
}

} // namespace driftwood
