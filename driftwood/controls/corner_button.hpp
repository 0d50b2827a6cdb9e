#pragma once

#include "driftwood/controls/styled_button.hpp"

namespace platform {
class Menu;
}

// All of this is for the main thread.
namespace driftwood {

/// The styled button cell with the style of corners.
class CornerButtonCell
    : public StyledCell<CornerButtonCell, StyledButtonCell, CornerButtonCellStyle> {
  public:
    using StyledCell::StyledCell;
};

/// A button in the corner of a panel. With a menu, a press opens that in place of clicking.
class CornerButton : public StyledButton {
  public:
    explicit CornerButton(const QString& title, QWidget* parent = nullptr)
        : StyledButton(std::make_unique<CornerButtonCell>(title), parent) {}

    [[nodiscard]] platform::Menu* alternateMenu() const { return alternateMenu_; }
    /// The button owns the menu; null takes it away.
    void setAlternateMenu(std::unique_ptr<platform::Menu> menu);

    [[nodiscard]] bool hasSecondaryClick() const override { return alternateMenu_ != nullptr; }
    bool performSecondaryClick() override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override;
    [[nodiscard]] QWidget* accessibleMenu() const override;

  protected:
    bool mouseDown(int clickCount) override;
    [[nodiscard]] bool stopsAtControlClick() const override { return true; }

  private:
    platform::Menu* alternateMenu_ = nullptr; // a child
};

} // namespace driftwood
