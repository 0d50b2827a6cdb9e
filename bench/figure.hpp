#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace bench {

inline void figure(const char* name, double value, const char* unit) {
    std::printf("figure %s %.4g %s\n", name, value, unit);
    std::fflush(stdout);
}

/// The value below which that share of the samples lies; there has to be one.
inline double percentile(std::vector<double> samples, double share) {
    std::ranges::sort(samples);
    const auto last = static_cast<double>(samples.size() - 1);
    return samples[static_cast<std::size_t>(share * last + 0.5)];
}

inline double median(std::vector<double> samples) {
    return percentile(std::move(samples), 0.5);
}

} // namespace bench
