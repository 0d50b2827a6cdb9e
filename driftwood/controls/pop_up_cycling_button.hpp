#pragma once

#include "driftwood/controls/cursor_button.hpp"

// All of this is for the main thread.
namespace driftwood {

/// A button cell without a bezel, its image behind the title.
class PopUpCyclingButtonCell : public platform::ButtonCell {
  public:
    explicit PopUpCyclingButtonCell(const QString& title = {}) : ButtonCell(title) {
        setBordered(false);
        setImagePosition(platform::ImagePosition::imageTrailing);
    }
};

/// Steps through the items of the pop-up button that is its target: forward with a click, backward
/// with Shift.
class PopUpCyclingButton : public CursorButton {
  public:
    explicit PopUpCyclingButton(const QString& title, QWidget* parent = nullptr)
        : CursorButton(std::make_unique<PopUpCyclingButtonCell>(title), parent) {}

    /// What a click reaches has to be a `platform::PopUpButton`; otherwise the program stops.
    void setPopUpButton(platform::ActionTarget& popUpButton) {
        setAction([this](ActionTarget& target, Control&) { cycle(target); }, popUpButton);
    }

  private:
    void cycle(ActionTarget& target);
};

} // namespace driftwood
