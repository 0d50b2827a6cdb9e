#pragma once

#include <unistd.h>

#include <utility>

namespace platform {

/// Owns a file descriptor. Moved, never copied. One thread at a time.
class Descriptor {
  public:
    Descriptor() = default; ///< none
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept : descriptor_(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            reset();
            descriptor_ = other.release();
        }
        return *this;
    }

    [[nodiscard]] int get() const { return descriptor_; } ///< -1 without one
    [[nodiscard]] explicit operator bool() const { return descriptor_ >= 0; }
    [[nodiscard]] int release() { return std::exchange(descriptor_, -1); }

    /// Closes it. False where the system could not finish what was written through it.
    bool reset() { return descriptor_ < 0 || ::close(release()) == 0; }

  private:
    int descriptor_ = -1;
};

} // namespace platform
