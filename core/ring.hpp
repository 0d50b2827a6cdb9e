#pragma once

#include <atomic>
#include <bit>
#include <cstddef>
#include <memory>

namespace core {

/// A bounded queue from any number of threads to one, in cells that are allocated once (after
/// D. Vyukov). A `Cell` has a member `std::atomic<std::size_t> sequence`, which belongs to the
/// ring, and whatever it carries. Nobody waits: a producer that finds no room gets no cell, and the
/// consumer stops before a cell that is claimed and not published yet.
template<class Cell>
class Ring {
  public:
    /// A cell and its place in the order. Between `claim` and `publish` the cell is the producer's,
    /// between `take` and `release` the consumer's.
    struct Ticket {
        Cell* cell = nullptr; // null: none
        std::size_t position = 0;
    };

    /// Holds `capacity` cells, rounded up to a power of two of at least 2.
    explicit Ring(std::size_t capacity)
        : mask_(std::bit_ceil(capacity < 2 ? 2 : capacity) - 1),
          cells_(std::make_unique<Cell[]>(mask_ + 1)) {
        for (std::size_t i = 0; i <= mask_; ++i) {
            cells_[i].sequence.store(i, std::memory_order_relaxed);
        }
    }

    [[nodiscard]] std::size_t capacity() const { return mask_ + 1; }

    /// Any thread: a cell to be filled and published, or none when the ring is full.
    Ticket claim() noexcept {
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
                return {};
            } else {
                position = enqueuePosition_.load(std::memory_order_relaxed);
            }
        }
    }

    /// Sequentially consistent, for a producer that looks afterwards whether the consumer sleeps.
    void publish(Ticket ticket) noexcept {
        ticket.cell->sequence.store(ticket.position + 1, std::memory_order_seq_cst);
    }

    /// The consumer: the oldest cell, which leaves the order at once; none when it is not
    /// published.
    Ticket take() noexcept {
        Cell& cell = cells_[dequeuePosition_ & mask_];
        if (cell.sequence.load(std::memory_order_acquire) != dequeuePosition_ + 1) {
            return {};
        }
        return {&cell, dequeuePosition_++};
    }

    /// The consumer, after it is through with what the cell carries: producers may claim it again.
    void release(Ticket ticket) noexcept {
        ticket.cell->sequence.store(ticket.position + mask_ + 1, std::memory_order_release);
    }

    /// The consumer: whether `take` would give a cell. Sequentially consistent, for a consumer that
    /// has said before that it sleeps.
    [[nodiscard]] bool hasNext() const noexcept {
        return cells_[dequeuePosition_ & mask_].sequence.load(std::memory_order_seq_cst) ==
               dequeuePosition_ + 1;
    }

    /// The consumer: the position of the next cell it takes.
    [[nodiscard]] std::size_t nextPosition() const noexcept { return dequeuePosition_; }

    /// Any thread: the position of the next cell to be claimed.
    [[nodiscard]] std::size_t endPosition() const noexcept {
        return enqueuePosition_.load(std::memory_order_seq_cst);
    }

  private:
    static constexpr std::size_t cacheLine = 64;

    const std::size_t mask_;
    const std::unique_ptr<Cell[]> cells_;
    alignas(cacheLine) std::atomic<std::size_t> enqueuePosition_{0};
    alignas(cacheLine) std::size_t dequeuePosition_ = 0; // the consumer's own
};

} // namespace core
