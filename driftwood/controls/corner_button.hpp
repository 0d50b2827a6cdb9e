#pragma once

#include "driftwood/controls/pop_up.hpp"
#include "driftwood/controls/styled_button.hpp"

namespace driftwood {

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

    [[nodiscard]] const std::shared_ptr<PopUpMenu>& alternateMenu() const { return alternateMenu_; }
    void setAlternateMenu(std::shared_ptr<PopUpMenu> menu) { alternateMenu_ = std::move(menu); }

    [[nodiscard]] bool hasSecondaryClick() const override { return alternateMenu_ != nullptr; }
    bool performSecondaryClick() override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override;

  protected:
    bool mouseDown(int clickCount) override;

  private:
    std::shared_ptr<PopUpMenu> alternateMenu_;
};

} // namespace driftwood
