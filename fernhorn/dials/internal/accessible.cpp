#include "fernhorn/dials/internal/accessible.hpp"

#include "fernhorn/dials/dial.hpp"
#include "fernhorn/dials/knob_gestures.hpp"
#include "fernhorn/dials/value_label.hpp"
#include "platform/controls/accessible_factory.hpp"

#include <QAccessibleWidget>

namespace fernhorn {
namespace {

/// Numbers are in what the label shows: hundreds of absolute cents, everything else as it is.
class KnobAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit KnobAccessible(KnobControl& knob) : QAccessibleWidget(&knob, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return knob().accessibleName().isEmpty() ? QString::fromStdString(parameter().name())
                                                     : knob().accessibleName();
        case QAccessible::Description: // the bus carries no text for a value
        case QAccessible::Value:
            return textWithUnit(parameter(), *knob().readOutFormatter(), now());
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    [[nodiscard]] QVariant currentValue() const override { return shown(now()); }
    [[nodiscard]] QVariant minimumValue() const override {
        return shown(parameter().valueRange().lower);
    }
    [[nodiscard]] QVariant maximumValue() const override {
        return shown(parameter().valueRange().upper);
    }
    [[nodiscard]] QVariant minimumStepSize() const override { return shown(stepSize(parameter())); }

    void setCurrentValue(const QVariant& value) override {
        bool isNumber = false;
        const float wanted = value.toFloat(&isNumber);
        if (isNumber && knob().isEnabled()) {
            editParameter(knob().param(), wanted * parameter().displayScaleFactor());
            knob().announceEdit();
        }
    }

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names;
        if (knob().isEnabled()) {
            names << increaseAction() << decreaseAction();
            if (dial() != nullptr) {
                names << pressAction();
            }
        }
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        const bool isUp = name == increaseAction();
        if (!knob().isEnabled()) {
            return;
        }
        if (isUp || name == decreaseAction()) {
            stepParameter(knob().param(), isUp ? ParameterStep::up : ParameterStep::down);
            knob().announceEdit();
        } else if (name == pressAction() && dial() != nullptr) {
            dial()->openField();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    [[nodiscard]] KnobControl& knob() const { return *static_cast<KnobControl*>(object()); }
    [[nodiscard]] Dial* dial() const { return qobject_cast<Dial*>(object()); }
    [[nodiscard]] const AudioParameter& parameter() const { return *knob().param(); }
    /// An edit that was just made has perhaps not arrived yet.
    [[nodiscard]] float now() const { return parameter().valueWithPendingEdits(); }
    [[nodiscard]] QVariant shown(float value) const {
        return static_cast<double>(value * parameter().saveScaleFactor());
    }
};

class DialLabelAccessible final : public QAccessibleWidget {
  public:
    explicit DialLabelAccessible(DialLabel& label)
        : QAccessibleWidget(&label, QAccessible::Button) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return label().accessibleName().isEmpty()
                       ? QString::fromStdString(label().param()->name())
                       : label().accessibleName();
        case QAccessible::Description:
            return textWithUnit(*label().param(), *label().formatter(), label().param()->value());
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names;
        if (label().isEnabled()) {
            names << pressAction();
        }
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == pressAction()) {
            label().openField();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    [[nodiscard]] DialLabel& label() const { return *static_cast<DialLabel*>(object()); }
};

} // namespace

void installKnobAccessibility() {
    platform::addAccessibleMaker(KnobControl::staticMetaObject,
                                 [](QObject& object) -> QAccessibleInterface* {
                                     return new KnobAccessible(static_cast<KnobControl&>(object));
                                 });
}

void announceKnobValue(KnobControl& knob) {
    if (QAccessible::isActive()) {
        const float value = knob.param()->valueWithPendingEdits() * knob.param()->saveScaleFactor();
        QAccessibleValueChangeEvent changed(&knob, static_cast<double>(value));
        QAccessible::updateAccessibility(&changed);
        QAccessibleEvent described(&knob, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&described);
    }
}

void installDialLabelAccessibility() {
    platform::addAccessibleMaker(
        DialLabel::staticMetaObject, [](QObject& object) -> QAccessibleInterface* {
            return new DialLabelAccessible(static_cast<DialLabel&>(object));
        });
}

} // namespace fernhorn
