#include "fernhorn/model/pending_changes.hpp"

#include "fernhorn/model/audio_parameter.hpp"

#include <bit>
#include <utility>

namespace fernhorn {
namespace {

constexpr std::size_t indexOf(ParameterEditor source) {
    return static_cast<std::size_t>(source);
}

constexpr std::uint64_t unit(ParameterEditor source) {
    return source == ParameterEditor::ui ? std::uint64_t{1} << 32 : 1;
}

std::uint64_t packed(std::uint32_t stamp, float value) {
    return std::uint64_t{stamp} << 32 | std::bit_cast<std::uint32_t>(value);
}

std::uint32_t stampOf(std::uint64_t change) {
    return static_cast<std::uint32_t>(change >> 32);
}

float valueOf(std::uint64_t change) {
    return std::bit_cast<float>(static_cast<std::uint32_t>(change));
}

// Stamps wrap round; those compared are never half of their range apart.
bool isBefore(std::uint32_t stamp, std::uint32_t other) {
    return static_cast<std::int32_t>(stamp - other) < 0;
}

} // namespace

struct PendingChanges::Arrival {
    std::shared_ptr<AudioParameter> parameter;
    float value;
    ParameterEditor source;
    void operator()() const { parameter->apply(value, source); }
};

std::optional<float> PendingChanges::newestEdit() const {
    if (count_.load(std::memory_order_acquire) < unit(ParameterEditor::ui)) {
        return std::nullopt;
    }
    return newestEdit_.load(std::memory_order_relaxed);
}

void PendingChanges::send(float value, ParameterEditor source, core::MainQueue& queue) {
    if (source == ParameterEditor::ui) {
        newestEdit_.store(value, std::memory_order_relaxed);
    }
    // Released, so that whoever sees the edit counted sees its value.
    count_.fetch_add(unit(source), std::memory_order_release);
    static_assert(sizeof(Arrival) <= core::MainQueue::inlineTaskSize);
    // Another thread may have claimed the place in line and not taken it yet; until it has, the
    // ring looks open.
    if (core::MainQueue::standsInLine(*this) ||
        !queue.tryPost(Arrival{parameter_.shared_from_this(), value, source})) {
        merge(value, source, queue);
    }
}

void PendingChanges::merge(float value, ParameterEditor source, core::MainQueue& queue) {
    const std::uint32_t stamp = nextStamp_.fetch_add(1, std::memory_order_relaxed);
    const std::uint64_t change = packed(stamp, value);
    std::atomic<std::uint64_t>& newest = newest_[indexOf(source)];
    std::uint64_t found = newest.load(std::memory_order_acquire);
    while (found == empty || isBefore(stampOf(found), stamp)) {
        if (newest.compare_exchange_weak(found, change, std::memory_order_acq_rel,
                                         std::memory_order_acquire)) {
            break;
        }
    }
    if (found != empty) {
        subtract(source); // one of the two has become part of the other
    }
    queue.merge(*this, [this] { inLine_ = parameter_.shared_from_this(); });
}

void PendingChanges::subtract(ParameterEditor source) {
    count_.fetch_sub(unit(source), std::memory_order_release);
}

void PendingChanges::leaveLine() noexcept {
    outOfLine_ = std::move(inLine_);
}

// Both sources have to be taken as of one moment: of two changes from one thread, the first must
// not be left behind while the second is taken. What got its stamp after the moment stays;
// whoever made it puts the parameter in line again.
void PendingChanges::take() noexcept {
    const std::uint32_t end = nextStamp_.load(std::memory_order_acquire);
    taken_[0] = takeNewest(ParameterEditor::parameterObserver, end);
    taken_[1] = takeNewest(ParameterEditor::ui, end);
}

std::uint64_t PendingChanges::takeNewest(ParameterEditor source, std::uint32_t end) noexcept {
    std::atomic<std::uint64_t>& newest = newest_[indexOf(source)];
    std::uint64_t found = newest.load(std::memory_order_acquire);
    while (found != empty && isBefore(stampOf(found), end)) {
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
    const auto deliver = [&](std::uint64_t change, ParameterEditor source) {
        if (change != empty) {
            parameter_.apply(valueOf(change), source);
        }
    };
    const bool isUiFirst = fromUnit != empty && isBefore(stampOf(fromUi), stampOf(fromUnit));
    if (isUiFirst) {
        deliver(fromUi, ParameterEditor::ui);
    }
    deliver(fromUnit, ParameterEditor::parameterObserver);
    if (!isUiFirst) {
        deliver(fromUi, ParameterEditor::ui);
    }
}

void PendingChanges::discard() noexcept {
    // The parameter, and this with it, may end with these.
    const auto first = std::move(inLine_);
    const auto second = std::move(outOfLine_);
}

} // namespace fernhorn
