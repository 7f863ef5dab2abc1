#include "vesk/base/Atomic.h"

namespace vesk {
namespace base {

int AtomicIncrement(volatile int* value) { return __atomic_add_fetch(value, 1, __ATOMIC_SEQ_CST); }

int AtomicDecrement(volatile int* value) { return __atomic_sub_fetch(value, 1, __ATOMIC_SEQ_CST); }

int AtomicCompareAndSwap(volatile int* value, int exchange, int comparand) {
  int expected = comparand;
  __atomic_compare_exchange_n(value, &expected, exchange, false, __ATOMIC_SEQ_CST, __ATOMIC_SEQ_CST);
  return expected;
}

}  // namespace base
}  // namespace vesk
