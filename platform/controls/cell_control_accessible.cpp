#include "platform/controls/cell_control_accessible.hpp"

#include "platform/controls/cell_control.hpp"

#include <QPointer>

#include <algorithm>
#include <optional>

namespace platform {
namespace {

/// A part of a control. It knows its place in the order, and asks the control for the rest.
class PartAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    PartAccessible(CellControl& control, int index) : control_(&control), index_(index) {}

    [[nodiscard]] bool isValid() const override {
        return control_ != nullptr && index_ < static_cast<int>(parts().size());
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(control_.data());
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name          ? part().name
               : kind == QAccessible::Description ? part().description
                                                  : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QAccessible::Role role() const override { return part().role; }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = part().state;
        if (control_ != nullptr) {
            state.disabled = state.disabled || !control_->isEnabled();
            state.invisible = state.invisible || !control_->isVisible();
        }
        return state;
    }
    [[nodiscard]] QRect rect() const override {
        const QRect place = part().place;
        return control_ != nullptr ? QRect(control_->mapToGlobal(place.topLeft()), place.size())
                                   : QRect();
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    [[nodiscard]] QStringList actionNames() const override {
        const QString action = part().action;
        return action.isEmpty() || state().disabled ? QStringList() : QStringList(action);
    }
    void doAction(const QString& name) override {
        if (actionNames().contains(name)) {
            control_->performAccessiblePart(index_);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
        return {};
    }

  private:
    [[nodiscard]] std::vector<AccessiblePart> parts() const {
        return control_ != nullptr ? control_->accessibleParts() : std::vector<AccessiblePart>();
    }
    [[nodiscard]] AccessiblePart part() const {
        const auto all = parts();
        const auto index = static_cast<std::size_t>(index_);
        return index < all.size() ? all[index] : AccessiblePart();
    }

    QPointer<CellControl> control_;
    int index_;
};

} // namespace

CellControlAccessible::CellControlAccessible(CellControl& control) : QAccessibleWidget(&control) {}

CellControlAccessible::~CellControlAccessible() {
    for (const QAccessible::Id id : parts_) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

CellControl& CellControlAccessible::control() const {
    return *static_cast<CellControl*>(object());
}

QAccessible::Role CellControlAccessible::role() const {
    return control().accessibleRole();
}

QString CellControlAccessible::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Name && control().accessibleName().isEmpty()) {
        return control().spokenName();
    }
    return QAccessibleWidget::text(kind);
}

QAccessible::State CellControlAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const CellState& cell = control().cell().cellState();
    state.pressed = cell.isHighlighted && cell.isEnabled;
    const std::optional<bool> isSelected = control().accessibleSelection();
    state.selectable = isSelected.has_value();
    state.selected = isSelected.value_or(false);
    return state;
}

// The parts come before the widgets in the control, the menu after them: being a window, it is not
// one of those.

int CellControlAccessible::childCount() const {
    return menuIndex() + (control().accessibleMenu() != nullptr ? 1 : 0);
}

int CellControlAccessible::menuIndex() const {
    return static_cast<int>(control().accessibleParts().size()) + QAccessibleWidget::childCount();
}

QAccessibleInterface* CellControlAccessible::child(int index) const {
    const int count = static_cast<int>(control().accessibleParts().size());
    if (index >= count && index == menuIndex()) {
        return QAccessible::queryAccessibleInterface(control().accessibleMenu());
    }
    if (index < 0 || index >= count) {
        return QAccessibleWidget::child(index - count);
    }
    while (static_cast<int>(parts_.size()) <= index) {
        parts_.push_back(QAccessible::registerAccessibleInterface(
            new PartAccessible(control(), static_cast<int>(parts_.size()))));
    }
    return QAccessible::accessibleInterface(parts_[static_cast<std::size_t>(index)]);
}

int CellControlAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto isChild = [child](QAccessible::Id id) {
        return QAccessible::accessibleInterface(id) == child;
    };
    if (const auto found = std::ranges::find_if(parts_, isChild); found != parts_.end()) {
        return static_cast<int>(found - parts_.begin());
    }
    if (const QWidget* const menu = control().accessibleMenu();
        menu != nullptr && child != nullptr && child->object() == menu) {
        return menuIndex();
    }
    const int index = QAccessibleWidget::indexOfChild(child);
    return index < 0 ? index : index + static_cast<int>(control().accessibleParts().size());
}

QAccessibleInterface* CellControlAccessible::childAt(int x, int y) const {
    const auto parts = control().accessibleParts();
    const QPoint point = control().mapFromGlobal(QPoint(x, y));
    const auto found = std::ranges::find_if(
        parts, [&](const AccessiblePart& part) { return part.place.contains(point); });
    return found != parts.end() ? child(static_cast<int>(found - parts.begin()))
                                : QAccessibleWidget::childAt(x, y);
}

} // namespace platform
