#pragma once

#include "platform/system/descriptor.hpp"

#include <optional>
#include <string>

namespace platform {

/// A name that one running program of the user's holds on one desktop: the first start of a program
/// holds it, a later one calls the first. The system frees it when the program ends, however that
/// comes. Linux; elsewhere, and where the environment names no screen, every start is a first one.
/// One thread.
class SoleStart {
  public:
    /// Takes the name, or calls who holds it with `message` (at most 1 KiB) and waits until that
    /// has answered. One that is ending is waited for, one that hangs for three seconds is not.
    SoleStart(const std::string& name, const std::string& message);

    /// False when another has been called and has answered: this start is over.
    [[nodiscard]] bool isFirst() const { return isFirst_; }
    /// Becomes readable when another start calls; -1 where none can.
    [[nodiscard]] int descriptor() const { return listener_.get(); }
    /// Answers the next call and gives its message; nothing where there is none.
    [[nodiscard]] std::optional<std::string> answer();
    /// Gives the name up: whoever starts next is a first one. Calls that wait are not answered.
    void release() { listener_.reset(); }

  private:
    Descriptor listener_;
    bool isFirst_ = true;
};

} // namespace platform
