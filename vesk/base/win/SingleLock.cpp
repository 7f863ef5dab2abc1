#include "vesk/base/win/SingleLock.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {
namespace win {

VESK_IMPLEMENT_CLASS(CSingleLock, CSingleLock, "vesk::base::win::CSingleLock", "vesk::base::win::CSyncObject")

CSingleLock::CSingleLock(CSyncObject* object, bool lockNow) : m_object(object), m_locked(false) {
  if (!object) VESK_THROW("vesk/base/win/SingleLock", CIllegalArgumentException, "Invalid sync object.");
  if (lockNow) Lock();
}

CSingleLock::CSingleLock(const CSingleLock& other)
    : CSyncObject(other), m_object(other.m_object), m_locked(other.m_locked) {}

CSingleLock::~CSingleLock() {
  try {
    Unlock();
  } catch (...) {
  }
}

void CSingleLock::Lock() {
  m_object->Acquire();
  m_locked = true;
}

bool CSingleLock::Lock(unsigned int timeout) {
  if (!m_object->TryAcquire(timeout)) return false;
  return m_locked;
}

void CSingleLock::Unlock() {
  if (!m_locked) return;
  m_object->Release();
  m_locked = false;
}

void CSingleLock::Acquire() { Lock(); }

bool CSingleLock::TryAcquire(unsigned int timeout) { return Lock(timeout); }

void CSingleLock::Release() { Unlock(); }

}  // namespace win
}  // namespace base
}  // namespace vesk
