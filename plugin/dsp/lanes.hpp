#pragma once

#include <cstddef>
#include <cstdint>

namespace larkvox {

/// Eight numbers that are computed together. The compiler makes of it what the processor has; the
/// result is the same for each of the eight, wherever in the eight it stands. Values, for any
/// thread.
using Lanes = float __attribute__((vector_size(32)));
/// What a comparison of `Lanes` gives: all bits of a lane where it holds, none where it does not.
using LaneMask = std::int32_t __attribute__((vector_size(32)));

inline constexpr std::size_t laneCount = 8;

/// What runs in a function that is compiled for several processors has to be part of it.
#define LARKVOX_INLINE [[gnu::always_inline]] inline

LARKVOX_INLINE Lanes lanes(float value) {
    return Lanes{value, value, value, value, value, value, value, value};
}
LARKVOX_INLINE Lanes minimum(Lanes a, Lanes b) {
    return a < b ? a : b;
}
LARKVOX_INLINE Lanes maximum(Lanes a, Lanes b) {
    return a > b ? a : b;
}
LARKVOX_INLINE Lanes magnitude(Lanes a) {
    return (Lanes)((LaneMask)a & 0x7fffffff);
}
/// Always in the same order.
LARKVOX_INLINE float sum(Lanes a) {
    return ((a[0] + a[4]) + (a[2] + a[6])) + ((a[1] + a[5]) + (a[3] + a[7]));
}

} // namespace larkvox
