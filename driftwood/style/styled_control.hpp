#pragma once

#include "driftwood/style/control_style.hpp"
#include "platform/controls/cell_state.hpp"

#include <concepts>
#include <type_traits>

// All of this is for the main thread.
namespace driftwood {

/// A cell or view with one style object for its whole class: a type `ViewStyle`, and an operation
/// `static ViewStyle& style()`, which as a rule returns `sharedStyle<Class, ViewStyle>()`.
template<class T>
concept StyledView = std::derived_from<typename T::ViewStyle, Style> && requires {
    { T::style() } -> std::same_as<typename T::ViewStyle&>;
};

/// A cell that can be selected.
class Selectable {
  public:
    virtual ~Selectable() = default;
    [[nodiscard]] virtual bool isSelected() const = 0;
    virtual void setSelected(bool isSelected) = 0;
};

/// A cell or field whose value can be wrong.
class Validating {
  public:
    virtual ~Validating() = default;
    [[nodiscard]] virtual bool isValid() const = 0;
};

/// The state that a styled cell reports. Pass what the cell is beside being a cell; null is for
/// cells that are no such thing. A disabled cell is never highlighted, and `focused` is left to
/// fields that know of their focus.
[[nodiscard]] StyledControlState styledControlState(const platform::CellState& cell,
                                                    const Selectable* selectable = nullptr,
                                                    const Validating* validating = nullptr);

/// A cell whose looks come from a `ControlStyle`. A class that derives from another styled cell and
/// has a style of its own overrides `controlStyle`, with the more special type.
class StyledControl {
  public:
    virtual ~StyledControl() = default;
    [[nodiscard]] virtual StyledControlState controlState() const = 0;
    /// The `style()` of the object's class.
    [[nodiscard]] virtual ControlStyle& controlStyle() const = 0;

    // What the style answers for the state of now.
    [[nodiscard]] const Color& styleTextColor() const {
        return controlStyle().textColor(controlState());
    }
    [[nodiscard]] const Color& styleTextBackgroundColor() const {
        return controlStyle().textBackgroundColor(controlState());
    }
    [[nodiscard]] const Color& styleFocusRingColor() const {
        return controlStyle().focusRingColor(controlState());
    }
    [[nodiscard]] const Image& styleBezelImage() const {
        return controlStyle().bezelImage(controlState());
    }
};

/// The same for the images of the special styles, where the cell's style has them.
template<std::derived_from<StyledControl> Cell>
[[nodiscard]] const Image& styleBarImage(const Cell& cell) {
    return cell.controlStyle().barImage(cell.controlState());
}
template<std::derived_from<StyledControl> Cell>
[[nodiscard]] const Image& styleKnobImage(const Cell& cell) {
    return cell.controlStyle().knobImage(cell.controlState());
}
template<std::derived_from<StyledControl> Cell>
[[nodiscard]] const Image& styleImage(const Cell& cell) {
    return cell.controlStyle().image(cell.controlState());
}

} // namespace driftwood
