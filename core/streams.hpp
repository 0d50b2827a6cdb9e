#pragma once

#include "core/observable.hpp"
#include "core/subscription.hpp"

#include <functional>
#include <utility>

namespace core {

/// Values that arrive over time, then at most one completion. A subscriber gets what is sent from
/// then on; one that comes after the completion gets only the completion, at once. One thread.
template<class T>
class Stream {
  public:
    Stream() = default;
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    virtual ~Stream() = default;

    /// Either callback may be empty. Nothing arrives after the subscription has ended.
    virtual Subscription subscribe(std::function<void(const T&)> onValue,
                                   std::function<void()> onCompletion = {}) = 0;
};

/// A stream that its owner feeds by hand.
template<class T>
class Subject final : public Stream<T> {
  public:
    Subscription subscribe(std::function<void(const T&)> onValue,
                           std::function<void()> onCompletion = {}) override {
        if (isFinished_) {
            if (onCompletion) {
                onCompletion();
            }
            return {};
        }
        return subscribers_.add(
            [value = std::move(onValue), completion = std::move(onCompletion)](const T* sent) {
                if (sent != nullptr) {
                    if (value) {
                        value(*sent);
                    }
                } else if (completion) {
                    completion();
                }
            });
    }

    /// Does nothing after `finish`.
    void send(const T& value) {
        if (!isFinished_) {
            subscribers_.notify(&value);
        }
    }

    /// Completes the stream. Does nothing the second time.
    void finish() {
        if (!std::exchange(isFinished_, true)) {
            subscribers_.notify(nullptr);
        }
    }

    [[nodiscard]] bool isFinished() const { return isFinished_; }

  private:
    ObserverList<const T*> subscribers_; // null stands for the completion
    bool isFinished_ = false;
};

} // namespace core
