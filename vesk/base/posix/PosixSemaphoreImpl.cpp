#include "vesk/base/posix/PosixSemaphoreImpl.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {

CSemaphoreImpl* CSemaphoreImpl::Create(unsigned int initialCount, unsigned int maxCount) {
  return new posix::CPosixSemaphoreImpl(initialCount, maxCount);
}

namespace posix {

namespace {
const char* const kSource = "vesk/base/win/WinSemaphoreImpl";
}

CPosixSemaphoreImpl::CPosixSemaphoreImpl(unsigned int initialCount, unsigned int maxCount) {
  if (initialCount > maxCount) {
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid initial count.");
  }
  if (!platform::SemaphoreInit(&m_semaphore, initialCount, maxCount)) {
    VESK_THROW(kSource, CMemoryException);
  }
}

CPosixSemaphoreImpl::~CPosixSemaphoreImpl() { platform::SemaphoreDelete(&m_semaphore); }

void CPosixSemaphoreImpl::Acquire() {
  if (platform::SemaphoreWait(&m_semaphore, platform::kWaitInfinite) != platform::kWaitSignalled) {
    VESK_THROW(kSource, CSynchronizationException, "Failed to acquire the semaphore.");
  }
}

bool CPosixSemaphoreImpl::TryAcquire(unsigned int timeout) {
  switch (platform::SemaphoreWait(&m_semaphore, timeout)) {
    case platform::kWaitSignalled:
      return true;
    case platform::kWaitTimeout:
      return false;
    default:
      VESK_THROW(kSource, CSynchronizationException, "Failed to acquire the semaphore.");
  }
}

void CPosixSemaphoreImpl::Release() {
  if (!platform::SemaphoreRelease(&m_semaphore, 1)) {
    VESK_THROW(kSource, CSynchronizationException, "Failed to release the semaphore.");
  }
}

}  // namespace posix
}  // namespace base
}  // namespace vesk
