#include "vesk/base/SpinLock.h"

#include <sched.h>

#include "vesk/base/Atomic.h"

namespace vesk {
namespace base {

bool CSpinLock::TryAcquire(unsigned int) { return AtomicCompareAndSwap(&m_flag, 1, 0) == 0; }

void CSpinLock::Acquire() {
  while (AtomicCompareAndSwap(&m_flag, 1, 0) != 0) sched_yield();
}

void CSpinLock::Release() { AtomicDecrement(&m_flag); }

}  // namespace base
}  // namespace vesk
