#pragma once

#include "core/subscription.hpp"

#include <QWidget>

#include <functional>
#include <memory>
#include <typeindex>
#include <utility>

namespace platform {

namespace internal {

using EnvironmentObject = std::shared_ptr<void>;

void setEnvironment(QWidget& widget, std::type_index type, EnvironmentObject object);
EnvironmentObject environment(const QWidget& widget, std::type_index type);

/// Looks for the object of one type above a widget, and again whenever another may be found.
class EnvironmentFollower {
  public:
    EnvironmentFollower(QWidget& widget, std::type_index type, std::function<void()> changed);
    ~EnvironmentFollower();
    EnvironmentFollower(const EnvironmentFollower&) = delete;
    EnvironmentFollower& operator=(const EnvironmentFollower&) = delete;

    [[nodiscard]] const EnvironmentObject& object() const;

  private:
    struct State;
    std::shared_ptr<State> state_; // kept by what it calls while it calls
};

} // namespace internal

/// Puts an object into the environment of a widget and of everything in it, in place of the one of
/// that type that comes from above; null takes it away again. The widget keeps it alive. There is
/// one for each type `T`. Main thread.
template<class T>
void setEnvironment(QWidget& widget, std::shared_ptr<T> object) {
    internal::setEnvironment(widget, typeid(T), std::move(object));
}

/// The object of type `T` of the widget itself or of the nearest widget above that has one, also
/// through the parents of windows; null when there is none.
template<class T>
[[nodiscard]] std::shared_ptr<T> environment(const QWidget& widget) {
    return std::static_pointer_cast<T>(internal::environment(widget, typeid(T)));
}

/// The environment's object of type `T`, followed: the nearest one is asked for anew whenever an
/// object is put above the widget, or the widget or one above it gets another parent. A member of
/// the widget. Main thread.
template<class T>
class Environment {
  public:
    /// `changed` is called each time that another object is there, or none; not for the first.
    explicit Environment(QWidget& widget, std::function<void()> changed = {})
        : follower_(widget, typeid(T), std::move(changed)) {}

    [[nodiscard]] std::shared_ptr<T> object() const {
        return std::static_pointer_cast<T>(follower_.object());
    }

  private:
    internal::EnvironmentFollower follower_;
};

} // namespace platform
