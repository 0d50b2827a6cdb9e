#include "platform/system/wake_descriptor.hpp"

#include "core/fatal.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>

#ifdef __linux__
#include <sys/eventfd.h>
#endif

namespace platform {

#ifdef __linux__

WakeDescriptor::WakeDescriptor() : readEnd_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
    if (readEnd_ < 0) {
        core::fatal("no file descriptor left for the main queue");
    }
    writeEnd_ = readEnd_;
}

WakeDescriptor::~WakeDescriptor() {
    close(readEnd_);
}

#else

WakeDescriptor::WakeDescriptor() {
    int ends[2];
    if (pipe(ends) != 0) {
        core::fatal("no file descriptor left for the main queue");
    }
    for (const int end : ends) {
        fcntl(end, F_SETFL, O_NONBLOCK);
        fcntl(end, F_SETFD, FD_CLOEXEC);
    }
    readEnd_ = ends[0];
    writeEnd_ = ends[1];
}

WakeDescriptor::~WakeDescriptor() {
    close(readEnd_);
    close(writeEnd_);
}

#endif

void WakeDescriptor::wake() noexcept {
    const std::uint64_t one = 1;
    // A full pipe or counter is readable already, which is all that is wanted.
    [[maybe_unused]] const auto written = write(writeEnd_, &one, sizeof one);
}

void WakeDescriptor::reset() noexcept {
    std::uint64_t count[16];
    while (read(readEnd_, count, sizeof count) == static_cast<ssize_t>(sizeof count)) {
    }
}

} // namespace platform
