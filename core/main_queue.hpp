#pragma once

#include "core/ring.hpp"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <new>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace core {

/// Brings the main thread round to draining a queue. `wake` is called from any thread, at most
/// once between two drains that emptied the queue, and must neither block nor throw.
class Waker {
  public:
    virtual ~Waker() = default;
    virtual void wake() noexcept = 0;
};

/// Something whose newest state is carried to the main thread when the queue has no room left for
/// every single change: however often it is queued, it stands there once (coalescing). It keeps
/// itself alive until it has left, or withdraws from the queue before it ends.
class Mergeable {
  public:
    /// Main thread, while nobody else can queue the object: the place to move whatever keeps
    /// it alive to where only the main thread sees it. False when it is just ending on another
    /// thread; then none of the others is called.
    virtual bool leaveLine() noexcept { return true; }
    /// Main thread: copies the newest state aside. Everything stored before a `merge` that found
    /// the object queued is part of it; whoever stores something later queues it again.
    virtual void take() noexcept = 0;
    /// Main thread: makes the state that was taken visible. It may drain the queue, and so take
    /// the next state, before it returns.
    virtual void apply() = 0;
    /// Called once in place of the three above when the queue is destroyed first.
    virtual void discard() noexcept {}

  protected:
    ~Mergeable() = default;

  private:
    friend class MainQueue;
    std::atomic<bool> isInLine_{false};
    Mergeable* next_ = nullptr;      // in the overflow list
    Mergeable* previous_ = nullptr;  // in the overflow list, once it has been sorted
    Mergeable* nextTaken_ = nullptr; // on the main thread
};

/// The way to the main thread: tasks posted from any thread run on the main thread, in the order
/// of posting. Posting takes no lock, and makes no system call while the main thread is awake
/// anyway. Tasks must not throw.
///
/// The tasks stand in a ring of fixed size. When it is full, further ones stand in an overflow
/// list, which is drained behind the ring; until that list is empty again everything new goes
/// there, so that the order holds. There a `Mergeable` costs no memory, and a task one heap block.
///
/// The main thread is the one that adds the first waker or, without any, drains first. It stays so
/// until the last waker is removed. Draining on another thread stops the program.
class MainQueue {
  public:
    /// Tasks up to this size (in bytes) are stored in the ring itself; a larger one stands in the
    /// overflow list.
    static constexpr std::size_t inlineTaskSize = 48;

    /// `capacity` is the number of tasks in the ring, rounded up to a power of two.
    explicit MainQueue(std::size_t capacity = 8192);
    ~MainQueue();
    MainQueue(const MainQueue&) = delete;
    MainQueue& operator=(const MainQueue&) = delete;

    /// The queue of the process's main thread. The platform's driver drains it.
    static MainQueue& shared();

    /// Runs `task()` later on the main thread. Any thread. Nothing is ever dropped.
    template<class Task>
    void post(Task&& task) {
        if (!tryPost(std::forward<Task>(task))) {
            // tryPost has not touched the task.
            putInLine(
                new OverflowTask<std::decay_t<Task>>(std::in_place, std::forward<Task>(task)));
        }
    }

    /// As `post`, but gives up, leaving the task untouched, when the ring is full, when others
    /// stand in the overflow list already, or when the task is larger than `inlineTaskSize`. Never
    /// allocates.
    template<class Task>
    [[nodiscard]] bool tryPost(Task&& task) {
        using Stored = std::decay_t<Task>;
        static_assert(std::is_invocable_v<Stored&>);
        if constexpr (sizeof(Stored) <= inlineTaskSize &&
                      alignof(Stored) <= alignof(std::max_align_t)) {
            if (overflow_.load(std::memory_order_acquire) != nullptr) {
                return false;
            }
            const auto ticket = ring_.claim();
            if (ticket.cell == nullptr) {
                return false;
            }
            ::new (static_cast<void*>(ticket.cell->storage)) Stored(std::forward<Task>(task));
            ticket.cell->run = [](void* storage, bool call) {
                auto* const stored = std::launder(static_cast<Stored*>(storage));
                if (call) {
                    (*stored)();
                }
                std::destroy_at(stored);
            };
            ring_.publish(ticket);
            wakeIfAsleep();
            return true;
        } else {
            // Too large for a cell: a boxed task in the overflow list keeps the order, too.
            return false;
        }
    }

    /// Whether `state` stands in the overflow list, or is about to. While it does, its changes have
    /// to be merged: a task posted in their place could overtake those that wait. Any thread.
    [[nodiscard]] static bool standsInLine(const Mergeable& state) noexcept {
        return state.isInLine_.load(std::memory_order_acquire);
    }

