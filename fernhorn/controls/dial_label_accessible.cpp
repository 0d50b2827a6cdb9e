#include "fernhorn/controls/dial_label_accessible.hpp"

#include "fernhorn/controls/dial_label.hpp"
#include "fernhorn/controls/value_text.hpp"

#include <QAccessibleWidget>

namespace fernhorn {
namespace {

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
            return valueText(*label().param(), *label().formatter(), label().param()->value());
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

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const label = qobject_cast<DialLabel*>(object);
    return label != nullptr ? new DialLabelAccessible(*label) : nullptr;
}

} // namespace

void installDialLabelAccessibility() {
    [[maybe_unused]] static const bool isInstalled =
        (QAccessible::installFactory(makeAccessible), true);
}

} // namespace fernhorn
