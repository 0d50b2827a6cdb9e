#include "driftwood/controls/internal/value_accessible.hpp"

#include "platform/controls/cell_control.hpp"
#include "platform/controls/cell_control_accessible.hpp"

#include <QLocale>

namespace driftwood {
namespace {

class ValueAccessible final : public platform::CellControlAccessible,
                              public QAccessibleValueInterface {
  public:
    explicit ValueAccessible(platform::CellControl& control) : CellControlAccessible(control) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) {
            return value().spokenValue() ? static_cast<QAccessibleValueInterface*>(this) : nullptr;
        }
        return CellControlAccessible::interface_cast(type);
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) {
            return value().valueText();
        }
        QString text = CellControlAccessible::text(kind);
        if (kind == QAccessible::Description) {
            text = text.isEmpty() ? value().valueText()
                                  : QStringLiteral("%1, %2").arg(value().valueText(), text);
        }
        return text;
    }

    [[nodiscard]] QVariant currentValue() const override {
        return value().spokenValue().value_or(value().lowestValue());
    }
    [[nodiscard]] QVariant minimumValue() const override { return value().lowestValue(); }
    [[nodiscard]] QVariant maximumValue() const override { return value().highestValue(); }
    [[nodiscard]] QVariant minimumStepSize() const override { return value().smallestStep(); }

    void setCurrentValue(const QVariant& wanted) override {
        bool isNumber = false;
        const double number = wanted.toDouble(&isNumber);
        if (isNumber && control().isEnabled()) {
            value().editValue(number);
        }
    }

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names;
        if (control().isEnabled()) {
            names << increaseAction() << decreaseAction();
        }
        return names + CellControlAccessible::actionNames();
    }

    void doAction(const QString& name) override {
        if (name != increaseAction() && name != decreaseAction()) {
            CellControlAccessible::doAction(name);
        } else if (control().isEnabled()) {
            value().stepValue(name == increaseAction() ? 1 : -1);
        }
    }

  private:
    [[nodiscard]] ValueControl& value() const { return dynamic_cast<ValueControl&>(control()); }
};

} // namespace

QAccessibleInterface* makeValueAccessible(platform::CellControl& control) {
    return new ValueAccessible(control);
}

void announceValue(platform::CellControl& control) {
    if (QAccessible::isActive()) {
        const auto& value = dynamic_cast<const ValueControl&>(control);
        QAccessibleValueChangeEvent changed(&control, value.spokenValue()
                                                          ? QVariant(*value.spokenValue())
                                                          : QVariant(value.valueText()));
        QAccessible::updateAccessibility(&changed);
        QAccessibleEvent described(&control, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&described);
    }
}

QString numberWithUnit(double value, const QString& unit) {
    const QString number = QLocale().toString(value, 'g', 6);
    return unit.isEmpty() ? number : QStringLiteral("%1 %2").arg(number, unit);
}

} // namespace driftwood
