#include "core/clock.hpp"

namespace core {
namespace {

class SystemClock final : public Clock {
  public:
    [[nodiscard]] Instant now() const override { return std::chrono::steady_clock::now(); }
};

} // namespace

const Clock& Clock::system() {
    static const SystemClock clock;
    return clock;
}

} // namespace core
