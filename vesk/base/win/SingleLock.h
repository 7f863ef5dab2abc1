/// \file
/// CSingleLock: a scoped lock on one synchronisation object.
#ifndef VESK_BASE_WIN_SINGLELOCK_H
#define VESK_BASE_WIN_SINGLELOCK_H

#include "vesk/base/win/SyncObject.h"

namespace vesk {
namespace base {
namespace win {

/// Locks one object (not owned) and unlocks it when destroyed. Meant to live
/// on one thread's stack.
class VESK_API CSingleLock : public CSyncObject {
  VESK_DECLARE_CLASS(CSingleLock);

  /// Throws CIllegalArgumentException "Invalid sync object." for null; with
  /// lockNow acquires the object at once.
  CSingleLock(CSyncObject* object, bool lockNow);
  /// Copies the object and the locked flag: both copies will unlock.
  CSingleLock(const CSingleLock& other);
  /// Unlocks when locked; a failing release is not reported.
  ~CSingleLock() override;

  /// Acquires the object and marks the lock held.
  void Lock();
  /// Tries to acquire the object within timeout milliseconds: false when
  /// that failed; otherwise answers the locked flag as it was, which it
  /// leaves alone. Kept as existing callers rely on it: on a lock not yet
  /// held, a timed Lock acquires the object yet answers false and does not
  /// mark the lock held, so Unlock will not release the object.
  bool Lock(unsigned int timeout);
  /// Releases the object when the lock is marked held.
  void Unlock();
  /// Whether the lock is marked held.
  bool IsLocked() const { return m_locked; }

  ///@{
  /// Lock(), Lock(timeout) and Unlock(), as a synchronisation object.
  void Acquire() override;
  bool TryAcquire(unsigned int timeout) override;
  void Release() override;
  ///@}

 private:
  CSingleLock& operator=(const CSingleLock&);

  CSyncObject* m_object;
  bool m_locked;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
