#include "driftwood/style/control_style.hpp"

#include "driftwood/style/styles.hpp"

namespace driftwood {
namespace {

using State = StyledControlState;

constexpr State pressedOrOn = State::highlighted | State::on | State::mixed;

} // namespace

ControlStyle::ControlStyle()
    : font_(Styles::Control::font()),
      textColor_(Styles::Control::textColor()),
      textBackgroundColor_(Styles::Control::background()),
      selectedFont_(font_),
      selectedTextColor_(Styles::Control::selectedTextColor()),
      selectedBackgroundColor_(Styles::Control::selectedBackground()),
      disabledTextColor_(Styles::Control::disabledTextColor()),
      disabledBackgroundColor_(Styles::Control::disabledBackground()),
      highlightedTextColor_(Styles::Control::highlightedTextColor()),
      highlightedBackgroundColor_(Styles::Control::highlightedBackground()),
      invalidTextColor_(Styles::Control::errorTextColor()),
      invalidBackgroundColor_(Styles::Control::errorBackground()),
      focusRingColor_(assetSource().color("Highlight/System")),
      invalidFocusRingColor_(Styles::Control::errorFocusRingColor()) {}

const Color& ControlStyle::focusRingColor(State state) const {
    return state.contains(State::invalid) ? invalidFocusRingColor_ : focusRingColor_;
}

const Color& ControlStyle::textColor(State state) const {
    if (state.contains(State::disabled)) {
        return disabledTextColor_;
    }
    if (state.contains(State::invalid)) {
        return invalidTextColor_;
    }
    if (state.contains(State::selected)) {
        return selectedTextColor_;
    }
    return state.containsAny(pressedOrOn) ? highlightedTextColor_ : textColor_;
}

const Color& ControlStyle::textBackgroundColor(State state) const {
    if (state.contains(State::invalid)) {
        return invalidBackgroundColor_;
    }
    if (state.containsAny(pressedOrOn)) {
        return highlightedBackgroundColor_;
    }
    if (state.contains(State::selected)) {
        return selectedBackgroundColor_;
    }
    return state.contains(State::disabled) ? disabledBackgroundColor_ : backgroundColor();
}

} // namespace driftwood
