#include "vesk/base/win/MultiLock.h"

#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/win/internal/GroupLock.h"
#include "vesk/base/win/internal/SyncObjectImpl.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {
namespace win {

namespace {
const char* const kSource = "vesk/base/win/MultiLock";
}

VESK_IMPLEMENT_CLASS(CMultiLock, CMultiLock, "vesk::base::win::CMultiLock", "vesk::base::win::CSyncObject")

CMultiLock::CMultiLock(unsigned int count, CSyncObject* const* objects, bool lockNow)
    : m_count(count), m_objects(nullptr), m_handles(nullptr), m_locked(nullptr) {
  if (count < 2) VESK_THROW(kSource, CIllegalArgumentException, "Invalid sync object count.");
  if (!objects) VESK_THROW(kSource, CIllegalArgumentException, "Invalid sync object array.");
  for (unsigned int i = 0; i < count; ++i) {
    if (!objects[i] || !objects[i]->GetHandle()) {
      VESK_THROW(kSource, CIllegalArgumentException, "Invalid sync object.");
    }
  }
  m_objects = static_cast<CSyncObject**>(platform::Alloc(count * sizeof(CSyncObject*)));
  if (!m_objects) VESK_THROW(kSource, CMemoryException);
  m_handles = static_cast<void**>(platform::Alloc(count * sizeof(void*)));
  if (!m_handles) {
    FreeArrays();
    VESK_THROW(kSource, CMemoryException);
  }
  m_locked = static_cast<bool*>(platform::Alloc(count * sizeof(bool)));
  if (!m_locked) {
    FreeArrays();
    VESK_THROW(kSource, CMemoryException);
  }
  for (unsigned int i = 0; i < count; ++i) {
    m_objects[i] = objects[i];
    m_handles[i] = objects[i]->GetHandle();
    m_locked[i] = false;
  }
  if (!lockNow) return;
  try {
    Lock(false, kWaitInfinite);
  } catch (...) {
    FreeArrays();
    throw;
  }
}

CMultiLock::~CMultiLock() {
  try {
    Unlock();
  } catch (...) {
  }
  FreeArrays();
}

void CMultiLock::FreeArrays() {
  platform::Free(m_objects);
  platform::Free(m_handles);
  platform::Free(m_locked);
  m_objects = nullptr;
  m_handles = nullptr;
  m_locked = nullptr;
}

unsigned int CMultiLock::Lock(bool waitAll, unsigned int timeout) {
  return internal::LockGroup(m_count, m_handles, m_locked, waitAll, timeout);
}

void CMultiLock::Unlock() { internal::UnlockGroup(m_count, m_objects, m_locked); }

bool CMultiLock::IsLocked(unsigned int index) const {
  if (index >= m_count) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  return m_locked[index];
}

void CMultiLock::Acquire() { Lock(false, kWaitInfinite); }

bool CMultiLock::TryAcquire(unsigned int timeout) { return Lock(false, timeout) < m_count; }

void CMultiLock::Release() { Unlock(); }

}  // namespace win
}  // namespace base
}  // namespace vesk
