#include "vesk/base/win/Mutex.h"

#include <errno.h>

#include "vesk/base/MemoryException.h"
#include "vesk/base/win/WinSystemErrorException.h"
#include "vesk/base/win/internal/SyncObjectImpl.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {
namespace win {

namespace {
const char* const kSource = "vesk/base/win/Mutex";
const char* const kAcquireFailed = "Failed to acquire the underlying mutex object.";
}

VESK_IMPLEMENT_CLASS(CMutex, CMutex, "vesk::base::win::CMutex", "vesk::base::win::CSyncObject")

// The name is used in the host's narrow encoding; no 16-bit form is needed.
CMutex::CMutex(const char* name, bool initiallyOwned)
    : CSyncObject(name), m_impl(CSyncObjectImpl::NewMutex(name, initiallyOwned)) {
  if (!m_impl) VESK_THROW(kSource, CMemoryException);
  SetHandle(m_impl->GetHandle());
}

CMutex::~CMutex() { delete m_impl; }

bool CMutex::IsTimeoutSupported() const { return true; }

void CMutex::Acquire() { internal::TakeOrThrow(m_impl->GetHandle(), kWaitInfinite, kSource, kAcquireFailed); }

bool CMutex::TryAcquire(unsigned int timeout) {
  return internal::TakeOrThrow(m_impl->GetHandle(), timeout, kSource, kAcquireFailed);
}

void CMutex::Release() {
  if (!m_impl->ReleaseMutex()) {
    VESK_THROW(kSource, CWinSystemErrorException, "Failed to release the underlying mutex object.", EPERM);
  }
}

}  // namespace win
}  // namespace base
}  // namespace vesk
