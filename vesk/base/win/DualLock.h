/// \file
/// CDualLock: a scoped lock on exactly two waitable objects.
#ifndef VESK_BASE_WIN_DUALLOCK_H
#define VESK_BASE_WIN_DUALLOCK_H

#include "vesk/base/win/SyncObject.h"

namespace vesk {
namespace base {
namespace win {

/// Waits for either or both of two objects with wait handles (not owned)
/// and releases what it took when unlocked or destroyed. Meant to live on
/// one thread's stack.
class VESK_API CDualLock : public CSyncObject {
  VESK_DECLARE_CLASS(CDualLock);

  /// Throws CIllegalArgumentException "Sync object 1 is invalid." (null),
  /// "Sync object 1 is not waitable." (no handle), then the same for object
  /// 2. With lockNow, Lock(false, 0xFFFFFFFF).
  CDualLock(CSyncObject* object1, CSyncObject* object2, bool lockNow);
  /// Unlocks; a failing release is not reported.
  ~CDualLock() override;

  /// Waits for any or all of the two. A result of 0 or 1 marks both
  /// objects (waitAll) or the signalled one as locked; any other result
  /// (time-out, abandoned, failure) marks nothing. Returns the result.
  unsigned int Lock(bool waitAll, unsigned int timeout);
  /// Releases each marked object and clears the marks.
  void Unlock();
  /// The mark of object 0 or 1; CArrayIndexOutOfBoundsException otherwise.
  bool IsLocked(unsigned int index) const;

  ///@{
  /// Lock(false, 0xFFFFFFFF), a Lock(false, timeout) that took an object,
  /// and Unlock(), as a synchronisation object.
  void Acquire() override;
  bool TryAcquire(unsigned int timeout) override;
  void Release() override;
  ///@}

 private:
  CDualLock(const CDualLock&);
  CDualLock& operator=(const CDualLock&);

  CSyncObject* m_objects[2];
  bool m_locked[2];
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
