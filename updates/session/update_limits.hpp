#pragma once

#include <chrono>
#include <cstdint>

namespace updates {

/// What an update may cost at most. A value, for any thread. The numbers are those of the product;
/// tests pass smaller ones.
struct UpdateLimits {
    std::uint64_t feedBytes = 1U << 20U;
    std::uint64_t headerBytes = 64U << 10U; ///< of one answer, a proxy's included
    std::uint64_t notesBytes = 256U << 10U;
    std::uint64_t archiveBytes = 256U << 20U;
    int redirects = 5;

    std::chrono::milliseconds answerTime{20'000};   ///< until the headers are there
    std::chrono::milliseconds stallTime{30'000};    ///< without a single byte
    std::chrono::milliseconds documentTime{60'000}; ///< a whole feed, or whole release notes

    /// A download may take as long as its length takes at the least speed, and this in addition.
    std::chrono::milliseconds downloadTime{120'000};
    std::uint64_t leastBytesPerSecond = 4096;

    /// A download that is cut goes on where it was: so many times at all, and so many times in a
    /// row without a new byte.
    int resumptions = 100;
    int fruitlessResumptions = 4;
    std::chrono::milliseconds resumptionPause{500}; ///< before the first; doubles each time
};

} // namespace updates
