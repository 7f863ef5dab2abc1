#include "vesk/base/win/Event.h"

#include <errno.h>

#include "vesk/base/MemoryException.h"
#include "vesk/base/win/WinSystemErrorException.h"
#include "vesk/base/win/internal/SyncObjectImpl.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {
namespace win {

namespace {
const char* const kSource = "vesk/base/win/Event";
const char* const kAcquireFailed = "Failed to acquire the underlying event object.";
}

VESK_IMPLEMENT_CLASS(CEvent, CEvent, "vesk::base::win::CEvent", "vesk::base::win::CSyncObject")

CEvent::CEvent(const char* name, bool initiallySignalled, bool manualReset)
    : CSyncObject(name), m_impl(CSyncObjectImpl::NewEvent(name, initiallySignalled, manualReset)) {
  if (!m_impl) VESK_THROW(kSource, CMemoryException);
  SetHandle(m_impl->GetHandle());
}

CEvent::~CEvent() { delete m_impl; }

void CEvent::SetEvent() {
  if (!m_impl->SetEvent()) {
    VESK_THROW(kSource, CWinSystemErrorException,
               "Failed to set to the signaled state the underlying event object.", EINVAL);
  }
}

void CEvent::ResetEvent() {
  if (!m_impl->ResetEvent()) {
    VESK_THROW(kSource, CWinSystemErrorException, "Failed to reset the underlying event object.", EINVAL);
  }
}

bool CEvent::IsTimeoutSupported() const { return true; }

void CEvent::Acquire() { internal::TakeOrThrow(m_impl->GetHandle(), kWaitInfinite, kSource, kAcquireFailed); }

bool CEvent::TryAcquire(unsigned int timeout) {
  return internal::TakeOrThrow(m_impl->GetHandle(), timeout, kSource, kAcquireFailed);
}

void CEvent::Release() {}

}  // namespace win
}  // namespace base
}  // namespace vesk
