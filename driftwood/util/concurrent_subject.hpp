#pragma once

#include "core/streams.hpp"

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace driftwood {

/// A stream that is fed by hand and may be fed, followed and left from any thread. The callbacks
/// run on the thread that sends, one of several senders not waiting for the other. When a
/// subscription ends on one thread while another is sending, a call that has begun there goes on to
/// its end; none begins any more.
template<class T>
class ConcurrentSubject final : public core::Stream<T> {
  public:
    [[nodiscard]] core::Subscription subscribe(std::function<void(const T&)> onValue,
                                               std::function<void()> onCompletion = {}) override {
        const auto entry = std::make_shared<Entry>(std::move(onValue), std::move(onCompletion));
        {
            const std::scoped_lock lock(state_->mutex);
            if (!state_->isFinished) {
                state_->entries.push_back(entry);
                return core::Subscription([state = std::weak_ptr(state_), entry] {
                    entry->isActive = false;
                    if (const auto alive = state.lock()) {
                        const std::scoped_lock removing(alive->mutex);
                        std::erase(alive->entries, entry);
                    }
                });
            }
        }
        entry->complete();
        return {};
    }

    /// Does nothing after `finish`.
    void send(const T& value) {
        for (const auto& entry : entries(false)) {
            if (entry->isActive && entry->onValue) {
                entry->onValue(value);
            }
        }
    }

    /// Completes the stream. Does nothing the second time.
    void finish() {
        for (const auto& entry : entries(true)) {
            entry->complete();
        }
    }

  private:
    struct Entry {
        Entry(std::function<void(const T&)> value, std::function<void()> completion)
            : onValue(std::move(value)), onCompletion(std::move(completion)) {}
        void complete() const {
            if (isActive && onCompletion) {
                onCompletion();
            }
        }
        const std::function<void(const T&)> onValue;
        const std::function<void()> onCompletion;
        std::atomic<bool> isActive{true};
    };
    using Entries = std::vector<std::shared_ptr<Entry>>;
    struct State {
        std::mutex mutex;
        Entries entries;
        bool isFinished = false;
    };

    // A copy, since no callback may run under the lock.
    Entries entries(bool finishing) {
        const std::scoped_lock lock(state_->mutex);
        if (finishing) {
            state_->isFinished = true;
            return std::exchange(state_->entries, {});
        }
        return state_->entries;
    }

    const std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace driftwood
