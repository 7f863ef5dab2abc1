#include "vesk/platform/CriticalSection.h"

#include <new>

#include <pthread.h>

namespace vesk {
namespace platform {

bool SectionInit(CriticalSection* section) noexcept {
  pthread_mutexattr_t attributes;
  if (pthread_mutexattr_init(&attributes) != 0) return false;
  bool ok = pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE) == 0 &&
            pthread_mutex_init(new (section->opaque) pthread_mutex_t, &attributes) == 0;
  pthread_mutexattr_destroy(&attributes);
  return ok;
}

void SectionDelete(CriticalSection* section) noexcept {
  pthread_mutex_destroy(SectionMutex(section));
}

}  // namespace platform
}  // namespace vesk
