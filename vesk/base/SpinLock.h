/// \file
/// CSpinLock: a busy-waiting lock that yields between attempts and never
/// blocks in the kernel.
#ifndef VESK_BASE_SPINLOCK_H
#define VESK_BASE_SPINLOCK_H

#include "vesk/base/Base.h"

namespace vesk {
namespace base {

/// A 32-bit flag: 0 free, 1 held. Not re-entrant; releasing a free lock is
/// not checked.
class VESK_API CSpinLock {
 public:
  /// A free lock.
  CSpinLock() : m_flag(0) {}
  /// Spins (yielding the time slice after each failed attempt) until held.
  void Acquire();
  /// One attempt; true when it took the lock. The timeout is ignored.
  bool TryAcquire(unsigned int timeout = 0);
  /// Frees the lock.
  void Release();

 private:
  CSpinLock(const CSpinLock&);
  CSpinLock& operator=(const CSpinLock&);
  volatile int m_flag;
};

}  // namespace base
}  // namespace vesk

#endif
