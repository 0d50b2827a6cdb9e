#pragma once

#include <cstdint>
#include <string_view>

namespace fernhorn {

/// Folds a sequence of values into one number. It starts from a number drawn once per process, so
/// results are only comparable within one run. The order of the values matters. One
/// thread at a time.
class Hasher {
  public:
    Hasher();

    void combine(std::uint64_t value);
    void combine(bool value) { combine(std::uint64_t{value ? 1U : 0U}); }
    void combine(std::int64_t value) { combine(static_cast<std::uint64_t>(value)); }
    void combine(int value) { combine(static_cast<std::int64_t>(value)); }
    /// -0 and +0 count as the same value.
    void combine(float value);
    void combine(double value);
    void combine(std::string_view text);
    void combine(const char* text) { combine(std::string_view(text)); }

    [[nodiscard]] std::int64_t finalize() const;

  private:
    std::uint64_t state_;
};

} // namespace fernhorn
