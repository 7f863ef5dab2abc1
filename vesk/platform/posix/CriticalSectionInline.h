/// \file
/// The POSIX critical section: a recursive mutex in the section's storage.
/// Included by vesk/platform/CriticalSection.h only.
#ifndef VESK_PLATFORM_POSIX_CRITICALSECTIONINLINE_H
#define VESK_PLATFORM_POSIX_CRITICALSECTIONINLINE_H

#include <new>

#include <pthread.h>

namespace vesk {
namespace platform {

static_assert(sizeof(pthread_mutex_t) <= sizeof(CriticalSection::opaque),
              "a mutex must fit the section storage");
static_assert(alignof(pthread_mutex_t) <= alignof(CriticalSection),
              "the section storage must be aligned for a mutex");

/// The mutex kept in a section's storage.
inline pthread_mutex_t* SectionMutex(CriticalSection* section) noexcept {
  return std::launder(reinterpret_cast<pthread_mutex_t*>(section->opaque));
}

inline bool SectionEnter(CriticalSection* section) noexcept {
  return pthread_mutex_lock(SectionMutex(section)) == 0;
}

inline bool SectionTryEnter(CriticalSection* section) noexcept {
  return pthread_mutex_trylock(SectionMutex(section)) == 0;
}

// Leaving a section the thread does not hold is refused by the mutex (EPERM)
// and changes nothing.
inline void SectionLeave(CriticalSection* section) noexcept {
  pthread_mutex_unlock(SectionMutex(section));
}

}  // namespace platform
}  // namespace vesk

#endif
