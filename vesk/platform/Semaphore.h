/// \file
/// The host's counting semaphore within one process, with a maximum count
/// that a release may not pass. CSemaphore and CCondition are built on it.
#ifndef VESK_PLATFORM_SEMAPHORE_H
#define VESK_PLATFORM_SEMAPHORE_H

namespace vesk {
namespace platform {

/// A timeout that never runs out.
constexpr unsigned int kWaitInfinite = 0xFFFFFFFFu;

/// How a wait ended.
enum WaitResult { kWaitSignalled, kWaitTimeout, kWaitFailed };

/// Storage of one host semaphore. Only the functions below touch it.
struct Semaphore {
  alignas(16) unsigned char opaque[128];
};

/// The largest maximum count a semaphore can have.
constexpr unsigned int kMaxSemaphoreCount = 0x7FFFFFFFu;

/// Initialises a semaphore holding initial of at most max counts; false when
/// the host refuses, or when max is 0 or above kMaxSemaphoreCount or initial
/// exceeds max.
bool SemaphoreInit(Semaphore* semaphore, unsigned int initial, unsigned int max) noexcept;
/// Destroys a semaphore no thread waits on.
void SemaphoreDelete(Semaphore* semaphore) noexcept;
/// Takes one count, waiting at most timeout milliseconds (kWaitInfinite: no
/// limit, 0: no wait at all).
WaitResult SemaphoreWait(Semaphore* semaphore, unsigned int timeout) noexcept;
/// Adds count counts, waking as many waiters; false (and nothing added) when
/// the count would pass the maximum.
bool SemaphoreRelease(Semaphore* semaphore, unsigned int count) noexcept;

}  // namespace platform
}  // namespace vesk

#endif
