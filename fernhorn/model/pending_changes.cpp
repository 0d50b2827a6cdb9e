#include "fernhorn/model/pending_changes.hpp"

#include "fernhorn/model/audio_parameter.hpp"

#include <bit>
#include <cmath>
#include <utility>

namespace fernhorn {
namespace {

constexpr std::size_t indexOf(ParameterEditor source) {
    return static_cast<std::size_t>(source);
}

constexpr std::uint64_t unit(ParameterEditor source) {
    return source == ParameterEditor::ui ? std::uint64_t{1} << 32 : 1;
}

std::uint64_t packed(platform::AUParameterWrite write, float value) {
    return std::uint64_t{write.number} << 32 | std::bit_cast<std::uint32_t>(value);
}

platform::AUParameterWrite writeOf(std::uint64_t change) {
    return {static_cast<std::uint32_t>(change >> 32)};
}

float valueOf(std::uint64_t change) {
    return std::bit_cast<float>(static_cast<std::uint32_t>(change));
}

} // namespace

struct PendingChanges::Arrival {
    std::shared_ptr<AudioParameter> parameter;
    ParameterChange change;
    void operator()() const { parameter->apply(change); }
};

std::optional<float> PendingChanges::newestEdit() const {
    if (count_.load(std::memory_order_acquire) < unit(ParameterEditor::ui)) {
        return std::nullopt;
    }
    return newestEdit_.load(std::memory_order_relaxed);
}

std::optional<float> PendingChanges::newestUnwritten() const {
    const float newest = newestUnwritten_.load(std::memory_order_relaxed);
    return std::isnan(newest) ? std::nullopt : std::optional(newest);
}

void PendingChanges::send(const ParameterChange& change, core::MainQueue& queue) {
    if (change.source == ParameterEditor::ui) {
        newestEdit_.store(change.value, std::memory_order_relaxed);
    }
    newestUnwritten_.store(change.write ? std::numeric_limits<float>::quiet_NaN() : change.value,
                           std::memory_order_relaxed);
    // Released, so that whoever sees the edit counted sees its value.
    count_.fetch_add(unit(change.source), std::memory_order_seq_cst);
    static_assert(sizeof(Arrival) <= core::MainQueue::inlineTaskSize);
    // Another thread may have claimed the place in the list and not taken it yet; until it has, the
    // ring looks open.
    if (core::MainQueue::standsInLine(*this) ||
        !queue.tryPost(Arrival{parameter_.shared_from_this(), change})) {
        merge(change, queue);
    }
}

void PendingChanges::merge(const ParameterChange& change, core::MainQueue& queue) {
    const auto write =
        change.write ? *change.write : parameter_.auParameter()->numberBetweenWrites();
    const std::uint64_t merged = packed(write, change.value);
    std::atomic<std::uint64_t>& newest = newest_[indexOf(change.source)];
    std::uint64_t found = newest.load(std::memory_order_acquire);
    while (found == empty || writeOf(found).isBefore(write)) {
        if (newest.compare_exchange_weak(found, merged, std::memory_order_acq_rel,
                                         std::memory_order_acquire)) {
            break;
        }
    }
    if (found != empty) {
        subtract(change.source); // one of the two has become part of the other
    }
    queue.merge(*this, [&] {
        // A queue that nobody drains must not keep the parameters of instances that are gone.
        if (queue.isAttended()) {
            inLine_ = parameter_.shared_from_this();
        }
    });
}

void PendingChanges::subtract(ParameterEditor source) {
    count_.fetch_sub(unit(source), std::memory_order_release);
}

bool PendingChanges::leaveLine() noexcept {
    outOfLine_ = inLine_ != nullptr ? std::move(inLine_) : parameter_.weak_from_this().lock();
    return outOfLine_ != nullptr;
}

// Both sources have to be taken as of one moment: of two changes from one thread, the first must
// not be left behind while the second is taken. What got its number after the moment stays;
// whoever made it queues the parameter again.
void PendingChanges::take() noexcept {
    const auto last = parameter_.auParameter()->lastWrite();
    taken_[0] = takeNewest(ParameterEditor::parameterObserver, last);
    taken_[1] = takeNewest(ParameterEditor::ui, last);
}

std::uint64_t PendingChanges::takeNewest(ParameterEditor source,
                                         platform::AUParameterWrite last) noexcept {
    std::atomic<std::uint64_t>& newest = newest_[indexOf(source)];
    std::uint64_t found = newest.load(std::memory_order_acquire);
    while (found != empty && !last.isBefore(writeOf(found))) {
        if (newest.compare_exchange_weak(found, empty, std::memory_order_acq_rel,
                                         std::memory_order_acquire)) {
            return found;
        }
    }
    return empty;
}

void PendingChanges::apply() {
    const auto alive = std::move(outOfLine_);
    // Observers may drain the queue, and so take the next changes, before this returns.
    const std::uint64_t fromUnit = std::exchange(taken_[0], empty);
    const std::uint64_t fromUi = std::exchange(taken_[1], empty);
    const auto change = [&](ParameterEditor source) {
        const std::uint64_t taken = source == ParameterEditor::ui ? fromUi : fromUnit;
        return ParameterChange{valueOf(taken), source, writeOf(taken)};
    };
    if (fromUi == empty || fromUnit == empty) {
        parameter_.apply(
            change(fromUi != empty ? ParameterEditor::ui : ParameterEditor::parameterObserver));
        return;
    }
    const bool isUiFirst = writeOf(fromUi).isBefore(writeOf(fromUnit));
    const auto first = isUiFirst ? ParameterEditor::ui : ParameterEditor::parameterObserver;
    const auto second = isUiFirst ? ParameterEditor::parameterObserver : ParameterEditor::ui;
    if (parameter_.apply(change(first))) {
        parameter_.apply(change(second));
    } else {
        arrived(second); // what observers have drained meanwhile is newer
    }
}

void PendingChanges::discard() noexcept {
    // The parameter, and this with it, may end with these.
    const auto first = std::move(inLine_);
    const auto second = std::move(outOfLine_);
}

} // namespace fernhorn
