#pragma once

#include "core/main_queue.hpp"
#include "core/streams.hpp"

#include <functional>
#include <memory>
#include <utility>

namespace driftwood {

/// Delivers a stream on the main thread: at once what arrives there, in its turn on the main queue
/// what arrives on any other thread. So something that arrives on the main thread may overtake what
/// another thread has sent shortly before.
///
/// Subscribe and end the subscription on the main thread; then nothing arrives after its end, not
/// even what waits in the queue. An upstream that is fed by another thread meanwhile has to allow
/// that, as `ConcurrentSubject` does.
template<class T>
class ReceiveOnMainThread final : public core::Stream<T> {
  public:
    explicit ReceiveOnMainThread(std::shared_ptr<core::Stream<T>> upstream,
                                 core::MainQueue& queue = core::MainQueue::shared())
        : upstream_(std::move(upstream)), queue_(queue) {}

    [[nodiscard]] core::Subscription subscribe(std::function<void(const T&)> onValue,
                                               std::function<void()> onCompletion = {}) override {
        const auto inner =
            std::make_shared<Inner>(queue_, std::move(onValue), std::move(onCompletion));
        inner->subscription =
            upstream_->subscribe([inner](const T& value) { Inner::receive(inner, value); },
                                 [inner] { Inner::complete(inner); });
        return core::Subscription([inner] { inner->cancel(); });
    }

  private:
    struct Subscriber {
        std::function<void(const T&)> onValue;
        std::function<void()> onCompletion;
    };

    /// One subscription. All of it but `queue` belongs to the main thread.
    struct Inner {
        Inner(core::MainQueue& mainQueue, std::function<void(const T&)> onValue,
              std::function<void()> onCompletion)
            : queue(mainQueue),
              subscriber(std::make_shared<Subscriber>(
                  Subscriber{std::move(onValue), std::move(onCompletion)})) {}

        static void receive(const std::shared_ptr<Inner>& inner, const T& value) {
            if (inner->queue.isMainThread()) {
                inner->deliver(value);
            } else {
                inner->queue.post([inner, value] { inner->deliver(value); });
            }
        }
        static void complete(const std::shared_ptr<Inner>& inner) {
            if (inner->queue.isMainThread()) {
                inner->deliverCompletion();
            } else {
                inner->queue.post([inner] { inner->deliverCompletion(); });
            }
        }

        void deliver(const T& value) const {
            const auto alive = subscriber; // the callback may end the subscription
            if (alive != nullptr && alive->onValue) {
                alive->onValue(value);
            }
        }
        void deliverCompletion() {
            const auto alive = std::exchange(subscriber, nullptr);
            if (alive != nullptr && alive->onCompletion) {
                alive->onCompletion();
            }
        }
        void cancel() {
            subscriber.reset();
            subscription.cancel();
        }

        core::MainQueue& queue;
        std::shared_ptr<Subscriber> subscriber; // null: ended
        core::Subscription subscription;
    };

    const std::shared_ptr<core::Stream<T>> upstream_;
    core::MainQueue& queue_;
};

/// The same without naming the type.
template<class T>
[[nodiscard]] std::shared_ptr<core::Stream<T>>
receiveOnMainThread(std::shared_ptr<core::Stream<T>> upstream,
                    core::MainQueue& queue = core::MainQueue::shared()) {
    return std::make_shared<ReceiveOnMainThread<T>>(std::move(upstream), queue);
}

} // namespace driftwood
