#include "core/main_queue.hpp"

#include <bit>

namespace core {

// The ring is the bounded queue with a sequence number in each cell (after D. Vyukov), with one
// consumer. Going to sleep is Dekker's pattern: a producer publishes and then reads `isAwake_`, the
// consumer clears `isAwake_` and then looks for work; with all four accesses sequentially
// consistent at least one of them sees the other.

MainQueue::MainQueue(std::size_t capacity)
    : mask_(std::bit_ceil(capacity < 2 ? 2 : capacity) - 1),
      cells_(std::make_unique<Cell[]>(mask_ + 1)) {
    for (std::size_t i = 0; i <= mask_; ++i) {
        cells_[i].sequence.store(i, std::memory_order_relaxed);
    }
}

MainQueue::~MainQueue() {
    // Nobody posts any more; what was never run is destroyed.
    for (;;) {
        Cell& cell = cells_[dequeuePosition_ & mask_];
        if (cell.sequence.load(std::memory_order_acquire) != dequeuePosition_ + 1) {
            break;
        }
        ++dequeuePosition_;
        cell.run(cell.storage, false);
    }
    while (taken_ != nullptr) {
        std::exchange(taken_, taken_->nextTaken_)->discard();
    }
    for (Mergeable* entry = overflow_.load(std::memory_order_acquire);
         entry != nullptr && entry != &marker_;) {
        std::exchange(entry, entry->next_)->discard();
    }
}

MainQueue& MainQueue::shared() {
    // Never destroyed: threads of a host may still post while the process ends.
    static MainQueue* const queue = new MainQueue; // NOLINT
    return *queue;
}

MainQueue::Ticket MainQueue::claim() noexcept {
    if (overflow_.load(std::memory_order_acquire) != nullptr) {
        return {nullptr, 0};
    }
    std::size_t position = enqueuePosition_.load(std::memory_order_relaxed);
    for (;;) {
        Cell& cell = cells_[position & mask_];
        const std::size_t sequence = cell.sequence.load(std::memory_order_acquire);
        if (sequence == position) {
            if (enqueuePosition_.compare_exchange_weak(position, position + 1,
                                                       std::memory_order_relaxed)) {
                return {&cell, position};
            }
        } else if (sequence < position) {
            return {nullptr, 0}; // full
        } else {
            position = enqueuePosition_.load(std::memory_order_relaxed);
        }
    }
}

void MainQueue::publish(Ticket ticket) noexcept {
    ticket.cell->sequence.store(ticket.position + 1, std::memory_order_seq_cst);
    wakeIfAsleep();
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
        if (Waker* const waker = waker_.load(std::memory_order_acquire)) {
            waker->wake();
        }
    }
}

void MainQueue::setWaker(Waker* waker) {
    mainThread_.store(std::this_thread::get_id(), std::memory_order_relaxed);
    waker_.store(waker, std::memory_order_release);
    if (waker != nullptr && hasWork()) {
        isAwake_.store(true, std::memory_order_seq_cst);
        waker->wake();
    }
}

bool MainQueue::hasWork() const noexcept {
    const Cell& cell = cells_[dequeuePosition_ & mask_];
    if (cell.sequence.load(std::memory_order_seq_cst) == dequeuePosition_ + 1) {
        return true;
    }
    if (taken_ != nullptr) {
        // Waits for a cell that is claimed but not published yet; its producer wakes us.
        return takenBehind_ == dequeuePosition_;
    }
    return overflow_.load(std::memory_order_seq_cst) != nullptr;
}

// Moves the second line over, oldest first, once the former one is through. What stood in the ring
// when the states were copied has to run before them, hence `takenBehind_`. Returns false when
// nobody stood there; then the marker is gone, too, and the ring is open again.
bool MainQueue::takeOverflow() noexcept {
    Mergeable* line = overflow_.load(std::memory_order_acquire);
    if (line == nullptr) {
        return false;
    }
    if (line == &marker_ && overflow_.compare_exchange_strong(line, nullptr)) {
        return false;
    }
    line = overflow_.exchange(&marker_, std::memory_order_acq_rel);
    while (line != nullptr && line != &marker_) {
        line->nextTaken_ = taken_;
        taken_ = line;
        line = line->next_;
    }
    for (Mergeable* entry = taken_; entry != nullptr; entry = entry->nextTaken_) {
        entry->leaveLine();
        // An exchange, not a store: it sees what was stored before a `merge` that found `true`.
        entry->isInLine_.exchange(false, std::memory_order_acq_rel);
        entry->take();
    }
    takenBehind_ = enqueuePosition_.load(std::memory_order_seq_cst);
    return true;
}

bool MainQueue::runNext() {
    if (taken_ != nullptr && dequeuePosition_ == takenBehind_) {
        std::exchange(taken_, taken_->nextTaken_)->apply();
        return true;
    }
    const std::size_t position = dequeuePosition_;
    Cell& cell = cells_[position & mask_];
    if (cell.sequence.load(std::memory_order_acquire) == position + 1) {
        // Moved on before the call, which may drain in turn.
        ++dequeuePosition_;
        cell.run(cell.storage, true);
        cell.sequence.store(position + mask_ + 1, std::memory_order_release);
        return true;
    }
    return taken_ == nullptr && takeOverflow();
}

bool MainQueue::drain(std::size_t budget) {
    mainThread_.store(std::this_thread::get_id(), std::memory_order_relaxed);
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
