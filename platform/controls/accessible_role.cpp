#include "platform/ui/accessible_role.hpp"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace platform {
namespace {

constexpr const char* property = "_accessibleRole";

/// Asked for every object, with its class and then the classes that it derives from.
QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
    const QVariant role = object->isWidgetType() ? object->property(property) : QVariant();
    return role.isValid() ? new QAccessibleWidget(static_cast<QWidget*>(object),
                                                  static_cast<QAccessible::Role>(role.toInt()))
                          : nullptr;
}

} // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(make), true);
    widget.setProperty(property, static_cast<int>(role));
}

} // namespace platform
