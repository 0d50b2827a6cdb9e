#include "platform/controls/accessible_role.hpp"

#include "platform/controls/accessible_factory.hpp"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace platform {
namespace {

constexpr const char* property = "_accessibleRole";

QAccessibleInterface* make(QObject& object) {
    const QVariant role = object.property(property);
    return role.isValid() ? new QAccessibleWidget(static_cast<QWidget*>(&object),
                                                  static_cast<QAccessible::Role>(role.toInt()))
                          : nullptr;
}

} // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    addAccessibleMaker(QWidget::staticMetaObject, make);
    widget.setProperty(property, static_cast<int>(role));
}

} // namespace platform