    /// Puts `state` into the overflow list, unless it stands there already; then the `take` to come
    /// sees what the caller has stored before this call. Returns true when this call has put it
    /// in the overflow list. `beforeEntering` runs in that case, before the main thread can see the
    /// object: the place for taking a reference to whatever keeps it alive. Any thread.
    template<class BeforeEntering>
    bool merge(Mergeable& state, BeforeEntering&& beforeEntering) noexcept {
        if (state.isInLine_.exchange(true, std::memory_order_acq_rel)) {
            return false;
        }
        beforeEntering();
        putInLine(&state);
        return true;
    }

    /// Takes `state` out of the overflow list, if it stands there. Any thread but an audio thread;
    /// for the end of objects that the list does not keep alive. Nobody queues it meanwhile.
    void withdraw(Mergeable& state) noexcept;

    /// Main thread: runs up to `budget` tasks. Returns true when something may be left to do, and
    /// drain should be called again soon without waiting to be woken. A task may call it, too.
    bool drain(std::size_t budget = SIZE_MAX);

    /// When `pump` wants to be called again.
    enum class Next : unsigned char {
        whenWoken,
        soon, ///< after `pumpInterval`; whoever posts until then makes no system call
        now,  ///< after other events had their turn
    };
    static constexpr std::chrono::milliseconds pumpInterval{1};

    /// Main thread: what an event loop calls when it is woken, and then as it is told. Runs up to
    /// `budget` (at least one) tasks. Having run some it stays awake a little longer: a thread that
    /// posts a burst would otherwise have to wake the main thread again and again, which costs it
    /// more than the posts, most of all when both share a processor. The price is that the rest of
    /// a burst may arrive `pumpInterval` later. `drain` may be called in between.
    [[nodiscard]] Next pump(std::size_t budget = SIZE_MAX);

    /// Who is told that there is work; of several, the one that was added last. Without any, the
    /// queue is drained by hand. Main thread, but not from within `wake`.
    void addWaker(Waker& waker);
    /// When this returns, `waker` is not being called on any thread, nor will it be. Another one
    /// that is left is told of the work that waits.
    void removeWaker(Waker& waker);

    /// Whether this is the main thread's id; false everywhere while there is none. Any thread.
    [[nodiscard]] bool isMainThread() const noexcept {
        return mainThread_.load(std::memory_order_relaxed) == std::this_thread::get_id();
    }

    /// Whether there is a main thread, so that what is posted will be run. Any thread.
    [[nodiscard]] bool isAttended() const noexcept {
        return mainThread_.load(std::memory_order_relaxed) != std::thread::id();
    }

    [[nodiscard]] std::size_t capacity() const { return ring_.capacity(); }

  private:
    static constexpr std::size_t cacheLine = 64;

    struct alignas(cacheLine) Cell {
        std::atomic<std::size_t> sequence;
        void (*run)(void* storage, bool call) = nullptr;
        alignas(std::max_align_t) std::byte storage[inlineTaskSize];
    };

    template<class Task>
    class OverflowTask final : public Mergeable {
      public:
        template<class From>
        explicit OverflowTask(std::in_place_t, From&& task) : task_(std::forward<From>(task)) {}
        void take() noexcept override {}
        void apply() override {
            const std::unique_ptr<OverflowTask> self(this);
            task_();
        }
        void discard() noexcept override { delete this; }

      private:
        Task task_;
    };

    /// Stands in `overflow_` while the overflow list is empty but the order still needs it.
    class Marker final : public Mergeable {
      public:
        void take() noexcept override {}
        void apply() override {}
    };

    void putInLine(Mergeable* entry) noexcept;
    void wakeIfAsleep() noexcept;
    void claimMainThread();
    void tell(Waker* waker);
    bool runNext();
    bool hasWork() const noexcept;
    bool takeOverflow() noexcept;
    void sortLine() noexcept;
    void unlink(Mergeable& entry) noexcept;

    Ring<Cell> ring_;
    Marker marker_;

    alignas(cacheLine) std::atomic<Mergeable*> overflow_{nullptr}; // newest first
    alignas(cacheLine) std::atomic<bool> isAwake_{false};
    std::atomic<Waker*> waker_{nullptr};
    std::atomic<int> waking_{0}; // threads that may be calling a waker
    std::atomic<std::thread::id> mainThread_{};

    // The main thread's own.
    alignas(cacheLine) Mergeable* taken_ = nullptr; // oldest first
    std::size_t takenBehind_ = 0; // ring position before which everything runs first
    std::vector<Waker*> wakers_;

    // What has been sorted out of `overflow_`, oldest first; while there is any, the marker stands
    // there. The mutex is never locked by those who post.
    std::mutex lineMutex_;
    Mergeable* first_ = nullptr;
    Mergeable* last_ = nullptr;
};

} // namespace core
