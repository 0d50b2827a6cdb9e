#pragma once

#include "core/subscription.hpp"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace core {

/// A list of callbacks that may change while it is being called: one added meanwhile is first
/// called the next time, one removed meanwhile is not called any more, and the list itself may be
/// destroyed by a callback. One thread.
template<class... Args>
class ObserverList {
  public:
    using Callback = std::function<void(Args...)>;

    [[nodiscard]] Subscription add(Callback callback) {
        auto entry = std::make_shared<Callback>(std::move(callback));
        state_->entries.push_back(entry);
        return Subscription([state = std::weak_ptr(state_), entry = std::weak_ptr(entry)] {
            if (const auto list = state.lock()) {
                list->remove(entry.lock());
            }
        });
    }

    void notify(Args... args) const {
        const auto state = state_; // a callback may destroy this list
        const auto count = state->entries.size();
        ++state->depth;
        for (std::size_t i = 0; i < count; ++i) {
            // A copy, since the callback may remove itself.
            if (const auto callback = state->entries[i]) {
                (*callback)(args...);
            }
        }
        if (--state->depth == 0) {
            std::erase(state->entries, nullptr);
        }
    }

    [[nodiscard]] bool isEmpty() const {
        return std::ranges::all_of(state_->entries, [](const auto& e) { return e == nullptr; });
    }

  private:
    struct State {
        std::vector<std::shared_ptr<Callback>> entries;
        int depth = 0;

        void remove(const std::shared_ptr<Callback>& entry) {
            const auto found = std::ranges::find(entries, entry);
            if (entry == nullptr || found == entries.end()) {
                return;
            }
            if (depth > 0) {
                *found = nullptr; // `notify` counts on the positions
            } else {
                entries.erase(found);
            }
        }
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

/// A value that tells its observers when it has changed. Setting an equal value tells nobody.
/// One thread.
template<class T>
class Observable {
  public:
    Observable() = default;
    explicit Observable(T value) : value_(std::move(value)) {}
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;

    [[nodiscard]] const T& value() const { return value_; }

    /// Stores the value; observers are told once, after it is stored, when it differs from the
    /// value before (`==`). Setting it again from an observer is allowed.
    void set(T value) {
        const bool changed = !(value == value_);
        value_ = std::move(value);
        if (changed) {
            observers_.notify(value_);
        }
    }

    /// The callback gets the value that is stored at the time of the call. It is not called for
    /// the value of now.
    Subscription observe(std::function<void(const T&)> callback) {
        return observers_.add(std::move(callback));
    }

  private:
    T value_{};
    ObserverList<const T&> observers_;
};

} // namespace core
