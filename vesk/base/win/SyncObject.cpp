#include "vesk/base/win/SyncObject.h"

#include <errno.h>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/win/WinSystemErrorException.h"
#include "vesk/base/win/internal/SyncObjectImpl.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {
namespace win {

namespace {
const char* const kSource = "vesk/base/win/SyncObject";
}

VESK_IMPLEMENT_CLASS(CSyncObject, CSyncObject, "vesk::base::win::CSyncObject", "vesk::base::CObject")

CSyncObject::CSyncObject() : m_handle(nullptr) {}

CSyncObject::CSyncObject(const char* name) : m_handle(nullptr) {
  if (name) m_name = name;
}

CSyncObject::CSyncObject(const CSyncObject& other)
    : CObject(other), m_name(other.m_name), m_handle(other.m_handle) {}

CSyncObject::~CSyncObject() {}

bool CSyncObject::IsTimeoutSupported() const { return false; }

unsigned int CSyncObject::WaitForSingleSyncObject(void* handle, unsigned int timeout) {
  if (!handle) VESK_THROW(kSource, CIllegalArgumentException, "Invalid wait handle.");
  return CSyncObjectImpl::WaitOne(handle, timeout);
}

unsigned int CSyncObject::WaitForMultipleSyncObject(unsigned int count, void* const* handles, bool waitAll,
                                                    unsigned int timeout) {
  if (count < 2) VESK_THROW(kSource, CIllegalArgumentException, "Invalid wait handle count.");
  if (!handles) VESK_THROW(kSource, CIllegalArgumentException, "Invalid wait handle array.");
  return CSyncObjectImpl::WaitMany(count, handles, waitAll, timeout);
}

bool internal::TakeOrThrow(void* handle, unsigned int timeout, const char* source, const char* failure) {
  unsigned int result = CSyncObjectImpl::WaitOne(handle, timeout);
  if (result == kWaitObject0 || result == kWaitAbandoned0) return true;
  if (result == kWaitTimeout && timeout != kWaitInfinite) return false;
  throw CWinSystemErrorException(source, __LINE__, failure, EINVAL);
}

}  // namespace win
}  // namespace base
}  // namespace vesk
