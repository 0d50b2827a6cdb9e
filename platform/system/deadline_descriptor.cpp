#include "platform/system/deadline_descriptor.hpp"

#include <algorithm>

#ifdef __linux__
#include <sys/timerfd.h>
#endif

namespace platform {

#ifdef __linux__

DeadlineDescriptor::DeadlineDescriptor()
    : descriptor_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {}

void DeadlineDescriptor::set(Deadline deadline) {
    // The steady clock of the standard libraries here is CLOCK_MONOTONIC. 0 would mean none.
    using namespace std::chrono;
    const nanoseconds since = std::max<nanoseconds>(deadline.time_since_epoch(), nanoseconds(1));
    const auto whole = duration_cast<seconds>(since);
    itimerspec when{};
    when.it_value.tv_sec = whole.count();
    when.it_value.tv_nsec = (since - whole).count();
    timerfd_settime(descriptor_.get(), TFD_TIMER_ABSTIME, &when, nullptr);
}

void DeadlineDescriptor::clear() {
    // Setting a time takes back what has not been read.
    const itimerspec none{};
    timerfd_settime(descriptor_.get(), 0, &none, nullptr);
}

#else

DeadlineDescriptor::DeadlineDescriptor() = default;
void DeadlineDescriptor::set(Deadline /*deadline*/) {}
void DeadlineDescriptor::clear() {}

#endif

} // namespace platform
