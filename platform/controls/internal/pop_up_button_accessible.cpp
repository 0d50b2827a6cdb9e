#include "platform/controls/internal/pop_up_button_accessible.hpp"

#include "platform/controls/cell_control_accessible.hpp"
#include "platform/controls/pop_up_button.hpp"

namespace platform {
namespace {

class PopUpButtonAccessible final : public CellControlAccessible {
  public:
    explicit PopUpButtonAccessible(PopUpButton& button) : CellControlAccessible(button) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        QString text = CellControlAccessible::text(kind);
        // Its value comes with the description: no reader is told a value that is a text.
        if (kind == QAccessible::Description && !button().accessibleName().isEmpty()) {
            text = text.isEmpty() ? button().title()
                                  : QStringLiteral("%1, %2").arg(button().title(), text);
        }
        return text;
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = CellControlAccessible::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = button().isOpen();
        state.collapsed = !button().isOpen();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names;
        if (button().isEnabled()) {
            names << pressAction() << showMenuAction();
        }
        return names + CellControlAccessible::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == pressAction() || name == showMenuAction()) {
            button().openMenu(MenuOpenedBy::key);
        } else {
            CellControlAccessible::doAction(name);
        }
    }

    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override {
        return name == pressAction() ? QStringList{QStringLiteral("Space")} : QStringList{};
    }

  private:
    [[nodiscard]] PopUpButton& button() const { return static_cast<PopUpButton&>(control()); }
};

} // namespace

QAccessibleInterface* makePopUpButtonAccessible(PopUpButton& button) {
    return new PopUpButtonAccessible(button);
}

} // namespace platform
