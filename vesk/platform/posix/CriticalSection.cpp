#include "vesk/platform/CriticalSection.h"

#include <new>

#include <pthread.h>

namespace vesk {
namespace platform {

static_assert(sizeof(pthread_mutex_t) <= sizeof(CriticalSection::opaque),
              "a mutex must fit the section storage");
static_assert(alignof(pthread_mutex_t) <= alignof(CriticalSection),
              "the section storage must be aligned for a mutex");

namespace {
inline pthread_mutex_t* Mutex(CriticalSection* section) {
  return std::launder(reinterpret_cast<pthread_mutex_t*>(section->opaque));
}
}  // namespace

bool SectionInit(CriticalSection* section) noexcept {
  pthread_mutexattr_t attributes;
  if (pthread_mutexattr_init(&attributes) != 0) return false;
  bool ok = pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE) == 0 &&
            pthread_mutex_init(new (section->opaque) pthread_mutex_t, &attributes) == 0;
  pthread_mutexattr_destroy(&attributes);
  return ok;
}

void SectionDelete(CriticalSection* section) noexcept { pthread_mutex_destroy(Mutex(section)); }

bool SectionEnter(CriticalSection* section) noexcept {
  return pthread_mutex_lock(Mutex(section)) == 0;
}

bool SectionTryEnter(CriticalSection* section) noexcept {
  return pthread_mutex_trylock(Mutex(section)) == 0;
}

// Leaving a section the thread does not hold is refused by the mutex
// (EPERM) and changes nothing.
void SectionLeave(CriticalSection* section) noexcept { pthread_mutex_unlock(Mutex(section)); }

}  // namespace platform
}  // namespace vesk
