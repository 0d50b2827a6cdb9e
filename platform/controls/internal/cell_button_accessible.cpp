#include "platform/controls/internal/cell_button_accessible.hpp"

#include "platform/controls/cell_button.hpp"
#include "platform/controls/cell_control_accessible.hpp"

namespace platform {
namespace {

bool isPressedLook(const CellState& state) {
    return state.isHighlighted && state.isEnabled;
}

class CellButtonAccessible final : public CellControlAccessible {
  public:
    explicit CellButtonAccessible(CellButton& button) : CellControlAccessible(button) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = CellControlAccessible::state();
        const CellState& cell = button().cell().cellState();
        state.checkable = cell.showsState;
        state.checked = cell.showsState && cell.state == StateValue::on;
        state.checkStateMixed = cell.showsState && cell.state == StateValue::mixed;
        state.hasPopup = button().accessibleRole() == QAccessible::ButtonMenu;
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names;
        if (button().isEnabled()) {
            names << (button().cell().cellState().showsState ? toggleAction() : pressAction());
            if (button().hasSecondaryClick()) {
                names << showMenuAction();
            }
        }
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == pressAction() || name == toggleAction()) {
            button().performClick();
        } else if (name == showMenuAction() && button().isEnabled()) {
            button().performSecondaryClick();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override {
        return name == pressAction() || name == toggleAction()
                   ? QStringList{QStringLiteral("Space")}
                   : QStringList{};
    }

  private:
    [[nodiscard]] CellButton& button() const { return static_cast<CellButton&>(control()); }
};

} // namespace

QAccessibleInterface* makeCellButtonAccessible(CellButton& button) {
    return new CellButtonAccessible(button);
}

void announceState(CellButton& button, const CellState& before) {
    if (!QAccessible::isActive()) {
        return;
    }
    const CellState& now = button.cell().cellState();
    QAccessible::State changed;
    changed.pressed = isPressedLook(before) != isPressedLook(now);
    if (now.showsState && before.state != now.state) {
        const auto either = [&](StateValue value) {
            return before.state == value || now.state == value;
        };
        changed.checked = either(StateValue::on);
        changed.checkStateMixed = either(StateValue::mixed);
    }
    if (changed.pressed || changed.checked || changed.checkStateMixed) {
        QAccessibleStateChangeEvent event(&button, changed);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace platform
