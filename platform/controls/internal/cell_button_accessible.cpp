#include "platform/ui/cells/cell_button_accessible.hpp"

#include "platform/ui/cells/cell_button.hpp"

#include <QAccessibleWidget>

namespace platform {
namespace {

bool isPressedLook(const CellState& state) {
    return state.isHighlighted && state.isEnabled;
}

class CellButtonAccessible final : public QAccessibleWidget {
  public:
    explicit CellButtonAccessible(CellButton& button) : QAccessibleWidget(&button) {}

    [[nodiscard]] QAccessible::Role role() const override { return button().accessibleRole(); }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) {
            if (const QString name = button().accessibleName(); !name.isEmpty()) {
                return name;
            }
            return button().title().isEmpty() ? button().toolTip() : button().title();
        }
        return QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const CellState& cell = button().cell().cellState();
        state.pressed = isPressedLook(cell);
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
    [[nodiscard]] CellButton& button() const { return *static_cast<CellButton*>(object()); }
};

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const button = qobject_cast<CellButton*>(object);
    return button != nullptr ? new CellButtonAccessible(*button) : nullptr;
}

} // namespace

void installCellButtonAccessibility() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
    (void)isInstalled;
}

void announceName(CellButton& button) {
    if (QAccessible::isActive()) {
        QAccessibleEvent event(&button, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
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
