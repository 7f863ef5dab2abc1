/// \file
/// CMultiLock: a scoped lock on two or more waitable objects.
#ifndef VESK_BASE_WIN_MULTILOCK_H
#define VESK_BASE_WIN_MULTILOCK_H

#include "vesk/base/win/SyncObject.h"

namespace vesk {
namespace base {
namespace win {

/// Waits for any or all of its objects (not owned; at most 64) and releases
/// what it took when unlocked or destroyed. Meant to live on one thread's
/// stack.
class VESK_API CMultiLock : public CSyncObject {
  VESK_DECLARE_CLASS(CMultiLock);

  /// Throws CIllegalArgumentException "Invalid sync object count." for a
  /// count below 2, "Invalid sync object array." for a null array, "Invalid
  /// sync object." for a null object or one without wait handle, and
  /// CMemoryException when its arrays cannot be had. With lockNow,
  /// Lock(false, 0xFFFFFFFF).
  CMultiLock(unsigned int count, CSyncObject* const* objects, bool lockNow);
  /// Unlocks (a failing release is not reported) and frees the arrays.
  ~CMultiLock() override;

  /// Waits for any or all of the objects. A result below the count marks
  /// every object (waitAll) or the signalled one as locked; any other
  /// result marks nothing. Returns the result.
  unsigned int Lock(bool waitAll, unsigned int timeout);
  /// Releases each marked object and clears the marks.
  void Unlock();
  /// The mark of object index; CArrayIndexOutOfBoundsException at or past
  /// the count.
  bool IsLocked(unsigned int index) const;

  ///@{
  /// As CDualLock's.
  void Acquire() override;
  bool TryAcquire(unsigned int timeout) override;
  void Release() override;
  ///@}

 private:
  CMultiLock(const CMultiLock&);
  CMultiLock& operator=(const CMultiLock&);
  void FreeArrays();

  unsigned int m_count;
  CSyncObject** m_objects;
  void** m_handles;
  bool* m_locked;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
