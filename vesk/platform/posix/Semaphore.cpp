#include "vesk/platform/Semaphore.h"

#include <new>

#include <errno.h>
#include <pthread.h>

#include "vesk/platform/posix/Deadline.h"

namespace vesk {
namespace platform {

namespace {

// A count guarded by a mutex, with a condition for the waiters. Unlike a
// POSIX unnamed semaphore it enforces the maximum and measures timeouts on
// the monotonic clock.
struct CountingSemaphore {
  pthread_mutex_t mutex;
  pthread_cond_t available;
  unsigned int count;
  unsigned int max;
};

static_assert(sizeof(CountingSemaphore) <= sizeof(Semaphore::opaque),
              "the semaphore must fit its storage");
static_assert(alignof(CountingSemaphore) <= alignof(Semaphore),
              "the storage must be aligned for the semaphore");

inline CountingSemaphore* Get(Semaphore* semaphore) {
  return std::launder(reinterpret_cast<CountingSemaphore*>(semaphore->opaque));
}

}  // namespace

bool SemaphoreInit(Semaphore* semaphore, unsigned int initial, unsigned int max) noexcept {
  // Counts are signed 32-bit on every host the library runs on: a maximum of
  // 0 or beyond 0x7FFFFFFF makes no semaphore.
  if (max == 0 || max > kMaxSemaphoreCount || initial > max) return false;
  CountingSemaphore* s = new (semaphore->opaque) CountingSemaphore;
  s->count = initial;
  s->max = max;
  if (pthread_mutex_init(&s->mutex, nullptr) != 0) return false;
  pthread_condattr_t attributes;
  bool ok = pthread_condattr_init(&attributes) == 0;
  if (ok) {
    ok = pthread_condattr_setclock(&attributes, CLOCK_MONOTONIC) == 0 &&
         pthread_cond_init(&s->available, &attributes) == 0;
    pthread_condattr_destroy(&attributes);
  }
  if (!ok) pthread_mutex_destroy(&s->mutex);
  return ok;
}

void SemaphoreDelete(Semaphore* semaphore) noexcept {
  CountingSemaphore* s = Get(semaphore);
  pthread_cond_destroy(&s->available);
  pthread_mutex_destroy(&s->mutex);
}

// The condition waits are cancellation points; a thread ended by
// CThread::Destroy must not unwind out of them with the mutex held and the
// count half taken, so cancellation waits until the wait is over.
WaitResult SemaphoreWait(Semaphore* semaphore, unsigned int timeout) noexcept {
  CountingSemaphore* s = Get(semaphore);
  int cancelState;
  pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &cancelState);
  if (pthread_mutex_lock(&s->mutex) != 0) {
    pthread_setcancelstate(cancelState, nullptr);
    return kWaitFailed;
  }
  WaitResult result = kWaitSignalled;
  if (s->count == 0 && timeout != 0) {
    if (timeout == kWaitInfinite) {
      while (s->count == 0 && result == kWaitSignalled) {
        if (pthread_cond_wait(&s->available, &s->mutex) != 0) result = kWaitFailed;
      }
    } else {
      timespec deadline = MonotonicDeadline(timeout);
      while (s->count == 0 && result == kWaitSignalled) {
        int error = pthread_cond_timedwait(&s->available, &s->mutex, &deadline);
        if (error == ETIMEDOUT) {
          if (s->count == 0) result = kWaitTimeout;
        } else if (error != 0) {
          result = kWaitFailed;
        }
      }
    }
  }
  if (s->count == 0 && result == kWaitSignalled) result = kWaitTimeout;
  if (result == kWaitSignalled) --s->count;
  pthread_mutex_unlock(&s->mutex);
  pthread_setcancelstate(cancelState, nullptr);
  return result;
}

bool SemaphoreRelease(Semaphore* semaphore, unsigned int count) noexcept {
  CountingSemaphore* s = Get(semaphore);
  if (pthread_mutex_lock(&s->mutex) != 0) return false;
  bool ok = count <= s->max - s->count;
  if (ok && count != 0) {
    s->count += count;
    if (count == 1) {
      pthread_cond_signal(&s->available);
    } else {
      pthread_cond_broadcast(&s->available);
    }
  }
  pthread_mutex_unlock(&s->mutex);
  return ok;
}

}  // namespace platform
}  // namespace vesk
