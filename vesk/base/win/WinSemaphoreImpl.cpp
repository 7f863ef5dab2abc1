#include "vesk/base/win/internal/WinSemaphoreImpl.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/win/Wait.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace base {

CSemaphoreImpl* CSemaphoreImpl::Create(unsigned int initialCount, unsigned int maxCount) {
  return new win::CWinSemaphoreImpl(initialCount, maxCount);
}

namespace win {

namespace {
const char* const kSource = "vesk/base/win/WinSemaphoreImpl";
}

// A maximum of 0 or beyond 0x7FFFFFFF is refused by the system.
CWinSemaphoreImpl::CWinSemaphoreImpl(unsigned int initialCount, unsigned int maxCount)
    : m_handle(nullptr) {
  if (initialCount > maxCount) {
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid initial count.");
  }
  m_handle = CreateSemaphoreW(nullptr, static_cast<LONG>(initialCount),
                              static_cast<LONG>(maxCount), nullptr);
  if (!m_handle) VESK_THROW(kSource, CMemoryException);
}

CWinSemaphoreImpl::~CWinSemaphoreImpl() { CloseHandle(m_handle); }

void CWinSemaphoreImpl::Acquire() {
  if (platform::WaitForObject(m_handle, INFINITE) != platform::kWaitSignalled) {
    VESK_THROW(kSource, CSynchronizationException, "Failed to acquire the semaphore.");
  }
}

bool CWinSemaphoreImpl::TryAcquire(unsigned int timeout) {
  platform::WaitResult result = platform::WaitForObject(m_handle, timeout);
  if (result == platform::kWaitFailed) {
    VESK_THROW(kSource, CSynchronizationException, "Failed to acquire the semaphore.");
  }
  return result == platform::kWaitSignalled;
}

// A release past the maximum fails (ERROR_TOO_MANY_POSTS) and adds nothing.
void CWinSemaphoreImpl::Release() {
  if (!ReleaseSemaphore(m_handle, 1, nullptr)) {
    VESK_THROW(kSource, CSynchronizationException, "Failed to release the semaphore.");
  }
}

}  // namespace win
}  // namespace base
}  // namespace vesk
