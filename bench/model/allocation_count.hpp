#pragma once

namespace bench {

/// Counts what the calling thread allocates, by `new` or `malloc` and its kin, from then on.
class AllocationCount {
  public:
    AllocationCount();
    [[nodiscard]] long sinceStart() const;

  private:
    long start_;
};

} // namespace bench
