#include "vesk/platform/Semaphore.h"

#include "vesk/platform/win/Wait.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace platform {

namespace {

static_assert(sizeof(HANDLE) <= sizeof(Semaphore::opaque), "a handle must fit the storage");
static_assert(kWaitInfinite == INFINITE, "the library's infinite wait is the system's");

inline HANDLE& Native(Semaphore* semaphore) noexcept {
  return *reinterpret_cast<HANDLE*>(semaphore->opaque);
}

}  // namespace

// A kernel semaphore: the system enforces the maximum (a release past it
// fails with ERROR_TOO_MANY_POSTS and adds nothing) and the handle is not
// inherited by child processes.
bool SemaphoreInit(Semaphore* semaphore, unsigned int initial, unsigned int max) noexcept {
  if (max == 0 || max > kMaxSemaphoreCount || initial > max) return false;
  HANDLE handle = CreateSemaphoreW(nullptr, static_cast<LONG>(initial), static_cast<LONG>(max),
                                   nullptr);
  if (!handle) return false;
  Native(semaphore) = handle;
  return true;
}

void SemaphoreDelete(Semaphore* semaphore) noexcept { CloseHandle(Native(semaphore)); }

WaitResult WaitForObject(void* handle, unsigned int timeout) noexcept {
  switch (WaitForSingleObject(handle, timeout)) {
    case WAIT_OBJECT_0:
    case WAIT_ABANDONED:
      return kWaitSignalled;
    case WAIT_TIMEOUT:
      return kWaitTimeout;
    default:
      return kWaitFailed;
  }
}

WaitResult SemaphoreWait(Semaphore* semaphore, unsigned int timeout) noexcept {
  return WaitForObject(Native(semaphore), timeout);
}

bool SemaphoreRelease(Semaphore* semaphore, unsigned int count) noexcept {
  // The system refuses a release of no count; it changes nothing either way.
  if (count == 0) return true;
  if (count > kMaxSemaphoreCount) return false;
  return ReleaseSemaphore(Native(semaphore), static_cast<LONG>(count), nullptr) != FALSE;
}

}  // namespace platform
}  // namespace vesk
