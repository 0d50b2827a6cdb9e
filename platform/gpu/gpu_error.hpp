#pragma once

#include <stdexcept>

namespace platform {

/// A shader library, function, pipeline or texture that could not be made. The text names it. Any
/// thread.
class GpuError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace platform
