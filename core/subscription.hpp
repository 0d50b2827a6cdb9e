#pragma once

#include <functional>
#include <utility>

namespace core {

/// Keeps an observer registered for as long as it lives. Destroying or cancelling it takes the
/// observer away; both are allowed while the observer is being called, and when what was observed
/// is gone already. Not shared between threads.
class [[nodiscard]] Subscription {
  public:
    Subscription() = default;
    explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
    Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            cancel();
            cancel_ = std::exchange(other.cancel_, nullptr);
        }
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { cancel(); }

    /// Takes the observer away now. Does nothing the second time.
    void cancel() {
        if (auto action = std::exchange(cancel_, nullptr)) {
            action();
        }
    }

    [[nodiscard]] bool isActive() const { return cancel_ != nullptr; }

  private:
    std::function<void()> cancel_;
};

} // namespace core
