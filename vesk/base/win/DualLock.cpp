#include "vesk/base/win/DualLock.h"

#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/win/internal/GroupLock.h"
#include "vesk/base/win/internal/SyncObjectImpl.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {
namespace win {

namespace {
const char* const kSource = "vesk/base/win/DualLock";
}

VESK_IMPLEMENT_CLASS(CDualLock, CDualLock, "vesk::base::win::CDualLock", "vesk::base::win::CSyncObject")

CDualLock::CDualLock(CSyncObject* object1, CSyncObject* object2, bool lockNow)
    : m_objects{object1, object2}, m_locked{false, false} {
  if (!object1) VESK_THROW(kSource, CIllegalArgumentException, "Sync object 1 is invalid.");
  if (!object1->GetHandle()) VESK_THROW(kSource, CIllegalArgumentException, "Sync object 1 is not waitable.");
  if (!object2) VESK_THROW(kSource, CIllegalArgumentException, "Sync object 2 is invalid.");
  if (!object2->GetHandle()) VESK_THROW(kSource, CIllegalArgumentException, "Sync object 2 is not waitable.");
  if (lockNow) Lock(false, kWaitInfinite);
}

CDualLock::~CDualLock() {
  try {
    Unlock();
  } catch (...) {
  }
}

unsigned int CDualLock::Lock(bool waitAll, unsigned int timeout) {
  void* handles[2] = {m_objects[0]->GetHandle(), m_objects[1]->GetHandle()};
  return internal::LockGroup(2, handles, m_locked, waitAll, timeout);
}

void CDualLock::Unlock() { internal::UnlockGroup(2, m_objects, m_locked); }

bool CDualLock::IsLocked(unsigned int index) const {
  if (index > 1) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  return m_locked[index];
}

void CDualLock::Acquire() { Lock(false, kWaitInfinite); }

bool CDualLock::TryAcquire(unsigned int timeout) { return Lock(false, timeout) < 2; }

void CDualLock::Release() { Unlock(); }

}  // namespace win
}  // namespace base
}  // namespace vesk
