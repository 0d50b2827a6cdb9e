#include "fernhorn/model/hasher.hpp"

#include <bit>
#include <random>

namespace fernhorn {
namespace {

// A permutation of the 64-bit numbers in which every input bit reaches every output bit: shifts
// and odd multipliers in turn (the finishing step of D. Stafford's variant 13).
std::uint64_t mixed(std::uint64_t value) {
    value ^= value >> 30;
    value *= 0xBF58476D1CE4E5B9U;
    value ^= value >> 27;
    value *= 0x94D049BB133111EBU;
    value ^= value >> 31;
    return value;
}

std::uint64_t processSeed() {
    static const std::uint64_t seed = [] {
        std::random_device source;
        return std::uint64_t{source()} << 32 | source();
    }();
    return seed;
}

} // namespace

Hasher::Hasher() : state_(processSeed()) {}

void Hasher::combine(std::uint64_t value) {
    // The addition keeps a run of equal values from cancelling out.
    state_ = mixed(state_ + 0x9E3779B97F4A7C15U) ^ value;
    state_ = mixed(state_);
}

void Hasher::combine(float value) {
    combine(std::uint64_t{std::bit_cast<std::uint32_t>(value == 0 ? 0.0F : value)});
}

void Hasher::combine(double value) {
    combine(std::bit_cast<std::uint64_t>(value == 0 ? 0.0 : value));
}

void Hasher::combine(std::string_view text) {
    combine(std::uint64_t{text.size()});
    for (const char character : text) {
        combine(std::uint64_t{static_cast<unsigned char>(character)});
    }
}

std::int64_t Hasher::finalize() const {
    return static_cast<std::int64_t>(mixed(state_));
}

} // namespace fernhorn
