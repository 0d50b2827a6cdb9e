#include "platform/controls/button_geometry.hpp"

#include "core/fatal.hpp"

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

enum class Side { left, right, above, below, middle };

Side sideOf(const ButtonParts& parts) {
    switch (parts.position) {
    case ImagePosition::imageLeft:
        return Side::left;
    case ImagePosition::imageRight:
        return Side::right;
    case ImagePosition::imageBelow:
        return Side::below;
    case ImagePosition::imageAbove:
        return Side::above;
    case ImagePosition::imageLeading:
        return parts.isRightToLeft ? Side::right : Side::left;
    case ImagePosition::imageTrailing:
        return parts.isRightToLeft ? Side::left : Side::right;
    default:
        return Side::middle;
    }
}

core::Rect withoutMargins(const core::Rect& bounds, double margin) {
    const double room = std::max(0.0, bounds.size.width - 2 * margin);
    return {{bounds.origin.x + margin, bounds.origin.y}, {room, bounds.size.height}};
}

} // namespace

core::Rect centeredVertically(const core::Rect& rect, const core::Rect& bounds) {
    const double middle = bounds.origin.y + bounds.size.height * 0.5;
    return core::integral(
        {{rect.origin.x, std::round(middle - rect.size.height * 0.5)}, rect.size});
}

core::Rect defaultImageRect(const core::Rect& bounds, const ButtonParts& parts) {
    if (!parts.showsImage()) {
        return {bounds.origin, {}};
    }
    const core::Rect room = withoutMargins(bounds, parts.margin);
    const core::Size size{std::min(parts.image.width, room.size.width),
                          std::min(parts.image.height, room.size.height)};
    double x = room.origin.x + (room.size.width - size.width) * 0.5;
    double y = room.origin.y + (room.size.height - size.height) * 0.5;
    const double stack = (size.height + imageTitleGap + parts.title.height) * 0.5;
    switch (sideOf(parts)) {
    case Side::left:
        x = room.origin.x;
        break;
    case Side::right:
        x = room.maxX() - size.width;
        break;
    case Side::above:
        y = room.origin.y + room.size.height * 0.5 - stack;
        break;
    case Side::below:
        y = room.origin.y + room.size.height * 0.5 + stack - size.height;
        break;
    case Side::middle:
        break;
    }
    return {{x, y}, size};
}

core::Rect defaultTitleRect(const core::Rect& bounds, const ButtonParts& parts) {
    core::Rect room = withoutMargins(bounds, parts.margin);
    double y = room.origin.y + (room.size.height - parts.title.height) * 0.5;
    if (parts.showsImage()) {
        const core::Rect image = defaultImageRect(bounds, parts);
        const double taken = image.size.width + imageTitleGap;
        switch (sideOf(parts)) {
        case Side::left:
            room.origin.x += taken;
            room.size.width = std::max(0.0, room.size.width - taken);
            break;
        case Side::right:
            room.size.width = std::max(0.0, room.size.width - taken);
            break;
        case Side::above:
            y = image.maxY() + imageTitleGap;
            break;
        case Side::below:
            y = image.origin.y - imageTitleGap - parts.title.height;
            break;
        case Side::middle:
            break;
        }
    }
    return {{room.origin.x, y}, {room.size.width, parts.title.height}};
}

core::Size naturalSize(const ButtonParts& parts) {
    const core::Size image = parts.showsImage() ? parts.image : core::Size{};
    const core::Size title = parts.showsTitle() ? parts.title : core::Size{};
    const double gap = parts.showsImage() && parts.showsTitle() ? imageTitleGap : 0;
    core::Size size;
    switch (sideOf(parts)) {
    case Side::left:
    case Side::right:
        size = {image.width + gap + title.width, std::max(image.height, title.height)};
        break;
    case Side::above:
    case Side::below:
        size = {std::max(image.width, title.width), image.height + gap + title.height};
        break;
    case Side::middle:
        size = {std::max(image.width, title.width), std::max(image.height, title.height)};
        break;
    }
    return {std::ceil(size.width + 2 * parts.margin), std::ceil(size.height)};
}

core::Size bezelSize(const core::Size& natural, const core::Size& image,
                     const core::EdgeInsets& insets, std::optional<double> fixedWidth,
                     BezelRule rule) {
    const double width = fixedWidth.value_or(natural.width);
    if (!core::hasNonZeroDimensions(image)) {
        return {width, natural.height};
    }
    switch (rule) {
    case BezelRule::tallAsImageOrFixedWidth:
        return core::inset(
            core::Size{std::max(width, fixedWidth.value_or(image.width)), image.height}, insets);
    case BezelRule::tallAsImage:
        return core::inset(core::Size{std::max(width, image.width), image.height}, insets);
    case BezelRule::atLeastImage:
        break;
    }
    const core::Size size = core::inset(core::componentwiseMax(natural, image), insets);
    return {fixedWidth.value_or(size.width), size.height};
}

core::Rect scaledImageRect(const core::Rect& frame, const core::Size& image, ImageScaling scaling) {
    switch (scaling) {
    case ImageScaling::proportionallyDown:
    case ImageScaling::proportionallyUpOrDown:
        return {{std::max(frame.origin.x, std::min(frame.maxX(), image.width) - image.width),
                 std::max(frame.origin.y, std::min(frame.maxY(), image.height) - image.height)},
                image};
    case ImageScaling::axesIndependently:
        return frame;
    case ImageScaling::none:
        return {{frame.origin.x + std::trunc((frame.size.width - image.width) * 0.5),
                 frame.origin.y + std::trunc((frame.size.height - image.height) * 0.5)},
                image};
    }
    core::fatal("Unhandled image scaling value");
}

} // namespace platform
