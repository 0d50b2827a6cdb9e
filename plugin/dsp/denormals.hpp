#pragma once

#include <cstdint>
#if defined(__SSE__)
#include <xmmintrin.h>
#endif

namespace larkvox {

/// While it lives, this thread computes 0 where a number would be too small to be exact: such
/// numbers cost a hundred times as much, and nobody hears them.
class FlushDenormals {
  public:
#if defined(__SSE__)
    FlushDenormals() : before_(_mm_getcsr()) {
        _mm_setcsr(before_ | 0x8040U);
    }
    ~FlushDenormals() {
        _mm_setcsr(before_);
    }
#elif defined(__aarch64__)
    FlushDenormals() {
        asm volatile("mrs %0, fpcr" : "=r"(before_));
        asm volatile("msr fpcr, %0" ::"r"(before_ | (std::uint64_t{1} << 24U)));
    }
    ~FlushDenormals() {
        asm volatile("msr fpcr, %0" ::"r"(before_));
    }
#else
    FlushDenormals() = default;
#endif
    FlushDenormals(const FlushDenormals&) = delete;
    FlushDenormals& operator=(const FlushDenormals&) = delete;

  private:
#if defined(__SSE__)
    std::uint32_t before_;
#elif defined(__aarch64__)
    std::uint64_t before_ = 0;
#endif
};

} // namespace larkvox
