#pragma once

#include "core/thread_state.hpp"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <iterator>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace platform {

/// How many snapshots the calling thread is reading right now, of any type.
LARKVOX_AUDIO_THREAD_LOCAL inline int snapshotReadDepth = 0;

/// A value that is read on any thread without locks and replaced as a whole now and then. A reader
/// keeps what it has begun to read for as long as it reads, also while the value is replaced.
///
/// When `update` returns, nobody reads the former value any more and it is destroyed. Called from
/// within a read on the same thread, where waiting for that would never end, it returns at once
/// and a later update destroys the former value.
///
/// Readers count themselves in one of two counters, by an epoch that only updates move on. It
/// moves on when the counter of the epoch before is 0; having moved twice since a value was
/// replaced, both counters have been 0 since, so no reader has it any more.
template<class T>
class Snapshot {
  public:
    Snapshot() = default;
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    /// Nobody may be reading.
    ~Snapshot() { delete current_.load(std::memory_order_acquire); }

    /// Reads the value for as long as it lives. It belongs to the thread that made it.
    class Reading {
      public:
        explicit Reading(const Snapshot& snapshot) noexcept {
            // Most have never been set: that costs one load.
            if (snapshot.current_.load(std::memory_order_acquire) == nullptr) {
                return;
            }
            ++snapshotReadDepth;
            counter_ = &snapshot.readers_[snapshot.epoch_.load(std::memory_order_relaxed) & 1];
            counter_->fetch_add(1, std::memory_order_seq_cst);
            value_ = snapshot.current_.load(std::memory_order_seq_cst);
        }
        ~Reading() {
            if (counter_ != nullptr) {
                counter_->fetch_sub(1, std::memory_order_release);
                --snapshotReadDepth;
            }
        }
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;

        explicit operator bool() const { return value_ != nullptr; }
        const T& operator*() const { return *value_; }
        const T* operator->() const { return value_; }

      private:
        std::atomic<std::uint32_t>* counter_ = nullptr;
        const T* value_ = nullptr;
    };

    /// The value, or nothing when there is none yet. Lock-free.
    [[nodiscard]] Reading read() const noexcept { return Reading(*this); }

    /// Replaces the value by a copy (or a new one) that `change(T&)` has changed. Updates on
    /// different threads follow each other. Not for a thread that must not wait.
    template<class Change>
    void update(Change&& change) {
        std::uint64_t retiredAt = 0;
        {
            const std::lock_guard lock(mutex_);
            const T* const before = current_.load(std::memory_order_relaxed);
            auto next = before != nullptr ? std::make_unique<T>(*before) : std::make_unique<T>();
            change(*next);
            retired_.reserve(retired_.size() + 1);
            current_.store(next.release(), std::memory_order_seq_cst);
            retiredAt = epoch_.load(std::memory_order_relaxed);
            retired_.push_back({std::unique_ptr<const T>(before), retiredAt});
        }
        while (!reclaim(retiredAt) && snapshotReadDepth == 0) {
            std::this_thread::yield();
        }
    }

  private:
    struct Retired {
        std::unique_ptr<const T> value;
        std::uint64_t epoch;
    };

    /// Destroys what nobody can read any more; true when that includes what was retired then.
    /// The lock is not held while values are destroyed, nor while an update waits: callbacks among
    /// them, or running, may update in turn.
    bool reclaim(std::uint64_t retiredAt) {
        std::vector<Retired> unread;
        const std::lock_guard lock(mutex_);
        std::uint64_t epoch = epoch_.load(std::memory_order_relaxed);
        while (epoch < retiredAt + 2 &&
               readers_[(epoch + 1) & 1].load(std::memory_order_seq_cst) == 0) {
            epoch_.store(++epoch, std::memory_order_seq_cst);
        }
        const auto end = std::find_if(retired_.begin(), retired_.end(),
                                      [&](const Retired& one) { return one.epoch + 2 > epoch; });
        unread.assign(std::make_move_iterator(retired_.begin()), std::make_move_iterator(end));
        retired_.erase(retired_.begin(), end);
        return epoch >= retiredAt + 2;
    }

    std::atomic<const T*> current_{nullptr};
    std::atomic<std::uint64_t> epoch_{0};
    mutable std::atomic<std::uint32_t> readers_[2]{};
    std::mutex mutex_;
    std::vector<Retired> retired_; // oldest first
};

} // namespace platform
