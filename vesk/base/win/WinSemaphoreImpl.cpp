#include "vesk/base/win/internal/WinSemaphoreImpl.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/Throw.h"

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
  DWORD result = WaitForSingleObject(m_handle, INFINITE);
  if (result != WAIT_OBJECT_0 && result != WAIT_ABANDONED) {
    VESK_THROW(kSource, CSynchronizationException, "Failed to acquire the semaphore.");
  }
}

bool CWinSemaphoreImpl::TryAcquire(unsigned int timeout) {
  switch (WaitForSingleObject(m_handle, timeout)) {
    case WAIT_OBJECT_0:
    case WAIT_ABANDONED:
      return true;
    case WAIT_TIMEOUT:
      return false;
    default:
      VESK_THROW(kSource, CSynchronizationException, "Failed to acquire the semaphore.");
  }
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
