#include "fernhorn/buttons/internal/press_button_accessible.hpp"

#include "fernhorn/buttons/press_button.hpp"

#include <QAccessibleWidget>

namespace fernhorn {
namespace {

bool isCheckable(QAccessible::Role role) {
    return role == QAccessible::CheckBox || role == QAccessible::RadioButton;
}

class PressButtonAccessible final : public QAccessibleWidget {
  public:
    explicit PressButtonAccessible(PressButton& button) : QAccessibleWidget(&button) {}

    [[nodiscard]] QAccessible::Role role() const override { return button().accessibleRole(); }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name && button().accessibleName().isEmpty()) {
            return button().toolTip();
        }
        return kind == QAccessible::Description ? button().spokenDescription()
                                                : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = button().isPressed();
        state.focusable = true; // also where Tab comes to another of its group
        state.checkable = isCheckable(role());
        state.checked = state.checkable && button().isOn();
        state.selectable = role() == QAccessible::PageTab;
        state.selected = state.selectable && button().isOn();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names;
        if (button().isEnabled()) {
            names << pressName();
        }
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == pressName()) {
            button().performClick();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override {
        return name == pressName() ? QStringList{QStringLiteral("Space")} : QStringList{};
    }

  private:
    [[nodiscard]] PressButton& button() const { return *static_cast<PressButton*>(object()); }
    [[nodiscard]] QString pressName() const {
        return role() == QAccessible::CheckBox ? toggleAction() : pressAction();
    }
};

void announceChange(PressButton& button, QAccessible::State changed) {
    QAccessibleStateChangeEvent event(&button, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace

QAccessibleInterface* makePressButtonAccessible(PressButton& button) {
    return new PressButtonAccessible(button);
}

void announcePressed(PressButton& button) {
    QAccessible::State changed;
    changed.pressed = true;
    announceChange(button, changed);
}

void announceOn(PressButton& button) {
    if (button.accessibleRole() == QAccessible::PageTab) {
        QAccessibleEvent event(&button, QAccessible::Selection);
        QAccessible::updateAccessibility(&event);
    } else if (isCheckable(button.accessibleRole())) {
        QAccessible::State changed;
        changed.checked = true;
        announceChange(button, changed);
    } else { // the way it points, for example
        QAccessibleEvent event(&button, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace fernhorn
