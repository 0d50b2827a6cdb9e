#include "core/main_queue.hpp"

#include "core/fatal.hpp"

namespace core {

// Going to sleep is Dekker's pattern: a producer publishes and then reads `isAwake_`, the consumer
// clears `isAwake_` and then looks for work; with all four accesses sequentially consistent at
// least one of them sees the other. A new waker is the same once more: it is stored, the queue is
// put to sleep, and then the consumer looks for work.

MainQueue::MainQueue(std::size_t capacity) : ring_(capacity) {}

MainQueue::~MainQueue() {
    // Nobody posts any more; what was never run is destroyed.
    for (auto ticket = ring_.take(); ticket.cell != nullptr; ticket = ring_.take()) {
        ticket.cell->run(ticket.cell->storage, false);
    }
    // What stands in both lists is discarded with the second one.
    while (taken_ != nullptr) {
        Mergeable* const entry = std::exchange(taken_, taken_->nextTaken_);
        if (!entry->isInLine_.load(std::memory_order_acquire)) {
            entry->discard();
        }
    }
    for (;;) {
        Mergeable* entry = nullptr;
        {
            const std::lock_guard lock(lineMutex_);
            sortLine();
            entry = first_;
            if (entry == nullptr) {
                return;
            }
            unlink(*entry);
            entry->isInLine_.store(false, std::memory_order_relaxed);
        }
        entry->discard(); // may end others, which withdraw
    }
}

MainQueue& MainQueue::shared() {
    // Never destroyed: threads of a host may still post while the process ends.
    static MainQueue* const queue = new MainQueue; // NOLINT
    return *queue;
}

void MainQueue::putInLine(Mergeable* entry) noexcept {
    Mergeable* head = overflow_.load(std::memory_order_relaxed);
    do {
        entry->next_ = head;
    } while (!overflow_.compare_exchange_weak(head, entry, std::memory_order_seq_cst,
                                              std::memory_order_relaxed));
    wakeIfAsleep();
}

void MainQueue::wakeIfAsleep() noexcept {
    if (!isAwake_.load(std::memory_order_seq_cst) &&
        !isAwake_.exchange(true, std::memory_order_seq_cst)) {
        // Counted first: whoever takes the waker away then waits for this thread, or this thread
        // does not see it any more.
        waking_.fetch_add(1, std::memory_order_seq_cst);
        if (Waker* const waker = waker_.load(std::memory_order_seq_cst)) {
            waker->wake();
        }
        waking_.fetch_sub(1, std::memory_order_release);
    }
}

void MainQueue::claimMainThread() {
    std::thread::id owner = mainThread_.load(std::memory_order_relaxed);
    const auto self = std::this_thread::get_id();
    if (owner != self &&
        (owner != std::thread::id() || !mainThread_.compare_exchange_strong(owner, self))) {
        fatal("A main queue is drained, or its waker changed, on another thread than its main "
              "thread");
    }
}

void MainQueue::addWaker(Waker& waker) {
    claimMainThread();
    wakers_.push_back(&waker);
    tell(&waker);
}

void MainQueue::removeWaker(Waker& waker) {
    claimMainThread();
    std::erase(wakers_, &waker);
    tell(wakers_.empty() ? nullptr : wakers_.back());
    if (wakers_.empty()) {
        mainThread_.store({}, std::memory_order_relaxed);
    }
}

// Whoever was told before may have meant to come back without being woken.
void MainQueue::tell(Waker* waker) {
    waker_.store(waker, std::memory_order_seq_cst);
    while (waking_.load(std::memory_order_seq_cst) != 0) {
        std::this_thread::yield();
    }
    isAwake_.store(false, std::memory_order_seq_cst);
    if (hasWork() && !isAwake_.exchange(true, std::memory_order_seq_cst) && waker != nullptr) {
        waker->wake();
    }
}

bool MainQueue::hasWork() const noexcept {
    if (ring_.hasNext()) {
        return true;
    }
    if (taken_ != nullptr) {
        // Waits for a cell that is claimed but not published yet; its producer wakes us.
        return takenBehind_ == ring_.nextPosition();
    }
    return overflow_.load(std::memory_order_seq_cst) != nullptr;
}

// Moves what was queued since the last time behind what stands there, oldest first.
void MainQueue::sortLine() noexcept {
    if (overflow_.load(std::memory_order_acquire) == nullptr) {
        return;
    }
    Mergeable* entry = overflow_.exchange(&marker_, std::memory_order_acq_rel);
    Mergeable* newest = nullptr;
    Mergeable* oldest = nullptr;
    while (entry != nullptr && entry != &marker_) {
        Mergeable* const older = entry->next_;
        entry->next_ = oldest;
        entry->previous_ = nullptr;
        if (oldest != nullptr) {
            oldest->previous_ = entry;
        } else {
            newest = entry;
        }
        oldest = std::exchange(entry, older);
    }
    if (oldest == nullptr) {
        return;
    }
    oldest->previous_ = last_;
    (last_ != nullptr ? last_->next_ : first_) = oldest;
    last_ = newest;
}

void MainQueue::unlink(Mergeable& entry) noexcept {
    (entry.previous_ != nullptr ? entry.previous_->next_ : first_) = entry.next_;
    (entry.next_ != nullptr ? entry.next_->previous_ : last_) = entry.previous_;
}

void MainQueue::withdraw(Mergeable& state) noexcept {
    if (!state.isInLine_.load(std::memory_order_acquire)) {
        return;
    }
    const std::lock_guard lock(lineMutex_);
    // The main thread may just have passed it over.
    if (state.isInLine_.load(std::memory_order_relaxed)) {
        sortLine();
        unlink(state);
        state.isInLine_.store(false, std::memory_order_relaxed);
    }
}

// Takes over the overflow list once the former one is through. What stood in the ring when the
// states were copied has to run before them, hence `takenBehind_`. Returns false when nobody stood
// there; then the marker is gone, too, and the ring is open again.
bool MainQueue::takeOverflow() noexcept {
    if (overflow_.load(std::memory_order_acquire) == nullptr) {
        return false;
    }
    const std::lock_guard lock(lineMutex_);
    Mergeable* marker = &marker_;
    if (first_ == nullptr && overflow_.compare_exchange_strong(marker, nullptr)) {
        return false;
    }
    sortLine();
    Mergeable* entry = std::exchange(first_, nullptr);
    last_ = nullptr;
    Mergeable* lastTaken = nullptr;
    while (entry != nullptr) {
        Mergeable* const next = entry->next_;
        const bool isAlive = entry->leaveLine();
        // An exchange, not a store: it sees what was stored before a `merge` that found `true`.
        entry->isInLine_.exchange(false, std::memory_order_acq_rel);
        if (isAlive) {
            entry->take();
            entry->nextTaken_ = nullptr;
            (lastTaken != nullptr ? lastTaken->nextTaken_ : taken_) = entry;
            lastTaken = entry;
        }
        entry = next;
    }
    takenBehind_ = ring_.endPosition();
    return true;
}

bool MainQueue::runNext() {
    if (taken_ != nullptr && ring_.nextPosition() == takenBehind_) {
        std::exchange(taken_, taken_->nextTaken_)->apply();
        return true;
    }
    // Leaves the order before it is run, since it may drain in turn.
    if (const auto ticket = ring_.take(); ticket.cell != nullptr) {
        ticket.cell->run(ticket.cell->storage, true);
        ring_.release(ticket);
        return true;
    }
    return taken_ == nullptr && takeOverflow();
}

bool MainQueue::drain(std::size_t budget) {
    claimMainThread();
    isAwake_.store(true, std::memory_order_relaxed);
    for (;;) {
        while (budget > 0 && runNext()) {
            --budget;
        }
        if (budget == 0) {
            return true;
        }
        isAwake_.store(false, std::memory_order_seq_cst);
        if (!hasWork()) {
            return false;
        }
        isAwake_.store(true, std::memory_order_seq_cst);
    }
}

MainQueue::Next MainQueue::pump(std::size_t budget) {
    claimMainThread();
    isAwake_.store(true, std::memory_order_relaxed);
    std::size_t ran = 0;
    while (ran < budget && runNext()) {
        ++ran;
    }
    if (ran > 0) {
        return ran == budget ? Next::now : Next::soon;
    }
    return drain(budget) ? Next::now : Next::whenWoken;
}

} // namespace core
