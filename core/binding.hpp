#pragma once

#include "core/observable.hpp"

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace core {

/// A value that lives elsewhere, to read, to write and to follow: what a control that edits it is
/// given. Copies lead to the same value; what they need of it they keep alive. One thread.
template<class T>
class Binding {
  public:
    using Get = std::function<T()>;
    using Set = std::function<void(T)>;
    /// Registers a callback for changes.
    using Observe = std::function<Subscription(std::function<void(const T&)>)>;

    /// All three are there; `observe` tells of a change after it is made.
    Binding(Get get, Set set, Observe observe)
        : get_(std::move(get)), set_(std::move(set)), observe_(std::move(observe)) {}

    /// The value of an observable, which is not null. One that is part of an object is handed over
    /// as `{object, &object->part}`.
    explicit Binding(std::shared_ptr<Observable<T>> source)
        : get_([source] { return source->value(); }),
          set_([source](T value) { source->set(std::move(value)); }),
          observe_([source](std::function<void(const T&)> callback) {
              return source->observe(std::move(callback));
          }) {}

    /// A value that stays what it is; setting it does nothing.
    [[nodiscard]] static Binding constant(T value) {
        return {[value = std::move(value)] { return value; }, [](T) {},
                [](std::function<void(const T&)>) { return Subscription(); }};
    }

    [[nodiscard]] T get() const { return get_(); }
    void set(T value) const { set_(std::move(value)); }

    /// The callback gets the value after each change, whoever made it; it is not called for the
    /// value of now.
    [[nodiscard]] Subscription observe(std::function<void(const T&)> callback) const {
        return observe_(std::move(callback));
    }

    /// One field of the value: setting it leaves the others as they are, and who observes it hears
    /// only of changes of the field.
    template<class Field, class Whole = T>
    requires std::is_class_v<Whole>
    [[nodiscard]] Binding<Field> field(Field Whole::*member) const {
        return {[whole = *this, member] { return whole.get().*member; },
                [whole = *this, member](Field value) {
                    T changed = whole.get();
                    changed.*member = std::move(value);
                    whole.set(std::move(changed));
                },
                [whole = *this, member](std::function<void(const Field&)> callback) {
                    return whole.observe([callback = std::move(callback), member,
                                          last = whole.get().*member](const T& value) mutable {
                        if (!(value.*member == last)) {
                            last = value.*member;
                            callback(Field(last)); // it may end the subscription, and `last`
                        }
                    });
                }};
    }

  private:
    Get get_;
    Set set_;
    Observe observe_;
};

template<class T>
Binding(std::shared_ptr<Observable<T>>) -> Binding<T>;

} // namespace core
