/// \file
/// Deadlines on the monotonic clock for the host's timed waits.
#ifndef VESK_PLATFORM_POSIX_DEADLINE_H
#define VESK_PLATFORM_POSIX_DEADLINE_H

#include <time.h>

namespace vesk {
namespace platform {

/// The CLOCK_MONOTONIC time timeout milliseconds from now.
inline timespec MonotonicDeadline(unsigned int timeout) {
  timespec deadline;
  clock_gettime(CLOCK_MONOTONIC, &deadline);
  deadline.tv_sec += timeout / 1000;
  deadline.tv_nsec += static_cast<long>(timeout % 1000) * 1000000L;
  if (deadline.tv_nsec >= 1000000000L) {
    deadline.tv_sec += 1;
    deadline.tv_nsec -= 1000000000L;
  }
  return deadline;
}

}  // namespace platform
}  // namespace vesk

#endif
